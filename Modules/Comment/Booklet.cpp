// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/Booklet.h"

int OutputKPJLCommandforBooklet() {
    return 1;
}
