// SPDX-License-Identifier: GPL-3.0-or-later
// Adverse conditions of the system, each for as long as its object lives.
#pragma once

#include <string>
#include <sys/resource.h>
#include <sys/types.h>

namespace grimoval::test {

// The administrator, who may write everywhere, becomes an ordinary user; others stay who they are.
class OrdinaryUser {
public:
    OrdinaryUser();
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

private:
    uid_t before_;
};

// No file grows beyond so many bytes; for the program, the disk is full there.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit before_{};
    void (*signal_)(int);
};

// No further file can be opened.
class NoMoreDescriptors {
public:
    NoMoreDescriptors();
    ~NoMoreDescriptors();
    NoMoreDescriptors(const NoMoreDescriptors &) = delete;
    NoMoreDescriptors &operator=(const NoMoreDescriptors &) = delete;

private:
    rlimit before_{};
};

// A small disk of its own in an existing folder, where the system permits that.
class SmallDisk {
public:
    explicit SmallDisk(std::string folder, const char *size = "64k");
    ~SmallDisk();
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool there() const { return there_; }
    bool makeReadOnly();

private:
    std::string folder_;
    bool there_;
};

// Local time is that of Paris.
class ParisTime {
public:
    ParisTime();
    ~ParisTime();
    ParisTime(const ParisTime &) = delete;
    ParisTime &operator=(const ParisTime &) = delete;

private:
    std::string before_;
    bool wasSet_;
};

// Ends the process if the test is not over in so many seconds: it waits for something that never
// comes.
class Deadline {
public:
    explicit Deadline(unsigned seconds);
    ~Deadline();
    Deadline(const Deadline &) = delete;
    Deadline &operator=(const Deadline &) = delete;
};

} // namespace grimoval::test
