// SPDX-License-Identifier: Apache-2.0
//
// The plain pass byte by byte, as the tests know it: what the reader of blocks is measured against.
#include "support/ReferencePass.h"

int main(int, char *argv[]) {
    ReferencePSStream(stdin, stdout, argv);
    return 0;
}
