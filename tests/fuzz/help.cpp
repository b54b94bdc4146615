// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/aide/helpfile.h"

#include "fuzz/targets.h"

namespace grimoval::fuzz {

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
        law(page.html.size() <= HelpFile::largestPart, "a part is no larger than allowed");
    }
    for (const auto &[name, image] : file->images) {
        part("IMAGE ", name, "", image);
        law(file->pageFor(name).empty(), "a picture is no page");
    }
    law(length <= bytes.size(), "nothing is told twice");
}

} // namespace grimoval::fuzz
