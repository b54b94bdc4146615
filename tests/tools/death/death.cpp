// SPDX-License-Identifier: GPL-3.0-or-later
// For tests: of the calls with which a program changes files, one ends the process or goes wrong.
//
// GRIM_MORT_A   the number of the call, from 1; 0 is every one
// GRIM_MORT     "mort": it ends the process, a write when half of its bytes are written, any other
//               call before anything is done; "panne", "quota", "disque": it fails, the disk being
//               full, the user's share used up, the disk broken; "court": a write writes half of
//               its bytes; "lent": it comes late; "plein": it and every call after it fail, the
//               disk being full; "lecture": of readings at a place, which count for this alone, one
//               fails, the disk being broken
// GRIM_MORT_SOUS  of files alone whose names begin like this; of all, if it is not there
// GRIM_MORT_SIGNE  a file: as long as it is missing, no call is counted
//
// And without a number: "fil": threads of the C++ library cannot start, with GRIM_MORT_SIGNE as
// above.
//
// GRIM_MORT_RESEAU  if it is there, no call gives a name only where it is free, as on the shared
//               folders of a network
//
// What fails is told on the standard error: the call and the file.
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

template <class Function>
Function *real(const char *name) {
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

struct Kind {
    const char *name;
    enum Way { pass, die, fail, half, late } way;
    int error;
};

std::string pathOf(const char *path) { return path; }

std::string pathOf(int descriptor) {
    char link[32], path[4096];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    const ssize_t length = ::readlink(link, path, sizeof path);
    return std::string(path, static_cast<std::size_t>(length < 0 ? 0 : length));
}

bool counts(const std::string &path) {
    static const char *const below = std::getenv("GRIM_MORT_SOUS");
    static const char *const sign = std::getenv("GRIM_MORT_SIGNE");
    return (below == nullptr || path.starts_with(below)) &&
           (sign == nullptr || ::access(sign, F_OK) == 0);
}

// What befalls the call that begins now.
const Kind &fate(const std::string &path) {
    static constexpr Kind none{"", Kind::pass, 0};
    static constexpr Kind kinds[] = {{"mort", Kind::die, 0},        {"panne", Kind::fail, ENOSPC},
                                     {"quota", Kind::fail, EDQUOT}, {"disque", Kind::fail, EIO},
                                     {"court", Kind::half, 0},      {"lent", Kind::late, 0},
                                     {"plein", Kind::fail, ENOSPC}, {"lecture", Kind::fail, EIO}};
    static const char *const number = std::getenv("GRIM_MORT_A");
    static const char *const name = std::getenv("GRIM_MORT");
    static int calls = 0;
    if (number == nullptr || name == nullptr || !counts(path)) {
        return none;
    }
    ++calls;
    const int chosen = std::atoi(number);
    const bool later = calls > chosen && std::strcmp(name, "plein") == 0;
    if (chosen != 0 && chosen != calls && !later) {
        return none;
    }
    for (const Kind &kind : kinds) {
        if (std::strcmp(kind.name, name) == 0) {
            return kind;
        }
    }
    return none;
}

[[noreturn]] void die() {
    ::kill(::getpid(), SIGKILL);
    for (;;) {
        ::pause();
    }
}

int fail(const Kind &kind, const char *call, const std::string &path) {
    std::fprintf(stderr, "%s %s\n", call, path.c_str());
    errno = kind.error;
    return -1;
}

void wait() { ::usleep(2000); }

// `Place` is the path or the descriptor of the file.
template <class Place, class Action>
int pass(const char *call, Place place, Action action) {
    const std::string path = pathOf(place);
    const Kind &kind = fate(path);
    switch (kind.way) {
    case Kind::die:
        die();
    case Kind::fail:
        return fail(kind, call, path);
    case Kind::late:
        wait();
        return action();
    default:
        return action();
    }
}

int openCounted(const char *name, const char *path, int flags, mode_t mode) {
    const auto opened = [&] { return real<int(const char *, int, ...)>(name)(path, flags, mode); };
    return (flags & O_CREAT) != 0 ? pass("open", path, opened) : opened();
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
    const std::string path = pathOf(descriptor);
    const Kind &kind = fate(path);
    switch (kind.way) {
    case Kind::die:
        written(size / 2);
        die();
    case Kind::fail:
        return fail(kind, "write", path);
    case Kind::half:
        return written(size - size / 2);
    case Kind::late:
        wait();
        return written(size);
    default:
        return written(size);
    }
}

ssize_t pread(int descriptor, void *bytes, size_t size, off_t place) {
    static const char *const way = std::getenv("GRIM_MORT");
    if (way != nullptr && std::strcmp(way, "lecture") == 0) {
        const std::string path = pathOf(descriptor);
        if (const Kind &kind = fate(path); kind.way == Kind::fail) {
            return fail(kind, "pread", path);
        }
    }
    return real<ssize_t(int, void *, size_t, off_t)>("pread")(descriptor, bytes, size, place);
}

int fsync(int descriptor) {
    return pass("fsync", descriptor, [&] { return real<int(int)>("fsync")(descriptor); });
}

int futimens(int descriptor, const timespec times[2]) noexcept {
    return pass("futimens", descriptor,
                [&] { return real<int(int, const timespec *)>("futimens")(descriptor, times); });
}

int rename(const char *from, const char *to) noexcept {
    return pass("rename", from,
                [&] { return real<int(const char *, const char *)>("rename")(from, to); });
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned flags) noexcept {
    if (std::getenv("GRIM_MORT_RESEAU") != nullptr) {
        errno = EINVAL;
        return -1;
    }
    return pass("renameat2", from, [&] {
        return real<int(int, const char *, int, const char *, unsigned)>("renameat2")(
            fromFolder, from, toFolder, to, flags);
    });
}

int link(const char *from, const char *to) noexcept {
    return pass("link", from,
                [&] { return real<int(const char *, const char *)>("link")(from, to); });
}

int unlink(const char *path) noexcept {
    return pass("unlink", path, [&] { return real<int(const char *)>("unlink")(path); });
}

int mkdir(const char *path, mode_t mode) noexcept {
    return pass("mkdir", path,
                [&] { return real<int(const char *, mode_t)>("mkdir")(path, mode); });
}

// Those of Qt and of other libraries start: without them there is no window to look at.
int pthread_create(pthread_t *thread, const pthread_attr_t *attributes, void *(*start)(void *),
                   void *argument) noexcept {
    static const char *const name = std::getenv("GRIM_MORT");
    Dl_info caller{};
    if (name != nullptr && std::strcmp(name, "fil") == 0 && counts("") &&
        ::dladdr(__builtin_return_address(0), &caller) != 0 &&
        std::strstr(caller.dli_fname, "libstdc++") != nullptr) {
        return EAGAIN;
    }
    return real<int(pthread_t *, const pthread_attr_t *, void *(*)(void *), void *)>(
        "pthread_create")(thread, attributes, start, argument);
}

} // extern "C"
