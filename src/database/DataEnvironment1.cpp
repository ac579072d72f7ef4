#include "database/DataEnvironment1.h"
