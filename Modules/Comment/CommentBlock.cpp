// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/CommentBlock.h"

int OutputKPJLCommandforCommentVersionLow() {
    return 1;
}

int OutputKPJLCommandforCommentBegin() {
    return 1;
}

int OutputKPJLCommandforCommentBasic() {
    return 1;
}

int OutputKPJLCommandforCommentEnd() {
    return 1;
}
