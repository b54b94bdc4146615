// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace grimoval {

namespace {

[[noreturn]] void fail(int systemError) { throw Failure(failureOf(systemError)); }

std::int64_t nanoseconds(const timespec &time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

std::int64_t nanosecondsNow() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return nanoseconds(now);
}

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

// Failure 52 for what no system takes as a path.
std::string pathBytes(const Texte &path) {
    if (path.empty() || std::any_of(path.begin(), path.end(), [](char16_t c) { return c < 32; })) {
        throw Failure(failure::badFileNameOrNumber);
    }
    return toUtf8(path);
}

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

Texte asFolder(const Texte &path) {
    return !path.empty() && path.back() == separator ? path : path + separator;
}

const Texte &insideFolder(const Texte &name) {
    static constexpr std::u16string_view forbidden = u"/\\:*?\"<>|";
    const bool bad = name.find_first_not_of(u'.') == Texte::npos ||
                     std::any_of(name.begin(), name.end(), [](char16_t character) {
                         return character < 32 || character == 127 ||
                                forbidden.find(character) != std::u16string_view::npos;
                     });
    if (bad) {
        throw Failure(failure::badFileName);
    }
    return name;
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
    : descriptor_(other.descriptor_), recordLength_(other.recordLength_) {
    other.descriptor_ = -1;
}

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
    std::string record(static_cast<std::size_t>(recordLength_), '\0');
    std::size_t done = 0;
    while (done < record.size()) {
        const ssize_t got = ::pread(
            descriptor_, record.data() + done, record.size() - done,
            static_cast<off_t>((number - 1) * recordLength_ + static_cast<std::int64_t>(done)));
        if (got < 0) {
            if (errno == EINTR) {
                continue;
            }
            fail(errno);
        }
        if (got == 0) {
            throw Failure(failure::inputPastEnd);
        }
        done += static_cast<std::size_t>(got);
    }
    return record;
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

std::string Files::read(const Texte &path) {
    const Descriptor file(openOrFail(resolve(path), O_RDONLY));
    return readAll(file);
}

void Files::replace(const Texte &path, const std::string &bytes) {
    const std::string name = resolve(path);
    const std::string fresh = name + "~";
    try {
        const Descriptor file(openOrFail(fresh, O_WRONLY | O_CREAT | O_TRUNC));
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

std::vector<Texte> Files::list(const Texte &folder, const Texte &pattern) {
    const std::string name = resolve(asFolder(folder));
    const std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir(name.c_str()), ::closedir);
    std::vector<std::pair<Texte, Texte>> found; // capitals, name
    if (directory) {
        while (const dirent *entry = ::readdir(directory.get())) {
            Texte text = fromUtf8(entry->d_name);
            if (!matches(text, pattern)) {
                continue;
            }
            struct stat status {};
            const bool plain =
                entry->d_type == DT_REG ||
                ((entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN) &&
                 ::fstatat(::dirfd(directory.get()), entry->d_name, &status, 0) == 0 &&
                 S_ISREG(status.st_mode));
            if (plain) {
                found.emplace_back(upper(text), std::move(text));
            }
        }
    }
    std::sort(found.begin(), found.end());
    std::vector<Texte> names;
    names.reserve(found.size());
    for (auto &[capitals, text] : found) {
        names.push_back(std::move(text));
    }
    return names;
}

// A listing that is younger than its folder's last change by less than this may have missed a
// change within one tick of the file system's clock.
constexpr std::int64_t clockTick = 2'000'000'000;

const Files::Listing &Files::listing(const std::string &folder, bool sure) {
    struct stat status {};
    const bool known = ::stat(folder.c_str(), &status) == 0;
    const std::int64_t writtenAt = known ? nanoseconds(status.st_mtim) : -2;
    Listing &kept = listings_[folder];
    const bool fresh = kept.writtenAt == writtenAt;
    if (fresh && (!sure || kept.readAt - writtenAt > clockTick)) {
        return kept;
    }
    kept.names.clear();
    kept.writtenAt = writtenAt;
    kept.readAt = nanosecondsNow();
    const std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir(folder.c_str()), ::closedir);
    if (directory) {
        while (const dirent *entry = ::readdir(directory.get())) {
            auto [place, added] =
                kept.names.try_emplace(upper(fromUtf8(entry->d_name)), entry->d_name);
            if (!added && place->second > entry->d_name) {
                place->second = entry->d_name; // of two names the first in order, on every machine
            }
        }
    }
    return kept;
}

std::string Files::resolve(const Texte &path) {
    const std::string name = pathBytes(path);
    struct stat status {};
    if (::lstat(name.c_str(), &status) == 0) {
        return name;
    }
    // From the first component that is missing under its exact name, look for it case-blind.
    std::string known = name.front() == '/' ? "/" : "";
    std::size_t start = known.size();
    while (start < name.size()) {
        const std::size_t slash = std::min(name.find('/', start), name.size());
        const std::string component = name.substr(start, slash - start);
        std::string exact = known + component;
        if (!component.empty() && ::lstat(exact.c_str(), &status) != 0) {
            const std::string folder = known.empty() ? "." : known;
            const Texte capitals = upper(fromUtf8(component));
            for (const bool sure : {false, true}) {
                const auto &names = listing(folder, sure).names;
                const auto found = names.find(capitals);
                if (found != names.end() &&
                    ::lstat((known + found->second).c_str(), &status) == 0) {
                    exact = known + found->second;
                    break;
                }
            }
        }
        known = exact + (slash < name.size() ? "/" : "");
        start = slash + 1;
    }
    return known;
}

bool matches(std::u16string_view name, std::u16string_view pattern) {
    std::size_t n = 0, p = 0;
    std::size_t starPattern = std::u16string_view::npos, starName = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            starPattern = p++;
            starName = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == u'?' || upper(pattern[p]) == upper(name[n]))) {
            ++p;
            ++n;
        } else if (starPattern != std::u16string_view::npos) {
            p = starPattern + 1;
            n = ++starName;
        } else {
            return false;
        }
    }
    return std::all_of(pattern.begin() + static_cast<std::ptrdiff_t>(p), pattern.end(),
                       [](char16_t character) { return character == u'*'; });
}

} // namespace grimoval
