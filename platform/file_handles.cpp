// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/file_calls.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace grimoval {

using namespace calls;

namespace {
constexpr std::size_t blockLength = 16384; // bytes
} // namespace

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

RecordFile::RecordFile(int descriptor, int recordLength, std::string content)
    : descriptor_(descriptor), recordLength_(recordLength), block_(std::move(content)) {}

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

WorkFile::WorkFile(Files &files, const Texte &path) : files_(files) {
    const std::string name = files.resolve(path);
    opened_ = openNew(name, name);
}

WorkFile::~WorkFile() { ::close(opened_.first); }

void WorkFile::write(const std::string &bytes) {
    writeAll(opened_.first, bytes.data(), bytes.size());
    files_.stamp(opened_.first);
    if (::fsync(opened_.first) != 0) {
        fail(errno);
    }
    written_ = bytes;
}

RecordFile WorkFile::records(int recordLength) const {
    const int descriptor = ::fcntl(opened_.first, F_DUPFD_CLOEXEC, 0);
    if (descriptor < 0) {
        fail(errno);
    }
    return {descriptor, recordLength, written_};
}

void WorkFile::remove() {
    struct stat own {};
    struct stat there {};
    if (::lstat(opened_.second.c_str(), &there) == 0 && ::fstat(opened_.first, &own) == 0 &&
        isSameFile(own, there) && ::unlink(opened_.second.c_str()) != 0 && errno != ENOENT) {
        fail(errno);
    }
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

} // namespace grimoval
