// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/UtilityFunctionFilter.h"

#include <unistd.h>

void GetClientIPAddress(char *hostName, char *) {
    gethostname(hostName, 96);
}
