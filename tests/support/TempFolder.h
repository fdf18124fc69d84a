// SPDX-License-Identifier: Apache-2.0
//
// A folder of a test's own, removed with all it holds.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

class TempFolder {
  public:
    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "kvfilter-XXXXXX").string();
        if (!mkdtemp(name.data())) throw std::runtime_error("mkdtemp");
        path_ = name;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder &) = delete;
    TempFolder &operator=(const TempFolder &) = delete;

    const std::filesystem::path &Path() const { return path_; }

    // Writes a file and returns its path.
    std::string Write(const std::string &name, const std::string &text) const {
        std::ofstream(path_ / name, std::ios::binary) << text;
        return (path_ / name).string();
    }

    std::string Read(const std::string &name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }

  private:
    std::filesystem::path path_;
};
