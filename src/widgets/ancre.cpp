#include "frame/Cadre.h"
