// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of a test's own under the system's temporary folder; it goes with the object.
#pragma once

#include "platform/text.h"

#include <string>
#include <vector>

namespace grimoval::test {

// Names are relative to the folder, with '/' between folders; contents are bytes as they are.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    Texte path() const { return path_; } // without a separator at its end
    Texte path(const Texte &name) const;
    std::string bytePath(const Texte &name) const; // for system calls

    // Makes the folders on the way, and replaces.
    void write(const Texte &name, const std::string &bytes) const;
    void makeFolder(const Texte &name) const;
    // Throws if there is no such file.
    std::string read(const Texte &name) const;
    bool exists(const Texte &name) const;
    // Everything in it at every depth, in order of the bytes; folders end in '/'.
    std::vector<std::string> list() const;

private:
    Texte path_;
};

} // namespace grimoval::test
