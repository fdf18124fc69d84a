// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/DeviceSettings.h"

int OutputKPJLCommandOthers() {
    return 1;
}
