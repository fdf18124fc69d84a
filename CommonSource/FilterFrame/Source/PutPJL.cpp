// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PutPJL.h"

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "CommonSource/FilterFrame/Source/OutputWriter.h"

namespace {

constexpr std::size_t kLineSize = 100;  // NUL included

int PutLine(std::string_view beginning, const char *format, std::va_list values) {
    char line[kLineSize];
    std::memcpy(line, beginning.data(), beginning.size());
    std::vsnprintf(line + beginning.size(), sizeof line - beginning.size(), format, values);
    return KVfputs(line, stdout);
}

}  // namespace

int PutJobAttribute(const char *name, const char *value) {
    return PutSetting("JOBATTR=\"@%s=%s\"\n", name, value);
}

int PutJobAttribute(const char *name, std::int32_t value) {
    return PutSetting("JOBATTR=\"@%s=%d\"\n", name, value);
}

int PutSetting(const char *format, ...) {
    std::va_list values;
    va_start(values, format);
    const int result = PutLine("@PJL SET ", format, values);
    va_end(values);
    return result;
}

int PutJobInfo(const char *format, ...) {
    std::va_list values;
    va_start(values, format);
    const int result = PutLine("@PJL COMMENT KVJOBINFO ", format, values);
    va_end(values);
    return result;
}
