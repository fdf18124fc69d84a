// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/PageStamp.h"

#include "CommonSource/FilterFrame/Source/OutputWriter.h"

namespace {

// The font is looked up now, for a document may bring one of its own under the same name. Only the
// bytes of a string survive the restore that ends many a page.
constexpr char kBegin[] =
    "4 dict begin\n"
    "/kvxStamp currentdict def\n"
    "/kvxStamped 1 string def\n"
    "/selectfont{exch pop kvxFont exch scalefont setfont}bind def\n"
    "/kvxFont/";

// The procedure calls the one that it replaces and goes by its answer: a page that is not printed
// yet is not stamped yet. All operators are bound.
constexpr char kProcedure[] =
    " findfont def\n"
    "<</EndPage[currentpagedevice/EndPage get{exec dup{//kvxStamp begin\n";
constexpr char kOnce[] = "kvxStamped 0 get 0 eq{kvxStamped 0 1 put\n";
constexpr char kGraphics[] = "gsave initgraphics\n";
constexpr char kOnceEnd[] = "}if\n";
constexpr char kEnd[] =
    "end}if}bind/exec load]cvx>>setpagedevice\n"
    "end\n";

}  // namespace

void PutPageStamp(const PageStamp &stamp, std::FILE *stream) {
    if (!stamp.output) return;
    KVfputs(kBegin, stream);
    KVfputs(stamp.font, stream);
    KVfputs(kProcedure, stream);
    if (stamp.firstPageOnly) KVfputs(kOnce, stream);
    KVfputs(kGraphics, stream);
    stamp.output(stream);
    if (stamp.firstPageOnly) KVfputs(kOnceEnd, stream);
    KVfputs(kEnd, stream);
}
