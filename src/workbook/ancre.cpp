// Anchors the library until the first workbook source.
#include "workbook/CoursRapport.h"
