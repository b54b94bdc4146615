// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/profile.h"

#include <algorithm>
#include <optional>

namespace grimoval {

namespace {

// Bytes; a settings file of a few lines and many notes is far smaller. A larger one is none: it
// reads as nothing, and nothing is written to it.
constexpr std::size_t largestProfile = 1u << 20;

constexpr std::size_t none = std::string_view::npos;

std::string_view stripped(std::string_view text) {
    static constexpr std::string_view space = " \t\r";
    const auto first = text.find_first_not_of(space);
    return first == none ? std::string_view()
                         : text.substr(first, text.find_last_not_of(space) - first + 1);
}

// As names are compared, without regard to case.
Texte nameOf(std::string_view text) { return upper(fromAnsi(stripped(text))); }
Texte nameOf(std::u16string_view text) { return nameOf(toAnsi(text)); }

// Of a line without its end, the name of the section that it opens.
std::optional<Texte> sectionOf(std::string_view line) {
    const std::string_view text = stripped(line);
    if (text.empty() || text.front() != '[') {
        return {};
    }
    return nameOf(text.substr(1, text.find(']') - 1));
}

// Where a key stands in the bytes of a file.
struct Found {
    std::size_t line = none, lineEnd = none; // of the key, without the end of the line
    std::string_view value;
    std::size_t afterSection = none; // behind its last line that is not blank, or its head
};

Found find(std::string_view content, const Texte &section, const Texte &key) {
    const Texte wantedSection = nameOf(section), wantedKey = nameOf(key);
    Found found;
    bool inside = false;
    for (std::size_t start = 0, next = 0; start < content.size(); start = next) {
        const std::size_t feed = std::min(content.find('\n', start), content.size());
        next = std::min(feed + 1, content.size());
        const bool pair = feed < content.size() && feed > start && content[feed - 1] == '\r';
        const std::string_view line = content.substr(start, feed - start - (pair ? 1 : 0));
        if (const auto name = sectionOf(line)) {
            if (inside) {
                break; // the first section of the name is the section
            }
            inside = *name == wantedSection;
            found.afterSection = inside ? next : none;
            continue;
        }
        if (!inside) {
            continue;
        }
        if (!stripped(line).empty()) {
            found.afterSection = next;
        }
        const std::size_t equals = line.find('=');
        const std::string_view name = stripped(line.substr(0, std::min(equals, line.size())));
        if (found.line == none && equals != none && !name.empty() && name.front() != ';' &&
            nameOf(name) == wantedKey) {
            found.line = start;
            found.lineEnd = start + line.size();
            found.value = stripped(line.substr(equals + 1));
        }
    }
    return found;
}

// With one entry more or another.
std::string with(std::string content, const Texte &section, const Texte &key, const Texte &value) {
    const std::string entry = toAnsi(key + u"=" + value);
    const Found found = find(content, section, key);
    if (found.line != none) {
        return content.replace(found.line, found.lineEnd - found.line, entry);
    }
    const std::size_t place = std::min(found.afterSection, content.size());
    std::string added = place > 0 && content[place - 1] != '\n' ? "\r\n" : "";
    if (found.afterSection == none) {
        added += toAnsi(u"[" + section + u"]") + "\r\n";
    }
    return content.insert(place, added + entry + "\r\n");
}

} // namespace

Texte readProfile(Files &files, const Texte &path, const Texte &section, const Texte &key) {
    try {
        const std::string content = files.read(path, largestProfile);
        return fromAnsi(find(content, section, key).value);
    } catch (const Failure &) {
        return {};
    }
}

void writeProfile(Files &files, const Texte &path, const Texte &section, const Texte &key,
                  const Texte &value) {
    try {
        const bool there = files.exists(path);
        const std::string before = there ? files.read(path, largestProfile) : std::string();
        const std::string content = with(before, section, key, value);
        if (!there || content != before) { // to be sure of the disk takes its time
            files.rewrite(path, content);
        }
    } catch (const Failure &) {
        return;
    }
}

} // namespace grimoval
