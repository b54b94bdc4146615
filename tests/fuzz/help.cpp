// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/aide/page.h"

#include "fuzz/targets.h"

#include <algorithm>
#include <vector>

namespace grimoval::fuzz {

namespace {

std::string_view upTo(std::string_view &text, char mark) {
    const std::size_t end = text.find(mark);
    law(end != std::string_view::npos, "what is begun has an end");
    const std::string_view result = text.substr(0, end);
    text.remove_prefix(end + 1);
    return result;
}

void attribute(const HelpFile &file, std::string_view name, std::string_view value) {
    constexpr std::string_view own = "aide:/";
    law(value.find('<') == std::string_view::npos, "a value begins no tag");
    if (name == "href" || name == "src") {
        law(value.starts_with(own), "an address is of the help file");
        const std::string there(value.substr(own.size()));
        law(name == "href" ? file.pages.contains(there) : file.images.contains(there),
            "an address leads to what is there");
    } else if (name == "style") {
        law(value == "vertical-align: middle", "a style is the one that there is");
    } else if (name == "border" || name == "cellspacing" || name == "cellpadding") {
        law(value.size() == 1 && value[0] >= '0' && value[0] <= '9', "a measure is small");
    } else {
        law(name == "alt" || name == "align" || name == "valign", "an attribute is a known one");
    }
}

// What the toolkit is given, read by its own form.
void page(const HelpFile &file, std::string_view html) {
    static const std::vector<std::string_view> known = {
        "a",  "b", "br",  "code",   "em",    "h1", "h2", "i",  "img", "li",
        "ol", "p", "pre", "strong", "table", "td", "th", "tr", "ul"};
    std::vector<std::string_view> open;
    std::size_t tags = 0;
    for (std::size_t next; (next = html.find('<')) != std::string_view::npos;) {
        html.remove_prefix(next + 1);
        std::string_view tag = upTo(html, '>');
        if (tag.starts_with('/')) {
            law(!open.empty() && open.back() == tag.substr(1), "tags are closed in order");
            open.pop_back();
            continue;
        }
        const std::string_view name = tag.substr(0, tag.find(' '));
        law(std::find(known.begin(), known.end(), name) != known.end(), "a tag is a known one");
        law(name != "table" || std::find(open.begin(), open.end(), name) == open.end(),
            "no table stands in another");
        for (tag.remove_prefix(name.size()); !tag.empty();) {
            law(tag.front() == ' ', "a blank stands between attributes");
            tag.remove_prefix(1);
            const std::string_view key = upTo(tag, '=');
            upTo(tag, '"');
            attribute(file, key, upTo(tag, '"'));
        }
        if (name != "br" && name != "img") {
            open.push_back(name);
        }
        law(open.size() <= deepestTag, "tags are nested so deep at most");
        law(++tags <= mostTags, "there are so many tags at most");
    }
    law(open.empty(), "each tag is closed");
}

// Chunks: a length in four bytes, a kind in four, what it holds, a sum in four.
void picture(std::string_view plain) {
    std::string_view kind;
    for (plain.remove_prefix(8); !plain.empty();) {
        std::size_t length = 0;
        for (const char c : plain.substr(0, 4)) {
            length = length << 8 | static_cast<unsigned char>(c);
        }
        kind = plain.substr(4, 4);
        law(kind == "IHDR" || kind == "PLTE" || kind == "tRNS" || kind == "IDAT" || kind == "IEND",
            "a picture is its pixels alone");
        plain.remove_prefix(length + 12);
    }
    law(kind == "IEND", "a picture is whole");
}

} // namespace

// A file that is taken is the one that its parts make.
void help(std::string_view bytes) {
    const auto file = HelpFile::parse(bytes);
    if (!file) {
        return;
    }
    std::size_t length = std::string_view("GRIMHLP 1\nEND\n").size();
    const auto part = [&](std::string_view kind, const std::string &name, const std::string &rest,
                          const std::string &content) {
        const std::string whole = std::string(kind) + name + " ";
        law(bytes.find("\n" + whole) != std::string_view::npos, "a part is in the file");
        law(name.find_first_of("/\\: ") == std::string::npos && name != "." && name != "..",
            "a name is no path");
        law(bytes.find(content) != std::string_view::npos, "what it holds is in the file");
        length += whole.size() + rest.size() + content.size() + 2;
    };
    law(!file->pages.empty(), "there is a page");
    for (const auto &[name, page] : file->pages) {
        part("PAGE ", name, page.title, page.html);
        law(file->pageFor(name) == name && file->pageFor(name + ".html") == name,
            "a page is found by its name");
        law(page.html.size() <= HelpFile::largestPage, "a page is no larger than allowed");
        fuzz::page(*file, plainPage(*file, page.html));
    }
    for (const auto &[name, image] : file->images) {
        part("IMAGE ", name, "", image);
        law(file->pageFor(name).empty(), "a picture is no page");
        const auto plain = plainPicture(image);
        law(!plain || (plain->size() <= image.size() && plainPicture(*plain) == plain),
            "a picture loses nothing twice");
        if (plain) {
            picture(*plain);
        }
    }
    law(length <= bytes.size(), "nothing is told twice");
}

} // namespace grimoval::fuzz
