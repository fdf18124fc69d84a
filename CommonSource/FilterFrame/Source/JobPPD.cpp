// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/JobPPD.h"

#include <cstdlib>
#include <cstring>

namespace {

bool opened = false;
ppd_file_t *jobPPD = nullptr;

}  // namespace

ppd_file_t *JobPPD() {
    if (!opened) {
        const char *path = std::getenv("PPD");
        jobPPD = path ? ppdOpenFile(path) : nullptr;
        opened = true;
    }
    return jobPPD;
}

void CloseJobPPD() {
    ppdClose(jobPPD);
    jobPPD = nullptr;
    opened = false;
}

ppd_attr_t *ppdFindAttr_ALT(ppd_file_t *ppd, const char *name) {
    if (!ppd) return nullptr;
    const std::size_t length = std::strlen(name);
    for (int i = 0; i < ppd->num_attrs; i++) {
        if (std::strncmp(ppd->attrs[i]->name, name, length) == 0) return ppd->attrs[i];
    }
    return nullptr;
}

bool JobPPDAttributeIs(const char *name, const char *value) {
    const ppd_attr_t *attribute = ppdFindAttr_ALT(JobPPD(), name);
    return attribute && attribute->value && std::strcmp(attribute->value, value) == 0;
}
