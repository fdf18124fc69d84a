// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/JobBuffers.h"

#include <cstring>
#include <initializer_list>

StdText StdUserName;
char StdJBAUserName[33];
StdText StdDocumentName;
StdText PTStdDocumentName;

StdText StdNUpInfo;
StdText StdLayoutInfo;
StdText StdLayoutDirectionInfo;
StdText StdLayoutRowInfo;
StdText StdLayoutColumnInfo;

StdText StdPaperInfoRectOriginXKey;
StdText StdPaperInfoRectOriginYKey;
StdText StdPaperInfoRectHeightKey;
StdText StdPaperInfoRectWidthKey;
StdText StdAdobePaperInfoRectOriginXKey;
StdText StdAdobePaperInfoRectOriginYKey;
StdText StdAdobePaperInfoRectHeightKey;
StdText StdAdobePaperInfoRectWidthKey;

char HostNameStr[97];
char IPAddressStr[46];

volatile std::sig_atomic_t CancelJob;
volatile std::sig_atomic_t CancelJobForPipe;

void ClearLayoutBuffers() {
    for (StdText *text :
         {&StdNUpInfo, &StdLayoutInfo, &StdLayoutDirectionInfo, &StdLayoutRowInfo,
          &StdLayoutColumnInfo, &StdPaperInfoRectOriginXKey, &StdPaperInfoRectOriginYKey,
          &StdPaperInfoRectHeightKey, &StdPaperInfoRectWidthKey, &StdAdobePaperInfoRectOriginXKey,
          &StdAdobePaperInfoRectOriginYKey, &StdAdobePaperInfoRectHeightKey,
          &StdAdobePaperInfoRectWidthKey}) {
        std::memset(*text, 0, sizeof *text);
    }
}
