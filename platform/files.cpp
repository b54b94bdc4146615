// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/file_calls.h"

#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace grimoval {

using namespace calls;

namespace {

// What ownName adds; a shorter addition is a person's, as an editor's backup.
constexpr const char16_t *ownNames = u"~??????????";

// The file that a name stands for, be it there or not, behind all its links.
std::string behindLinks(std::string name) {
    namespace fs = std::filesystem;
    for (int links = 0; links < 40; ++links) {
        std::error_code none;
        const fs::path target = fs::read_symlink(name, none);
        if (none) {
            return name;
        }
        name = (fs::path(name).parent_path() / target).string();
    }
    throw Failure(failure::pathNotFound);
}

// Where no call gives a name only if it is free: the shared folders of a network.
bool linkToFreeName(const std::string &from, const std::string &to) {
    struct stat moved {};
    if (::link(from.c_str(), to.c_str()) != 0) {
        if (errno == EEXIST) {
            return false;
        }
        // A disk without links has no neighbours either.
        if (::lstat(to.c_str(), &moved) == 0) {
            return false;
        }
        if (::rename(from.c_str(), to.c_str()) != 0) {
            failForPath(from, errno);
        }
        return true;
    }
    // The old name goes, unless another game has given it to a new file meanwhile.
    const std::string aside = ownName(from);
    struct stat taken {};
    if (::rename(from.c_str(), aside.c_str()) == 0 && ::lstat(aside.c_str(), &taken) == 0 &&
        ::lstat(to.c_str(), &moved) == 0) {
        if (isSameFile(taken, moved) || ::link(aside.c_str(), from.c_str()) == 0) {
            ::unlink(aside.c_str());
        }
    }
    return true;
}

struct stat statusOrFail(const std::string &path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        failForPath(path, errno);
    }
    return status;
}

} // namespace

bool Files::exists(const Texte &path) {
    struct stat status {};
    return ::stat(resolve(path).c_str(), &status) == 0;
}

bool Files::folderExists(const Texte &path) {
    struct stat status {};
    return ::stat(resolve(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

void Files::makeFolder(const Texte &path) {
    const std::string name = resolve(path);
    if (::mkdir(name.c_str(), 0777) != 0) {
        if (errno == ENOENT) {
            throw Failure(failure::pathNotFound);
        }
        throw Failure(errno == EEXIST ? static_cast<int>(failure::pathAccess) : failureOf(errno));
    }
}

std::int64_t Files::length(const Texte &path) { return statusOrFail(resolve(path)).st_size; }

DateTime Files::lastWrite(const Texte &path) {
    const struct stat status = statusOrFail(resolve(path));
    std::tm local{};
    ::localtime_r(&status.st_mtim.tv_sec, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

void Files::stamp(int descriptor) const {
    if (!writeTime) {
        return;
    }
    const DateTime time = writeTime();
    std::tm local{};
    local.tm_year = time.year - 1900;
    local.tm_mon = time.month - 1;
    local.tm_mday = time.day;
    local.tm_hour = time.hour;
    local.tm_min = time.minute;
    local.tm_sec = time.second;
    local.tm_isdst = -1;
    const timespec moment{std::mktime(&local), 0};
    const timespec both[2] = {moment, moment};
    if (::futimens(descriptor, both) != 0) {
        fail(errno);
    }
}

void Files::remove(const Texte &path) {
    const std::string name = resolve(path);
    if (::unlink(name.c_str()) != 0) {
        failForPath(name, errno);
    }
}

void Files::copy(const Texte &from, const Texte &to) {
    const Descriptor source(openOrFail(resolve(from), O_RDONLY));
    const std::string content = readAll(source, largestFile);
    const Descriptor target(openOrFail(resolve(to), O_WRONLY | O_CREAT | O_TRUNC));
    writeAll(target, content.data(), content.size());
    stamp(target);
    if (::fsync(target) != 0) {
        fail(errno);
    }
}

void Files::move(const Texte &from, const Texte &to) {
    const std::string name = resolve(from);
    if (::rename(name.c_str(), resolve(to).c_str()) != 0) {
        failForPath(name, errno);
    }
}

bool Files::moveToFreeName(const Texte &from, const Texte &to) {
    const std::string name = resolve(from), fresh = resolve(to);
    if (::renameat2(AT_FDCWD, name.c_str(), AT_FDCWD, fresh.c_str(), RENAME_NOREPLACE) == 0) {
        return true;
    }
    if (errno == EINVAL || errno == ENOSYS) {
        return linkToFreeName(name, fresh);
    }
    if (errno != EEXIST) {
        failForPath(name, errno);
    }
    return false;
}

std::string Files::read(const Texte &path, std::size_t most) {
    const Descriptor file(openOrFail(resolve(path), O_RDONLY));
    return readAll(file, most);
}

void Files::replaceAt(const std::string &name, const std::string &bytes,
                      std::optional<unsigned> permissions) {
    const auto [descriptor, fresh] = openNew(ownName(name), name);
    try {
        const Descriptor file(descriptor);
        if (permissions) {
            ::fchmod(file, *permissions); // of a disk without them they are as they are
        }
        writeAll(file, bytes.data(), bytes.size());
        stamp(file);
        if (::fsync(file) != 0) {
            fail(errno);
        }
    } catch (const Failure &) {
        ::unlink(fresh.c_str());
        throw;
    }
    if (::rename(fresh.c_str(), name.c_str()) != 0) {
        const int error = errno;
        ::unlink(fresh.c_str());
        fail(error);
    }
}

void Files::replace(const Texte &path, const std::string &bytes) {
    replaceAt(resolve(path), bytes, {});
}

void Files::rewrite(const Texte &path, const std::string &bytes) {
    const std::string name = behindLinks(resolve(path));
    struct stat status {};
    std::optional<unsigned> permissions;
    if (::stat(name.c_str(), &status) == 0) {
        // By the permissions, too: the administrator may write everything.
        if ((status.st_mode & 0222) == 0) {
            throw Failure(failure::permissionDenied);
        }
        const Descriptor writable(openOrFail(name, O_WRONLY));
        permissions = status.st_mode & 07777;
    }
    replaceAt(name, bytes, permissions);
}

void Files::removeLeftOver(const Texte &folder, const Texte &pattern) {
    constexpr std::time_t longest = 3600; // seconds
    struct stat changed {}; // by the clock of the disk, which may be another machine's
    if (::stat(resolve(folder).c_str(), &changed) != 0) {
        return;
    }
    for (const Texte &name : list(folder, pattern + ownNames)) {
        const std::string path = resolve(asFolder(folder) + name);
        struct stat status {};
        if (::lstat(path.c_str(), &status) == 0 && changed.st_mtime - status.st_mtime > longest) {
            ::unlink(path.c_str());
        }
    }
}

void Files::flushFolder(const Texte &folder) {
    const Descriptor opened(::open(resolve(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened < 0 || ::fsync(opened) != 0) {
        fail(errno);
    }
}

} // namespace grimoval
