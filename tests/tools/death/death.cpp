// SPDX-License-Identifier: GPL-3.0-or-later
// For tests: of the calls with which a program changes files, one ends the process or fails.
//
// GRIM_MORT_A   the number of the call, from 1
// GRIM_MORT     "mort": it ends the process, a write when half of its bytes are written, any other
//               call before anything is done; "panne": it fails, the disk being full
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

template <class Function>
Function *real(const char *name) {
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

enum class Way { pass, die, fail };

// Which way the call that begins now goes.
Way way() {
    static const char *const number = std::getenv("GRIM_MORT_A");
    static const char *const kind = std::getenv("GRIM_MORT");
    static int calls = 0;
    if (number == nullptr || kind == nullptr || ++calls != std::atoi(number)) {
        return Way::pass;
    }
    return std::strcmp(kind, "mort") == 0 ? Way::die : Way::fail;
}

[[noreturn]] void die() {
    ::kill(::getpid(), SIGKILL);
    for (;;) {
        ::pause();
    }
}

int noRoom() {
    errno = ENOSPC;
    return -1;
}

template <class Call>
int pass(Call call) {
    switch (way()) {
    case Way::die:
        die();
    case Way::fail:
        return noRoom();
    default:
        return call();
    }
}

int openCounted(const char *name, const char *path, int flags, mode_t mode) {
    const auto opened = [&] { return real<int(const char *, int, ...)>(name)(path, flags, mode); };
    return (flags & O_CREAT) != 0 ? pass(opened) : opened();
}

} // namespace

extern "C" {

int open(const char *path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return openCounted("open", path, flags, mode);
}

int open64(const char *path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return openCounted("open64", path, flags, mode);
}

ssize_t write(int descriptor, const void *bytes, size_t size) {
    const auto written = [&](size_t part) {
        return real<ssize_t(int, const void *, size_t)>("write")(descriptor, bytes, part);
    };
    if (descriptor <= 2) {
        return written(size);
    }
    switch (way()) {
    case Way::die:
        written(size / 2);
        die();
    case Way::fail:
        return noRoom();
    default:
        return written(size);
    }
}

int fsync(int descriptor) {
    return pass([&] { return real<int(int)>("fsync")(descriptor); });
}

int rename(const char *from, const char *to) noexcept {
    return pass([&] { return real<int(const char *, const char *)>("rename")(from, to); });
}

int unlink(const char *path) noexcept {
    return pass([&] { return real<int(const char *)>("unlink")(path); });
}

int mkdir(const char *path, mode_t mode) noexcept {
    return pass([&] { return real<int(const char *, mode_t)>("mkdir")(path, mode); });
}

} // extern "C"
