// SPDX-License-Identifier: GPL-3.0-or-later
// Names on the disk: what a name may be, which file a case-blind one stands for, listings.
#include "platform/files.h"

#include <algorithm>
#include <ctime>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace grimoval {

namespace {

std::int64_t nanoseconds(const timespec &time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

std::int64_t nanosecondsNow() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return nanoseconds(now);
}

// Failure 52 for what no system takes as a path, or what no path reads as.
std::string pathBytes(const Texte &path) {
    std::string bytes = toPath(path);
    if (path.empty() || fromPath(bytes) != path ||
        std::any_of(path.begin(), path.end(), [](char16_t c) { return c < 32; })) {
        throw Failure(failure::badFileNameOrNumber);
    }
    return bytes;
}

constexpr char16_t replacement = 0xFFFD;

} // namespace

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

std::vector<Texte> Files::list(const Texte &folder, const Texte &pattern) {
    const std::string name = resolve(asFolder(folder));
    const std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir(name.c_str()), ::closedir);
    std::vector<std::pair<Texte, Texte>> found; // capitals, name
    if (directory) {
        while (const dirent *entry = ::readdir(directory.get())) {
            Texte text = fromPath(entry->d_name);
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
                kept.names.try_emplace(upper(fromPath(entry->d_name)), entry->d_name);
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
            const Texte capitals = upper(fromPath(component));
            for (const bool sure : {false, true}) {
                if (capitals.find(replacement) != Texte::npos) {
                    break; // it stands for a character that was lost: any name might be meant
                }
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
