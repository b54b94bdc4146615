// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/profile.h"

#include "fuzz/targets.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <array>
#include <map>

namespace grimoval::fuzz {

namespace {

struct Name {
    const char16_t *section, *key;
};
constexpr std::array<Name, 6> known = {{
    {u"ConfigPC", u"ConfDep"},
    {u"ConfigPC", u"WavPrésent"},
    {u"Le Grimoval", u"Music"},
    {u"Le Grimoval", u"TempsRéflexion"},
    {u"A", u"un"},
    {u"B", u"deux"},
}};

// Each with its end.
std::vector<std::string> lines(std::string_view bytes) {
    std::vector<std::string> all;
    while (!bytes.empty()) {
        const std::size_t length = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
        all.emplace_back(bytes.substr(0, length));
        bytes.remove_prefix(length);
    }
    return all;
}

// Without its end.
std::string body(std::string line) {
    for (const char *end : {"\r\n", "\n"}) {
        if (line.ends_with(end)) {
            line.resize(line.size() - std::string_view(end).size());
        }
    }
    return line;
}

// One line is another, or one has come in, or two at the end of the file; a last line without an
// end gets one before another.
bool fits(std::vector<std::string> before, const std::vector<std::string> &after,
          const std::string &head, const std::string &entry) {
    const auto differ = [&] {
        return std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first;
    };
    if (before.size() == after.size()) {
        const auto old = differ();
        if (old == before.end()) {
            return true;
        }
        const std::string end = old->substr(body(*old).size());
        *old = entry + end;
        return before == after;
    }
    if (!before.empty() && after.size() >= before.size() &&
        after[before.size() - 1] == before.back() + "\r\n") {
        before.back() += "\r\n";
    }
    if (after.size() == before.size() + 2) {
        before.push_back(head + "\r\n");
    }
    before.insert(differ(), entry + "\r\n");
    return before == after;
}

} // namespace

// The first byte says which key, the second the value; the rest is the file.
void profile(std::string_view bytes) {
    if (bytes.size() < 2) {
        return;
    }
    const Name &name = known[static_cast<unsigned char>(bytes[0]) % known.size()];
    const Texte value = decimal(bytes[1]);
    const std::string before(bytes.substr(2));
    const test::TemporaryFolder folder;
    folder.write(u"P.INI", before);
    Files files;
    const Texte path = folder.path(u"P.INI");
    const auto read = [&] {
        std::vector<Texte> all;
        for (const Name &each : known) {
            all.push_back(readProfile(files, path, each.section, each.key));
        }
        return all;
    };
    const auto write = [&] { writeProfile(files, path, name.section, name.key, value); };
    std::vector<Texte> expected = read();
    expected[static_cast<std::size_t>(&name - known.data())] = value;
    write();
    law(read() == expected, "the value reads back, and all others as before");
    const std::string after = folder.read(u"P.INI");
    // A key that stands there in other capitals takes the name that it is written by.
    law(fits(lines(before), lines(after), toAnsi(u"[" + Texte(name.section) + u"]"),
             toAnsi(name.key + (u"=" + value))),
        "every other line stays as it is");
    write();
    law(folder.read(u"P.INI") == after, "a second time changes nothing");
    law(folder.list() == std::vector<std::string>{"P.INI"}, "no other file is left");
}

} // namespace grimoval::fuzz
