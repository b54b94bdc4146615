// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/profile.h"

#include <algorithm>
#include <optional>

namespace grimoval {

namespace {

struct Line {
    std::string text;
    std::string end; // "\r\n", "\n" or, at the end of the file, nothing
};

std::vector<Line> splitLines(const std::string &content) {
    std::vector<Line> lines;
    std::size_t start = 0;
    while (start < content.size()) {
        const std::size_t feed = content.find('\n', start);
        if (feed == std::string::npos) {
            lines.push_back({content.substr(start), ""});
            break;
        }
        const bool pair = feed > start && content[feed - 1] == '\r';
        lines.push_back(
            {content.substr(start, feed - start - (pair ? 1 : 0)), pair ? "\r\n" : "\n"});
        start = feed + 1;
    }
    return lines;
}

Texte stripped(std::u16string_view text) {
    static constexpr std::u16string_view space = u" \t\r";
    const auto first = text.find_first_not_of(space);
    if (first == std::u16string_view::npos) {
        return {};
    }
    return Texte(text.substr(first, text.find_last_not_of(space) - first + 1));
}

std::optional<Texte> sectionOf(const Line &line) {
    const Texte text = stripped(fromAnsi(line.text));
    if (text.empty() || text.front() != u'[') {
        return {};
    }
    return upper(stripped(text.substr(1, text.find(u']') - 1)));
}

struct Entry {
    Texte key; // in capitals
    Texte value;
};

std::optional<Entry> entryOf(const Line &line) {
    const Texte text = fromAnsi(line.text);
    const auto equals = text.find(u'=');
    const Texte key = stripped(text.substr(0, equals));
    if (equals == Texte::npos || key.empty() || key.front() == u';') {
        return {};
    }
    return Entry{upper(key), stripped(text.substr(equals + 1))};
}

struct Found {
    std::optional<std::size_t> line; // of the key
    Texte value;
    std::optional<std::size_t> lastOfSection; // its last line that is not blank
};

Found find(const std::vector<Line> &lines, const Texte &section, const Texte &key) {
    Found found;
    bool inside = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (const auto name = sectionOf(lines[i])) {
            if (found.lastOfSection) {
                break; // the first section of the name is the section
            }
            inside = *name == upper(stripped(section));
            if (inside) {
                found.lastOfSection = i;
            }
            continue;
        }
        if (!inside) {
            continue;
        }
        if (!stripped(fromAnsi(lines[i].text)).empty()) {
            found.lastOfSection = i;
        }
        const auto entry = entryOf(lines[i]);
        if (!found.line && entry && entry->key == upper(stripped(key))) {
            found.line = i;
            found.value = entry->value;
        }
    }
    return found;
}

} // namespace

Texte readProfile(Files &files, const Texte &path, const Texte &section, const Texte &key) {
    try {
        return find(splitLines(files.read(path)), section, key).value;
    } catch (const Failure &) {
        return {};
    }
}

void writeProfile(Files &files, const Texte &path, const Texte &section, const Texte &key,
                  const Texte &value) {
    try {
        const bool there = files.exists(path);
        const std::string before = there ? files.read(path) : std::string();
        std::vector<Line> lines = splitLines(before);
        const Line entry{toAnsi(key + u"=" + value), "\r\n"};
        const Found found = find(lines, section, key);
        if (found.line) {
            lines[*found.line].text = entry.text;
        } else if (found.lastOfSection) {
            const auto place = lines.begin() + static_cast<std::ptrdiff_t>(*found.lastOfSection);
            if (place->end.empty()) {
                place->end = "\r\n";
            }
            lines.insert(place + 1, entry);
        } else {
            if (!lines.empty() && lines.back().end.empty()) {
                lines.back().end = "\r\n";
            }
            lines.push_back({toAnsi(u"[" + section + u"]"), "\r\n"});
            lines.push_back(entry);
        }
        std::string content;
        for (const Line &line : lines) {
            content += line.text + line.end;
        }
        if (!there || content != before) { // to be sure of the disk takes its time
            files.replace(path, content);
        }
    } catch (const Failure &) {
        return;
    }
}

} // namespace grimoval
