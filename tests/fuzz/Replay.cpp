// SPDX-License-Identifier: Apache-2.0
//
// Runs a fuzz target on files: those named, and all in the folders named. Fails without any.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "fuzz/Fuzz.h"

namespace {

int inputs = 0;

void Run(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(text.data()), text.size());
    inputs++;
}

}  // namespace

int main(int argc, char *argv[]) {
    for (int i = 1; i < argc; i++) {
        if (!std::filesystem::is_directory(argv[i])) {
            Run(argv[i]);
            continue;
        }
        for (const auto &entry : std::filesystem::directory_iterator(argv[i])) Run(entry.path());
    }
    std::printf("%d inputs\n", inputs);
    return inputs > 0 ? 0 : 1;
}
