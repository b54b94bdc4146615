// SPDX-License-Identifier: GPL-3.0-or-later
// What may lie in the place of a file or a folder.
#pragma once

#include "support/temporary_folder.h"

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <sys/stat.h>

namespace grimoval::test {

struct OddFile {
    const char *name;
    std::function<void(const std::string &path)> make;
};

// None of them can be opened, or none of them is a plain file.
inline const std::vector<OddFile> &oddFiles() {
    namespace fs = std::filesystem;
    static const std::vector<OddFile> all = {
        {"pipe", [](const std::string &path) { ::mkfifo(path.c_str(), 0666); }},
        {"folder", [](const std::string &path) { fs::create_directory(path); }},
        {"endlessDevice", [](const std::string &path) { fs::create_symlink("/dev/zero", path); }},
        {"fullDevice", [](const std::string &path) { fs::create_symlink("/dev/full", path); }},
        {"linkToItself", [](const std::string &path) { fs::create_symlink(path, path); }},
        {"linkIntoNothing",
         [](const std::string &path) { fs::create_symlink("/nulle/part", path); }},
    };
    return all;
}

// Makes it there, whatever was there before.
inline void put(const OddFile &odd, const TemporaryFolder &folder, const Texte &name) {
    const std::string path = folder.bytePath(name);
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::filesystem::remove_all(path);
    odd.make(path);
}

// The one of a name; without a name nothing is left there.
inline void put(const std::string &kind, const TemporaryFolder &folder, const Texte &name) {
    for (const OddFile &odd : oddFiles()) {
        if (odd.name == kind) {
            put(odd, folder, name);
            return;
        }
    }
    if (!kind.empty()) {
        throw std::logic_error(kind);
    }
    std::filesystem::remove_all(folder.bytePath(name));
}

} // namespace grimoval::test
