// SPDX-License-Identifier: GPL-3.0-or-later
// Texts make bases, bases make texts: and those the same bases.
#include "support/game.h"
#include "tools/bases/commandes.h"
#include "tools/bases/theme.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <map>
#include <rapidcheck/gtest.h>
#include <set>
#include <sstream>

namespace grimoval::test::grimbases_roundtrip {

using Choices = std::vector<std::uint8_t>;

Texte written(const Choices &choices, std::u16string_view alphabet, std::size_t most) {
    Texte text;
    for (const std::uint8_t choice : choices) {
        text += alphabet[choice % alphabet.size()];
    }
    return trim(text.substr(0, most));
}

struct Tree {
    TemporaryFolder folder;
    std::ostringstream output, errors;

    int call(int (*command)(outils::Appel &), const std::vector<Texte> &names) {
        outils::Appel appel{{}, {}, u"grimbases", output, errors};
        for (const Texte &name : names) {
            appel.mots.push_back(folder.path(name));
        }
        return command(appel);
    }
    std::map<std::string, std::string> contents(const Texte &name) const {
        std::map<std::string, std::string> all;
        for (const std::string &path : folder.list()) {
            if (path.starts_with(toUtf8(name) + "/") && !path.ends_with('/')) {
                all[path.substr(name.size() + 1)] = folder.read(fromUtf8(path));
            }
        }
        return all;
    }
};

// What no source can say, as an entry or at the place of the first one.
bool speakable(const Texte &entry) {
    return !entry.starts_with(u'#') && entry.find(u':') > entry.find(u'(');
}

RC_GTEST_PROP(RoundTrip, OfRandomThemesGivesTheSameBytes,
              (const std::vector<std::vector<Choices>> &random)) {
    static constexpr std::u16string_view letters = u"ABCDEFXYZÉÈÇŒŸÀ '-;,\".";
    static constexpr std::u16string_view clues = u"ABcdé€(),;\":#.1  ";
    static constexpr std::u16string_view names = u"abcd_- É1.";
    Tree tree;
    tree.folder.makeFolder(u"un");
    std::set<std::string> titles;
    constexpr std::size_t enough = 2; // each is on the disk three times
    for (const std::vector<Choices> &theme : random) {
        if (theme.size() < 4 || titles.size() == enough) {
            continue;
        }
        const Texte name = written(theme[0], names, 12), title = written(theme[1], clues, 30);
        std::set<Texte> entries;
        for (std::size_t i = 2; i + 1 < theme.size(); i += 2) {
            const Texte word = written(theme[i], letters, 20),
                        clue = written(theme[i + 1], clues, 8);
            const Texte entry = clue.empty() ? word : word + u"(" + clue + u")";
            if (outils::defautDeLEntree(entry).empty() && speakable(entry)) {
                entries.insert(entry);
            }
        }
        const std::string shown = toUtf8(plainCapitals(title));
        if (name.find_first_not_of(u'.') == Texte::npos || entries.empty() || title.empty() ||
            !titles.insert(shown).second) {
            continue;
        }
        Texte source =
            u"Titre : " + title + (theme.size() % 2 != 0 ? u"\nImage : MER" : u"") + u"\n";
        for (const Texte &entry : entries) {
            source += entry + u"\n";
        }
        tree.folder.write(u"sources/" + name + u".txt", toUtf8(source));
    }
    RC_PRE(tree.folder.exists(u"sources"));
    tree.folder.makeFolder(u"deux");
    const int made = tree.call(outils::construire, {u"sources", u"un"});
    RC_ASSERT(tree.errors.str() == "");
    RC_ASSERT(made == 0);
    RC_ASSERT(tree.call(outils::extraire, {u"un", u"textes"}) == 0);
    RC_ASSERT(tree.errors.str() == "");
    RC_ASSERT(tree.call(outils::construire, {u"textes", u"deux"}) == 0);
    RC_ASSERT(tree.contents(u"un") == tree.contents(u"deux"));
    RC_ASSERT(tree.call(outils::verifier, {u"deux"}) == 0);
}

} // namespace grimoval::test::grimbases_roundtrip
