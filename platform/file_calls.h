// SPDX-License-Identifier: GPL-3.0-or-later
// The system's calls on files, with their failures as numbers. For the files of platform/ alone.
#pragma once

#include "platform/files.h"

#include <sys/stat.h>

namespace grimoval::calls {

[[noreturn]] void fail(int systemError);
// A folder or file that stands in the way of a path reads as "path not found".
[[noreturn]] void failForPath(const std::string &path, int systemError);

// A descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int value) : value_(value) {}
    ~Descriptor();
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    operator int() const { return value_; }

private:
    int value_;
};

extern const int alwaysFlags; // of each opening

// Plain files only: a pipe or a device in a file's place would keep the program waiting.
int openOrFail(const std::string &path, int flags);
void writeAll(int descriptor, const char *bytes, std::size_t size);
std::string readAll(int descriptor, std::size_t most);

// A name beside a file's that no other game takes, on whatever machine it runs: numbers of
// processes come again there, and no lock holds between them. It begins with the file's and a '~'.
std::string ownName(const std::string &name);
// A new file of the first name, or of one of its own beside the second; answers the descriptor and
// the path. What stands under a name already, a link above all, is never written to.
std::pair<int, std::string> openNew(std::string fresh, const std::string &name);

bool isSameFile(const struct stat &one, const struct stat &other);

} // namespace grimoval::calls
