#include "include/CoreFoundation/CoreFoundation.h"
