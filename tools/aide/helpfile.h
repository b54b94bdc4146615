// SPDX-License-Identifier: GPL-3.0-or-later
// The help file: pages and pictures in one file, made by tools/aide.sh.
//
//   GRIMHLP 1
//   PAGE name length title          then so many bytes of HTML in UTF-8, and a line feed
//   IMAGE name length               then so many bytes of a PNG file, and a line feed
//   END
//
// Each header is one line ended by a line feed, its words parted by one blank; the title is the
// rest of its line. A name is of small letters, digits and "_", of at most 40 characters; the
// pictures have their own names, ended by ".png", as the pages write them. A length is in decimal.
// A page leads to another by the name that its source file has, "name.html". The keyword by which a
// page is asked for is its name, whatever the case. Of the HTML no more is shown than what
// tools/aide/page.h passes on.
//
// A file that is not of this form in every point is no help at all: nothing of it is shown.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace grimoval {

struct HelpPage {
    std::string title;
    std::string html;
};

struct HelpFile {
    static constexpr std::size_t largestFile = 16 << 20;
    static constexpr std::size_t largestPart = 1 << 20;
    static constexpr std::size_t largestPage = 64 << 10; // of HTML
    static constexpr std::size_t mostParts = 500;

    std::map<std::string, HelpPage> pages;
    std::map<std::string, std::string> images; // by name, with its ".png"

    // Nothing if the bytes are not a whole and sound help file.
    static std::optional<HelpFile> parse(std::string_view bytes);

    // The name of the page that a keyword or a link means; empty if there is none.
    std::string pageFor(std::string_view keyword) const;
};

} // namespace grimoval
