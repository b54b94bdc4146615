// SPDX-License-Identifier: GPL-3.0-or-later
// A page of the help as the toolkit may have it. The toolkit's own reader of HTML opens files that
// a page names, and stands still or dies over what is nested or counted without bounds: it is given
// nothing but what is written here.
#pragma once

#include "tools/aide/helpfile.h"

namespace grimoval {

// The bounds of what is passed on: the rest is shown as text, or not at all.
inline constexpr std::size_t deepestTag = 12, mostTags = 2000;

// The page with no more than headings, paragraphs, lists, tables (none in another), emphasis, code,
// pictures of the help file and links to its pages, closed in order; links are "aide:/name".
std::string plainPage(const HelpFile &help, std::string_view html);

// A PNG file with what its pixels need and nothing else. Nothing if it is none, or has more than
// 1024 pixels a side.
std::optional<std::string> plainPicture(std::string_view png);

} // namespace grimoval
