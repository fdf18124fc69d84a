// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PipeCapacity.h"

#include <fcntl.h>

#ifdef F_SETPIPE_SZ
void WidenPipe(int file) {
    const int capacity = fcntl(file, F_GETPIPE_SZ);
    if (capacity >= 0 && static_cast<std::size_t>(capacity) < kPipeCapacity) {
        fcntl(file, F_SETPIPE_SZ, static_cast<int>(kPipeCapacity));
    }
}
#else
void WidenPipe(int) {}  // the system sizes its pipes itself
#endif
