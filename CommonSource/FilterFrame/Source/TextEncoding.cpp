// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/TextEncoding.h"

#include <cstring>

int ConvertUTF8ToEncoding(const char *source, char *destination, std::int32_t size) {
    std::strncpy(destination, source, static_cast<std::size_t>(size) - 1);
    destination[size - 1] = 0;
    return static_cast<int>(std::strlen(destination));
}
int ConvertUTF8ToEncodingForUTF8(const char *source, char *destination, std::int32_t size) {
    return ConvertUTF8ToEncoding(source, destination, size);
}
int ConvertUTF8ToPPDEncoding(const char *source, char *destination, std::int32_t size,
                             CFStringEncoding) {
    return ConvertUTF8ToEncoding(source, destination, size);
}
CFStringEncoding GetCFStringSimEncodingFromPPD(ppd_file_t *) {
    return 0x08000100;
}
