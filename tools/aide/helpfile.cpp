// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/aide/helpfile.h"

#include <algorithm>
#include <charconv>

namespace grimoval {

namespace {

constexpr std::size_t longestHeader = 300;
constexpr std::string_view png = ".png";
constexpr std::string_view html = ".html";

// What is left to read; every step says whether it could be made.
class Source {
public:
    explicit Source(std::string_view bytes) : left_(bytes) {}

    bool line(std::string_view &result) {
        const std::size_t end = left_.substr(0, longestHeader).find('\n');
        if (end == std::string_view::npos) {
            return false;
        }
        result = left_.substr(0, end);
        left_.remove_prefix(end + 1);
        return true;
    }

    bool part(std::size_t length, std::string_view &result) {
        if (length > HelpFile::largestPart || left_.size() <= length || left_[length] != '\n') {
            return false;
        }
        result = left_.substr(0, length);
        left_.remove_prefix(length + 1);
        return true;
    }

    bool atEnd() const { return left_.empty(); }

private:
    std::string_view left_;
};

std::string_view word(std::string_view &line) {
    const std::size_t end = std::min(line.find(' '), line.size());
    const std::string_view result = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return result;
}

bool number(std::string_view text, std::size_t &value) {
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end;
}

bool isName(std::string_view name, bool capitals) {
    const auto fits = [capitals](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
               (capitals && c >= 'A' && c <= 'Z');
    };
    return !name.empty() && name.size() <= 40 && std::all_of(name.begin(), name.end(), fits);
}

bool isPage(std::string_view name) { return isName(name, false); }

bool isPicture(std::string_view name) {
    return name.ends_with(png) && isName(name.substr(0, name.size() - png.size()), true);
}

} // namespace

std::optional<HelpFile> HelpFile::parse(std::string_view bytes) {
    Source source(bytes);
    std::string_view line, part;
    if (bytes.size() > largestFile || !source.line(line) || line != "GRIMHLP 1") {
        return std::nullopt;
    }
    HelpFile result;
    for (std::size_t count = 0; count <= mostParts; ++count) {
        if (!source.line(line)) {
            return std::nullopt;
        }
        if (line == "END") {
            return source.atEnd() && !result.pages.empty() ? std::optional(std::move(result))
                                                           : std::nullopt;
        }
        const std::string_view kind = word(line), name = word(line), size = word(line);
        std::size_t length = 0;
        if (!number(size, length) || !source.part(length, part)) {
            return std::nullopt;
        }
        bool fresh = false;
        if (kind == "PAGE" && isPage(name) && length <= largestPage) {
            fresh =
                result.pages
                    .try_emplace(std::string(name), HelpPage{std::string(line), std::string(part)})
                    .second;
        } else if (kind == "IMAGE" && isPicture(name)) {
            fresh = result.images.try_emplace(std::string(name), part).second;
        }
        if (!fresh) { // also a name that comes twice
            return std::nullopt;
        }
    }
    return std::nullopt;
}

std::string HelpFile::pageFor(std::string_view keyword) const {
    std::string name(keyword.substr(0, 60));
    std::transform(name.begin(), name.end(), name.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    if (name.ends_with(html)) {
        name.resize(name.size() - html.size());
    }
    return pages.contains(name) ? name : std::string();
}

} // namespace grimoval
