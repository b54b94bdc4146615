// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace grimoval {

namespace {

[[noreturn]] void fail(int systemError) { throw Failure(failureOf(systemError)); }

// A descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int value) : value_(value) {}
    ~Descriptor() {
        if (value_ >= 0) {
            ::close(value_);
        }
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    operator int() const { return value_; }

private:
    int value_;
};

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

// Nothing that the program reads whole comes near this size; a larger file is not one of ours.
constexpr std::size_t largestFile = 64u << 20; // bytes

std::string readAll(int descriptor) {
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
        if (content.size() > largestFile) {
            throw Failure(failure::outOfMemory);
        }
        content.append(block.data(), static_cast<std::size_t>(got));
    }
}

constexpr std::size_t blockLength = 16384; // bytes

// A folder or file that stands in the way of a path reads as "path not found".
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

constexpr int alwaysFlags = O_CLOEXEC | O_NONBLOCK;

// Plain files only: a pipe or a device in a file's place would keep the program waiting.
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

// What a killed game has left of a file's new content, if nobody can be at it any more.
void removeStale(const std::string &fresh) {
    constexpr std::time_t longest = 60; // seconds
    struct stat status {};
    if (::lstat(fresh.c_str(), &status) == 0 && std::time(nullptr) - status.st_mtime > longest) {
        ::unlink(fresh.c_str());
    }
}

// Where the new content of a file is written before it takes the file's place; answers the
// descriptor and the path. Another game on the same account may be writing there at this moment:
// then it is a place of this process's own.
std::pair<int, std::string> openFresh(const std::string &name) {
    constexpr int flags = O_WRONLY | O_CREAT;
    std::string fresh = name + "~";
    removeStale(fresh);
    try {
        return {openOrFail(fresh, flags | O_EXCL), fresh};
    } catch (const Failure &taken) {
        if (taken.number != failure::fileAlreadyExists) {
            throw;
        }
    }
    fresh += std::to_string(::getpid());
    return {openOrFail(fresh, flags | O_TRUNC), fresh};
}

struct stat statusOrFail(const std::string &path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        failForPath(path, errno);
    }
    return status;
}

} // namespace

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

RecordFile::RecordFile(Files &files, const Texte &path, int recordLength)
    : descriptor_(-1), recordLength_(recordLength) {
    const std::string name = files.resolve(path);
    descriptor_ = ::open(name.c_str(), O_RDWR | alwaysFlags);
    if (descriptor_ < 0 && errno == ENOENT) {
        descriptor_ = ::open(name.c_str(), O_RDWR | O_CREAT | alwaysFlags, 0666);
        if (descriptor_ >= 0) {
            files.stamp(descriptor_);
        }
    }
    if (descriptor_ < 0) {
        const int writing = errno;
        if (writing == EACCES || writing == EPERM || writing == EROFS) {
            descriptor_ = ::open(name.c_str(), O_RDONLY | alwaysFlags);
        }
        if (descriptor_ < 0) {
            failForPath(name, writing);
        }
    }
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(descriptor_);
        throw Failure(failure::pathAccess);
    }
}

RecordFile::~RecordFile() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

RecordFile::RecordFile(RecordFile &&other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), recordLength_(other.recordLength_),
      block_(std::move(other.block_)), blockPlace_(other.blockPlace_) {}

std::int64_t RecordFile::count() const {
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0) {
        fail(errno);
    }
    return status.st_size / recordLength_;
}

std::string RecordFile::read(std::int64_t number) const {
    if (number < 1) {
        throw Failure(failure::badRecordNumber);
    }
    const std::int64_t place = (number - 1) * recordLength_;
    const auto inBlock = [this, place] {
        return place >= blockPlace_ &&
               place + recordLength_ <= blockPlace_ + static_cast<std::int64_t>(block_.size());
    };
    if (!inBlock()) {
        readBlock(place);
    }
    if (!inBlock()) {
        throw Failure(failure::inputPastEnd);
    }
    return block_.substr(static_cast<std::size_t>(place - blockPlace_),
                         static_cast<std::size_t>(recordLength_));
}

// One record at least, as far as there are so many bytes.
void RecordFile::readBlock(std::int64_t place) const {
    const auto record = static_cast<std::size_t>(recordLength_);
    block_.resize(std::max(record, blockLength));
    blockPlace_ = place;
    std::size_t done = 0;
    while (done < record) {
        const ssize_t got = ::pread(descriptor_, block_.data() + done, block_.size() - done,
                                    static_cast<off_t>(place + static_cast<std::int64_t>(done)));
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            const int error = errno;
            block_.clear();
            if (got < 0) {
                fail(error);
            }
            return;
        }
        done += static_cast<std::size_t>(got);
    }
    block_.resize(done);
}

AppendFile::AppendFile(Files &files, const Texte &path) : files_(files) {
    const bool there = files.exists(path);
    descriptor_ = openOrFail(files.resolve(path), O_WRONLY | O_CREAT | O_APPEND);
    if (!there) {
        files.stamp(descriptor_);
    }
}

AppendFile::~AppendFile() { ::close(descriptor_); }

void AppendFile::write(const std::string &bytes) {
    writeAll(descriptor_, bytes.data(), bytes.size());
    files_.stamp(descriptor_);
}

void AppendFile::flush() {
    if (::fsync(descriptor_) != 0) {
        fail(errno);
    }
}

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
    const std::string content = readAll(source);
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

std::string Files::read(const Texte &path) {
    const Descriptor file(openOrFail(resolve(path), O_RDONLY));
    return readAll(file);
}

void Files::replace(const Texte &path, const std::string &bytes) {
    const std::string name = resolve(path);
    const auto [descriptor, fresh] = openFresh(name);
    try {
        const Descriptor file(descriptor);
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

void Files::flushFolder(const Texte &folder) {
    const Descriptor opened(::open(resolve(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened < 0 || ::fsync(opened) != 0) {
        fail(errno);
    }
}

} // namespace grimoval
