// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/file_calls.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <random>
#include <unistd.h>

namespace grimoval {

int failureOf(int systemError) {
    struct Row {
        int systemError;
        int number;
    };
    static constexpr Row rows[] = {
        {ENOENT, failure::fileNotFound},
        {ENOTDIR, failure::pathNotFound},
        {ELOOP, failure::pathNotFound},
        {EACCES, failure::permissionDenied},
        {EPERM, failure::permissionDenied},
        {EROFS, failure::pathAccess},
        {EISDIR, failure::pathAccess},
        {ENOTEMPTY, failure::pathAccess},
        {EEXIST, failure::fileAlreadyExists},
        {EBUSY, failure::fileAlreadyOpen},
        {ETXTBSY, failure::fileAlreadyOpen},
        {ENOSPC, failure::diskFull},
        {EDQUOT, failure::diskFull},
        {EFBIG, failure::diskFull},
        {EIO, failure::deviceError},
        {ENXIO, failure::deviceUnavailable},
        {ENODEV, failure::deviceUnavailable},
        {ESTALE, failure::deviceUnavailable},
        {EHOSTDOWN, failure::deviceUnavailable},
        {ENOMEDIUM, failure::diskNotReady},
        {ENAMETOOLONG, failure::badFileNameOrNumber},
        {EINVAL, failure::badFileNameOrNumber},
        {EILSEQ, failure::badFileName},
        {EMFILE, failure::tooManyFiles},
        {ENFILE, failure::tooManyFiles},
    };
    for (const Row &row : rows) {
        if (row.systemError == systemError) {
            return row.number;
        }
    }
    return failure::deviceError;
}

namespace calls {

void fail(int systemError) { throw Failure(failureOf(systemError)); }

void failForPath(const std::string &path, int systemError) {
    if (systemError == ENOENT) {
        const auto slash = path.find_last_of('/');
        struct stat status {};
        if (slash != std::string::npos && slash > 0 &&
            ::stat(path.substr(0, slash).c_str(), &status) != 0) {
            throw Failure(failure::pathNotFound);
        }
    }
    fail(systemError);
}

Descriptor::~Descriptor() {
    if (value_ >= 0) {
        ::close(value_);
    }
}

const int alwaysFlags = O_CLOEXEC | O_NONBLOCK;

int openOrFail(const std::string &path, int flags) {
    const int descriptor = ::open(path.c_str(), flags | alwaysFlags, 0666);
    if (descriptor < 0) {
        failForPath(path, errno);
    }
    struct stat status {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(descriptor);
        throw Failure(failure::pathAccess);
    }
    return descriptor;
}

void writeAll(int descriptor, const char *bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t written = ::write(descriptor, bytes, size);
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            fail(errno);
        }
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
}

std::string readAll(int descriptor, std::size_t most) {
    std::string content;
    std::array<char, 65536> block{};
    for (;;) {
        const ssize_t got = ::read(descriptor, block.data(), block.size());
        if (got < 0) {
            if (errno == EINTR) {
                continue;
            }
            fail(errno);
        }
        if (got == 0) {
            return content;
        }
        content.append(block.data(), static_cast<std::size_t>(got));
        if (content.size() > most) {
            throw Failure(failure::outOfMemory);
        }
    }
}

std::string ownName(const std::string &name) {
    static constexpr char digits[] = "0123456789abcdefghijklmnopqrstuv";
    std::string own = name + "~";
    std::random_device chance;
    for (int i = 0; i < 10; ++i) {
        own += digits[chance() % 32];
    }
    return own;
}
std::pair<int, std::string> openNew(std::string fresh, const std::string &name) {
    for (int more = 5;; --more) {
        try {
            return {openOrFail(fresh, O_RDWR | O_CREAT | O_EXCL), fresh};
        } catch (const Failure &taken) {
            if (taken.number != failure::fileAlreadyExists || more == 0) {
                throw;
            }
        }
        fresh = ownName(name);
    }
}

bool isSameFile(const struct stat &one, const struct stat &other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

} // namespace calls

} // namespace grimoval
