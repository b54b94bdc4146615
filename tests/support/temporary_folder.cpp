// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/temporary_folder.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include <stdlib.h>
#include <unistd.h>

namespace grimoval::test {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (fs::temp_directory_path() / "grimoval-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), pattern);
    }
    // A test that plays an ordinary user must get in.
    fs::permissions(pattern, fs::perms(0755));
    path_ = fromPath(pattern);
}

TemporaryFolder::~TemporaryFolder() {
    // A process of the test that has just been ended may still write a last file into it.
    const fs::path folder = toPath(path_);
    std::error_code error;
    for (int attempt = 0; attempt < 100; ++attempt) {
        fs::remove_all(folder, error);
        if (!error || !fs::exists(folder, error)) {
            return;
        }
        ::usleep(10'000);
    }
}

Texte TemporaryFolder::path(const Texte &name) const { return path_ + u'/' + name; }

std::string TemporaryFolder::bytePath(const Texte &name) const { return toPath(path(name)); }

void TemporaryFolder::write(const Texte &name, const std::string &bytes) const {
    const fs::path file = bytePath(name);
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.exceptions(std::ios::failbit | std::ios::badbit);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
}

void TemporaryFolder::makeFolder(const Texte &name) const {
    fs::create_directories(bytePath(name));
}

std::string TemporaryFolder::read(const Texte &name) const {
    std::ifstream stream(bytePath(name), std::ios::binary);
    if (!stream) {
        throw std::system_error(ENOENT, std::generic_category(), bytePath(name));
    }
    return {std::istreambuf_iterator<char>(stream), {}};
}

bool TemporaryFolder::exists(const Texte &name) const { return fs::exists(bytePath(name)); }

std::vector<std::string> TemporaryFolder::list() const {
    const fs::path root = toPath(path_);
    std::vector<std::string> names;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(root)) {
        names.push_back(entry.path().lexically_relative(root).string() +
                        (entry.is_directory() ? "/" : ""));
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace grimoval::test
