// SPDX-License-Identifier: GPL-3.0-or-later
// Files as the program knows them: records of a fixed length, whole files, folders. Every failure
// is thrown with its classic number. Names are case-blind: where no file of the exact name exists,
// one that differs by case alone is meant, as the installed files come from a case-blind system.
#pragma once

#include "platform/failure.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace grimoval {

// Between folders, and at the end of each folder string.
inline constexpr char16_t separator = u'/';

// With a separator at its end, added if there is none.
Texte asFolder(const Texte &path);

// A moment of local time, to the second.
struct DateTime {
    int year = 1899, month = 12, day = 30, hour = 0, minute = 0, second = 0;
    int secondOfDay() const { return (hour * 60 + minute) * 60 + second; }
    bool operator==(const DateTime &) const = default;
};

// The number of a failed system call.
int failureOf(int systemError);

// The name itself, of a file inside a folder. Failure 64 for a name that could lead elsewhere:
// separators, a drive letter, wildcards, control characters, nothing but dots, nothing at all.
const Texte &insideFolder(const Texte &name);

class Files;

// A file of records of one length, numbered from 1. Closed when it goes.
class RecordFile {
public:
    // Creates a missing file; where writing is not permitted it opens for reading.
    RecordFile(Files &files, const Texte &path, int recordLength);
    ~RecordFile();
    RecordFile(RecordFile &&other) noexcept;
    RecordFile &operator=(RecordFile &&) = delete;
    RecordFile(const RecordFile &) = delete;
    RecordFile &operator=(const RecordFile &) = delete;

    // Whole records; the bytes of a last, incomplete one do not count.
    std::int64_t count() const;
    // Failure 63 for a number below 1, 62 beyond the last whole record.
    std::string read(std::int64_t number) const;

private:
    void readBlock(std::int64_t place) const;

    int descriptor_;
    int recordLength_;
    mutable std::string block_; // the bytes from a place on: records are mostly read in order
    mutable std::int64_t blockPlace_ = 0;
};

// A file that only grows. Creates a missing one. Closed when it goes.
class AppendFile {
public:
    AppendFile(Files &files, const Texte &path);
    ~AppendFile();
    AppendFile(const AppendFile &) = delete;
    AppendFile &operator=(const AppendFile &) = delete;

    void write(const std::string &bytes);
    void flush(); // on the disk when it returns

private:
    Files &files_;
    int descriptor_;
};

class Files {
public:
    bool exists(const Texte &path);
    bool folderExists(const Texte &path);
    void makeFolder(const Texte &path);     // one level
    std::int64_t length(const Texte &path); // bytes
    DateTime lastWrite(const Texte &path);  // local time
    void remove(const Texte &path);
    void copy(const Texte &from, const Texte &to); // replaces; on the disk when it returns
    void move(const Texte &from, const Texte &to); // in one folder, at one stroke; replaces
    std::string read(const Texte &path);           // the whole file
    // Puts a whole new content in the place of a file, or leaves the old one whole.
    void replace(const Texte &path, const std::string &bytes);
    // What was created, renamed or removed in a folder is on the disk when it returns.
    void flushFolder(const Texte &folder);
    // Names of the plain files that fit a pattern ('*' and '?', case-blind), in order of their
    // capitals. Empty for a folder that cannot be read.
    std::vector<Texte> list(const Texte &folder, const Texte &pattern);

    // The path on the disk that a name stands for.
    std::string resolve(const Texte &path);

    // Where it is set, what is created or written bears this time instead of the system's.
    std::function<DateTime()> writeTime;
    void stamp(int descriptor) const;

private:
    // The names of a folder by their capitals, as of a last-write time of the folder.
    struct Listing {
        std::int64_t writtenAt = -1; // nanoseconds
        std::int64_t readAt = 0;
        std::unordered_map<Texte, std::string> names;
    };
    const Listing &listing(const std::string &folder, bool sure);
    std::map<std::string, Listing> listings_;
};

// '*' and '?', case-blind.
bool matches(std::u16string_view name, std::u16string_view pattern);

} // namespace grimoval
