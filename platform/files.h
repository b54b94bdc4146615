// SPDX-License-Identifier: GPL-3.0-or-later
// Files as the program knows them: records of a fixed length, whole files, folders. Every failure
// is thrown with its classic number. Names are case-blind: where no file of the exact name exists,
// one that differs by case alone is meant, as the installed files come from a case-blind system.
#pragma once

#include "platform/failure.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
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
    friend class WorkFile;
    RecordFile(int descriptor, int recordLength, std::string content);
    void readBlock(std::int64_t place) const;

    int descriptor_;
    int recordLength_;
    mutable std::string block_; // the bytes from a place on: records are mostly read in order
    mutable std::int64_t blockPlace_ = 0;
};

// A file for a work in hand. It is new and empty: where one of its name is there, which another
// game may be using, it takes a name of its own beside it. Closed when it goes.
class WorkFile {
public:
    WorkFile(Files &files, const Texte &path);
    ~WorkFile();
    WorkFile(const WorkFile &) = delete;
    WorkFile &operator=(const WorkFile &) = delete;

    void write(const std::string &bytes); // once, the whole; on the disk when it returns
    // What has been written, also if another removes the file meanwhile.
    RecordFile records(int recordLength) const;
    // One that another has removed, or has put in its place, is left alone.
    void remove();

private:
    Files &files_;
    std::pair<int, std::string> opened_; // the descriptor and the path
    std::string written_;
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
    // Bytes. Nothing that is read whole comes near this size; a larger file is not one of ours.
    static constexpr std::size_t largestFile = 64u << 20;

    bool exists(const Texte &path);
    bool folderExists(const Texte &path);
    void makeFolder(const Texte &path);     // one level
    std::int64_t length(const Texte &path); // bytes
    DateTime lastWrite(const Texte &path);  // local time
    void remove(const Texte &path);
    void copy(const Texte &from, const Texte &to); // replaces; on the disk when it returns
    void move(const Texte &from, const Texte &to); // in one folder, at one stroke; replaces
    // The same, but false where a file of the new name is there; both stay then.
    bool moveToFreeName(const Texte &from, const Texte &to);
    // The whole file; failure 7 for one of more bytes.
    std::string read(const Texte &path, std::size_t most = largestFile);
    // Puts a whole new content in the place of a file, or leaves the old one whole. A link gives
    // way.
    void replace(const Texte &path, const std::string &bytes);
    // The same for a file that a person may have arranged: it keeps its permissions, failure 70
    // where they do not permit writing, and a link is followed.
    void rewrite(const Texte &path, const std::string &bytes);
    // Removes what killed games have left under names of their own beside the files of a folder
    // that fit a pattern. What is younger than an hour may be in use.
    void removeLeftOver(const Texte &folder, const Texte &pattern);
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

    void replaceAt(const std::string &name, const std::string &bytes,
                   std::optional<unsigned> permissions);
};

// '*' and '?', case-blind.
bool matches(std::u16string_view name, std::u16string_view pattern);

} // namespace grimoval
