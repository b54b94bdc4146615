// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/conditions.h"

#include "support/failures.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/mount.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace grimoval::test {

namespace {

void require(bool done, const char *what) {
    if (!done) {
        throw std::system_error(errno, std::generic_category(), what);
    }
}

constexpr uid_t nobody = 65534;

} // namespace

OrdinaryUser::OrdinaryUser() : before_(::geteuid()) {
    if (before_ == 0) {
        require(::seteuid(nobody) == 0, "seteuid");
    }
}

OrdinaryUser::~OrdinaryUser() {
    if (before_ == 0 && ::seteuid(before_) != 0) {
        ::abort(); // every later test would run under the wrong user
    }
}

FileSizeLimit::FileSizeLimit(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    require(::getrlimit(RLIMIT_FSIZE, &before_) == 0, "getrlimit");
    const rlimit limit{bytes, before_.rlim_max};
    require(::setrlimit(RLIMIT_FSIZE, &limit) == 0, "setrlimit");
}

FileSizeLimit::~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
}

NoMoreDescriptors::NoMoreDescriptors() {
    // The sanitizer examines the first failure that it sees through a pipe: not under the limit.
    failureNumber([] { throw Failure(failure::tooManyFiles); });
    require(::getrlimit(RLIMIT_NOFILE, &before_) == 0, "getrlimit");
    const int next = ::open("/", O_RDONLY | O_CLOEXEC);
    require(next >= 0, "open");
    ::close(next);
    const rlimit limit{static_cast<rlim_t>(next), before_.rlim_max};
    require(::setrlimit(RLIMIT_NOFILE, &limit) == 0, "setrlimit");
}

NoMoreDescriptors::~NoMoreDescriptors() { ::setrlimit(RLIMIT_NOFILE, &before_); }

SmallDisk::SmallDisk(std::string folder, const char *size)
    : folder_(std::move(folder)),
      there_(::mount("tmpfs", folder_.c_str(), "tmpfs", 0,
                     (std::string("mode=0755,size=") + size).c_str()) == 0) {}

SmallDisk::~SmallDisk() {
    if (there_) {
        ::umount2(folder_.c_str(), MNT_DETACH);
    }
}

bool SmallDisk::makeReadOnly() {
    return there_ &&
           ::mount("tmpfs", folder_.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

ParisTime::ParisTime() {
    const char *zone = ::getenv("TZ");
    wasSet_ = zone != nullptr;
    before_ = wasSet_ ? zone : "";
    ::setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
    ::tzset();
}

ParisTime::~ParisTime() {
    if (wasSet_) {
        ::setenv("TZ", before_.c_str(), 1);
    } else {
        ::unsetenv("TZ");
    }
    ::tzset();
}

Deadline::Deadline(unsigned seconds) { ::alarm(seconds); }

Deadline::~Deadline() { ::alarm(0); }

} // namespace grimoval::test
