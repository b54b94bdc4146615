// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/aide/page.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace grimoval {

namespace {

constexpr std::string_view known[] = {"a",  "b",  "code", "em",  "h1",     "h2",    "i",
                                      "li", "ol", "p",    "pre", "strong", "table", "td",
                                      "th", "tr", "ul",   "br",  "img"};
constexpr std::string_view alone[] = {"br", "img"};                 // have no end
constexpr std::string_view unseen[] = {"title", "style", "script"}; // nor what stands in them

template <std::size_t count>
bool among(const std::string_view (&all)[count], std::string_view name) {
    return std::find(std::begin(all), std::end(all), name) != std::end(all);
}

bool isBlank(char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; }

char small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// What stands between '<' and '>'.
class Tag {
public:
    explicit Tag(std::string_view inside) {
        closes = inside.starts_with('/');
        inside.remove_prefix(closes ? 1 : 0);
        const auto end = std::find_if(inside.begin(), inside.end(),
                                      [](char c) { return isBlank(c) || c == '/'; });
        name.assign(inside.begin(), end);
        std::transform(name.begin(), name.end(), name.begin(), small);
        rest_ = inside.substr(name.size());
    }

    // Of NAME="value"; empty if there is none.
    std::string_view value(std::string_view attribute) const {
        const std::string wanted = " " + std::string(attribute) + "=\"";
        const std::size_t start = rest_.find(wanted);
        if (start == std::string_view::npos) {
            return {};
        }
        const std::string_view result = rest_.substr(start + wanted.size());
        return result.substr(0, std::min(result.find('"'), result.size()));
    }

    std::string name;
    bool closes;

private:
    std::string_view rest_;
};

// A reference to a character, "&amp;" or "&#233;"; empty if none begins here.
std::string_view reference(std::string_view text) {
    constexpr std::size_t longest = 10;
    const std::size_t end = text.substr(0, longest).find(';');
    if (end == std::string_view::npos || end < 2) {
        return {};
    }
    const bool number = text[1] == '#';
    const std::string_view inside = text.substr(number ? 2 : 1, end - (number ? 2 : 1));
    const bool good =
        !inside.empty() && std::all_of(inside.begin(), inside.end(), [number](char c) {
            return number ? isDigit(c) : (small(c) >= 'a' && small(c) <= 'z');
        });
    return good ? text.substr(0, end + 1) : std::string_view();
}

class Page {
public:
    explicit Page(const HelpFile &help) : help_(help) {}

    std::string made(std::string_view html) {
        while (!html.empty()) {
            if (html.front() != '<') {
                const std::size_t end = std::min(html.find('<'), html.size());
                text(html.substr(0, end));
                html.remove_prefix(end);
            } else if (html.starts_with("<!--")) {
                skip(html, "-->");
            } else {
                const std::size_t end = html.find('>');
                if (end == std::string_view::npos) {
                    break;
                }
                const Tag tag(html.substr(1, end - 1));
                html.remove_prefix(end + 1);
                if (among(unseen, tag.name) && !tag.closes) {
                    skip(html, "</" + tag.name);
                    skip(html, ">");
                } else if (among(known, tag.name)) {
                    tag.closes ? close(tag.name) : open(tag);
                }
            }
        }
        while (!open_.empty()) {
            close(open_.back());
        }
        return result_;
    }

private:
    static void skip(std::string_view &html, std::string_view mark) {
        const std::size_t end = html.find(mark);
        html.remove_prefix(end == std::string_view::npos ? html.size() : end + mark.size());
    }

    void text(std::string_view text) {
        while (!text.empty()) {
            const char c = text.front();
            std::size_t taken = 1;
            if (c == '&') {
                const std::string_view same = reference(text);
                result_ += same.empty() ? std::string_view("&amp;") : same;
                taken = std::max<std::size_t>(1, same.size());
            } else if (c == '<' || c == '>') {
                result_ += c == '<' ? "&lt;" : "&gt;";
            } else if (static_cast<unsigned char>(c) >= ' ' || isBlank(c)) {
                result_ += c;
            }
            text.remove_prefix(taken);
        }
    }

    bool within(std::string_view name) const {
        return std::find(open_.begin(), open_.end(), name) != open_.end();
    }

    // Rows in a table, cells in a row, entries in a list; anything else anywhere, but no table in
    // another: the time to lay those out doubles with each.
    bool fits(std::string_view name) const {
        const std::string_view around = open_.empty() ? std::string_view() : open_.back();
        if (name == "tr") {
            return around == "table";
        }
        if (name == "td" || name == "th") {
            return around == "tr";
        }
        if (name == "li") {
            return around == "ul" || around == "ol";
        }
        return name != "table" || !within(name);
    }

    void open(const Tag &tag) {
        if (tags_ == mostTags || !fits(tag.name)) {
            return;
        }
        if (among(alone, tag.name)) {
            tag.name == "img" ? picture(tag) : put("<br>");
            return;
        }
        if (open_.size() < deepestTag) {
            open_.push_back(tag.name);
            put("<" + tag.name + attributes(tag) + ">");
        }
    }

    // Closes what was opened in it, too. What was never opened has no end.
    void close(const std::string &name) {
        if (!within(name)) {
            return;
        }
        for (bool last = false; !last; open_.pop_back()) {
            last = open_.back() == name;
            result_ += "</" + open_.back() + ">";
        }
    }

    void put(const std::string &tag) {
        ++tags_;
        result_ += tag;
    }

    void picture(const Tag &tag) {
        const std::string name(tag.value("src"));
        if (help_.images.contains(name)) {
            const bool middle = tag.value("style") == "vertical-align: middle";
            put("<img src=\"aide:/" + name + "\"" +
                (middle ? " style=\"vertical-align: middle\"" : "") + " alt=\"");
            text(tag.value("alt"));
            result_ += "\">";
        } else {
            text(tag.value("alt"));
        }
    }

    std::string attributes(const Tag &tag) const {
        std::string result;
        if (tag.name == "a") {
            const std::string_view link = tag.value("href");
            const std::string page = help_.pageFor(link.substr(0, link.find('#')));
            return page.empty() ? "" : " href=\"aide:/" + page + "\"";
        }
        const auto pass = [&](std::string_view name, const auto &good) {
            const std::string_view value = tag.value(name);
            if (good(value)) {
                result += " " + std::string(name) + "=\"" + std::string(value) + "\"";
            }
        };
        if (tag.name == "table") {
            const auto figure = [](std::string_view value) {
                return value.size() == 1 && isDigit(value.front());
            };
            pass("border", figure);
            pass("cellspacing", figure);
            pass("cellpadding", figure);
        } else if (tag.name == "td" || tag.name == "th") {
            pass("align", [](auto value) { return value == "left" || value == "center"; });
            pass("valign", [](auto value) { return value == "top" || value == "middle"; });
        }
        return result;
    }

    const HelpFile &help_;
    std::string result_;
    std::vector<std::string> open_;
    std::size_t tags_ = 0;
};

std::uint32_t number(std::string_view bytes) {
    std::uint32_t value = 0;
    for (const char c : bytes.substr(0, 4)) {
        value = value << 8 | static_cast<unsigned char>(c);
    }
    return value;
}

} // namespace

std::string plainPage(const HelpFile &help, std::string_view html) { return Page(help).made(html); }

std::optional<std::string> plainPicture(std::string_view png) {
    constexpr std::string_view sign = "\x89PNG\r\n\x1A\n";
    constexpr std::uint32_t widest = 1024;
    constexpr std::size_t around = 12; // bytes of a chunk besides what it holds
    if (!png.starts_with(sign)) {
        return std::nullopt;
    }
    std::string result(sign);
    png.remove_prefix(sign.size());
    for (bool first = true;; first = false) {
        const std::uint32_t length = number(png);
        if (png.size() < around || length > png.size() - around) {
            return std::nullopt;
        }
        const std::string_view kind = png.substr(4, 4), chunk = png.substr(0, around + length);
        if (first) {
            const std::uint32_t width = number(chunk.substr(8)), height = number(chunk.substr(12));
            if (kind != "IHDR" || length != 13 || width < 1 || width > widest || height < 1 ||
                height > widest) {
                return std::nullopt;
            }
        }
        if (kind == "IHDR" || kind == "PLTE" || kind == "tRNS" || kind == "IDAT" ||
            kind == "IEND") {
            result += chunk;
        }
        if (kind == "IEND") {
            return result;
        }
        png.remove_prefix(chunk.size());
    }
}

} // namespace grimoval
