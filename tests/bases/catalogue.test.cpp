// SPDX-License-Identifier: GPL-3.0-or-later
// The check of the catalogue's records against the base files that lie in the folder.
#include "support/game.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <set>

namespace grimoval::test::catalogue {

struct Catalogue : testing::Test {
    Game game;
    int warnings = 0;

    void list(const std::string &bytes) { game.write(u"MASK/GRIMV.LST", bytes); }
    void base(const Texte &file, int words) {
        game.write(u"MASK/" + file, std::string(static_cast<std::size_t>(words) * 84, ' '));
    }
    // Titles of the chooser, and the number of warnings.
    std::string open() {
        game.windows.messages.clear();
        game.titles.show();
        std::string text;
        for (const Texte &entry : game.titles.LstTitre.Items.get()) {
            text += (text.empty() ? "" : ", ") + toUtf8(trim(entry.substr(0, 30)));
        }
        game.titles.unload();
        warnings = static_cast<int>(game.windows.messages.size());
        return text;
    }
};

TEST_F(Catalogue, OfSomeRecordsAndAPieceCountsTheWholeOnes) {
    base(u"A.DBS", 2);
    base(u"B.DBS", 2);
    for (const std::size_t tail : {std::size_t{1}, std::size_t{51}}) {
        list(baseRecord(1, 2, u"A", u"Un") + baseRecord(2, 2, u"B", u"Deux") +
             std::string(tail, 'Q'));
        EXPECT_EQ(open(), "Deux, Un");
        EXPECT_EQ(warnings, 0);
    }
}

TEST_F(Catalogue, TestsTheNumberOfTheLastRecordAlone) {
    base(u"A.DBS", 2);
    base(u"B.DBS", 2);
    list(baseRecord(77, 2, u"A", u"Un") + baseRecord(2, 2, u"B", u"Deux"));
    EXPECT_EQ(open(), "Deux, Un");
    EXPECT_EQ(warnings, 0);
}

TEST_F(Catalogue, ComparesNamesInCapitalsAndGoesOnInCapitals) {
    base(u"animaux.dbs", 2);
    list(baseRecord(1, 2, u"Animaux", u"Les animaux"));
    game.write(u"IMAGES/IMG01.BMP", "BM");
    game.expectTheme(0);
    ASSERT_TRUE(game.menu.CmdBase.userClick());
    EXPECT_EQ(toUtf8(game.g.base.FichierBase), "ANIMAUX.DBS");
    EXPECT_EQ(game.menu.LstMot[0].ListCount(), 2);
    EXPECT_EQ(game.windows.messages.size(), 0u);
}

TEST_F(Catalogue, StopsLookingOnceEveryFileHasBeenClaimed) {
    base(u"A.DBS", 2);
    list(baseRecord(1, 2, u"A", u"Un") + baseRecord(2, 2, u"ABSENT") + baseRecord(3, 9, u"A"));
    EXPECT_EQ(open(), "Un");
    EXPECT_EQ(warnings, 0);
}

TEST_F(Catalogue, NoticesAMissingFileWhileAnUnclaimedNameRemains) {
    base(u"A.DBS", 2);
    base(u"ENTROP.DBS", 2);
    list(baseRecord(1, 2, u"A", u"Un") + baseRecord(2, 2, u"ABSENT"));
    EXPECT_EQ(open(), "Un");
    EXPECT_EQ(warnings, 1);
}

TEST_F(Catalogue, SaysNothingOfAFileThatNoRecordClaims) {
    base(u"A.DBS", 2);
    base(u"ENTROP.DBS", 2);
    list(baseRecord(1, 2, u"A", u"Un"));
    EXPECT_EQ(open(), "Un");
    EXPECT_EQ(warnings, 0);
}

TEST_F(Catalogue, WarnsOfADeadRecordWhoseFileExistsAndItsNameIsClaimedAllTheSame) {
    base(u"A.DBS", 2);
    base(u"B.DBS", 2);
    // When the dead record has claimed the last name, the record after it is not examined.
    list(baseRecord(1, 2, u"A", u"Un") + baseRecord(2, 2, u"B", u"Mort", u"", 0) +
         baseRecord(3, 2, u"B", u"Vivant"));
    EXPECT_EQ(open(), "Un");
    EXPECT_EQ(warnings, 1);
    // With another name left it is, and finds its file claimed.
    base(u"C.DBS", 2);
    EXPECT_EQ(open(), "Un");
    EXPECT_EQ(warnings, 2);
}

TEST_F(Catalogue, PassesADeadRecordWithoutAFileOverInSilence) {
    base(u"A.DBS", 2);
    list(baseRecord(1, 2, u"MORT", u"Mort", u"", 0) + baseRecord(2, 2, u"A", u"Un"));
    EXPECT_EQ(open(), "Un");
    EXPECT_EQ(warnings, 0);
}

TEST_F(Catalogue, RefusesABaseOfNoWordsAlsoWhenItsRecordSaysNone) {
    base(u"A.DBS", 0);
    base(u"B.DBS", 1);
    list(baseRecord(1, 0, u"A", u"Vide") + baseRecord(2, 1, u"B", u"Bon"));
    EXPECT_EQ(open(), "Bon");
    EXPECT_EQ(warnings, 1);
}

TEST_F(Catalogue, CountsWholeRecordsOfABaseAlone) {
    game.write(u"MASK/A.DBS", std::string(84 * 2 + 83, ' '));
    list(baseRecord(1, 2, u"A", u"Un"));
    EXPECT_EQ(open(), "Un");
}

TEST_F(Catalogue, TakesAnyValueButZeroAsInUse) {
    base(u"A.DBS", 2);
    for (const int active : {1, -1, 2, 256, -32768}) {
        list(baseRecord(1, 2, u"A", u"Un", u"", active));
        EXPECT_EQ(open(), "Un") << active;
    }
}

TEST_F(Catalogue, IsReadAnewAtEachOpening) {
    base(u"A.DBS", 2);
    list(baseRecord(1, 2, u"A", u"Un"));
    EXPECT_EQ(open(), "Un");
    base(u"B.DBS", 2);
    list(baseRecord(1, 2, u"A", u"Un") + baseRecord(2, 2, u"B", u"Deux"));
    EXPECT_EQ(open(), "Deux, Un");
}

TEST_F(Catalogue, GivesEntriesOfFixedColumnsSortedInFrenchOrder) {
    base(u"A.DBS", 2);
    base(u"B.DBS", 2);
    base(u"C.DBS", 2);
    list(baseRecord(1, 2, u"A", u"Zoo", u"IMG") + baseRecord(2, 2, u"B", u"Écoles") +
         baseRecord(3, 2, u"C", u"eau", u"LONGNOM8"));
    game.titles.show();
    const auto entry = [](const Texte &title, const Texte &file, const Texte &image) {
        return title + Texte(30 - title.size(), u' ') + Texte(50, u' ') + file + Texte(10, u' ') +
               image + Texte(8 - image.size(), u' ');
    };
    const std::vector<Texte> expected = {entry(u"eau", u"C.DBS", u"LONGNOM8"),
                                         entry(u"Écoles", u"B.DBS", u""),
                                         entry(u"Zoo", u"A.DBS", u"IMG")};
    EXPECT_EQ(game.titles.LstTitre.Items.get(), expected);
    EXPECT_EQ(game.titles.LstTitre.shownColumns, 30u);
    EXPECT_EQ(game.titles.LstTitre.ListIndex.get(), 0);
}

TEST_F(Catalogue, OfTwoRecordsForOneFileGivesItToTheFirst) {
    base(u"A.DBS", 2);
    base(u"B.DBS", 2);
    list(baseRecord(1, 2, u"A", u"Un") + baseRecord(2, 2, u"A", u"Encore") +
         baseRecord(3, 2, u"B", u"Deux"));
    EXPECT_EQ(open(), "Deux, Un");
    EXPECT_EQ(warnings, 1);
}

// Against the rules told plainly: random records, random files.
void checkAnyCatalogue(Game &game) {
    const auto records = *rc::gen::nonEmpty(rc::gen::container<std::vector<std::array<int, 3>>>(
        rc::gen::container<std::array<int, 3>>(rc::gen::inRange(0, 6))));
    auto sizes = *rc::gen::container<std::vector<int>>(6, rc::gen::inRange(-1, 3));
    game.titles.unload();
    game.windows.messages.clear();
    for (const Texte &name : game.files.list(game.g.dossiers.DossierBases, u"*")) {
        game.files.remove(game.g.dossiers.DossierBases + name);
    }
    std::multiset<int> unclaimed;
    for (int file = 0; file < 6; ++file) {
        int &size = sizes[static_cast<std::size_t>(file)];
        size = file == 0 ? std::max(size, 0) : size; // without any file the chooser opens empty
        if (size >= 0) {
            game.write(u"MASK/F" + decimal(file) + u".DBS",
                       std::string(static_cast<std::size_t>(size) * 84, ' '));
            unclaimed.insert(file);
        }
    }
    std::string bytes;
    std::size_t warnings = 0;
    std::vector<Texte> titles;
    int number = 0;
    for (const auto &record : records) {
        const int file = record[0], words = record[1] % 3;
        const bool active = record[2] > 0;
        ++number;
        const Texte title = u"T" + decimal(1000 + number);
        bytes += baseRecord(number, words, u"f" + decimal(file), title, u"", active ? 1 : 0);
        if (unclaimed.empty()) {
            continue; // the loop has been left
        }
        const bool present = unclaimed.contains(file);
        unclaimed.erase(file);
        const bool good =
            present && active && words > 0 && words == sizes[static_cast<std::size_t>(file)];
        if (good) {
            titles.push_back(title);
        } else if (active || present) {
            ++warnings;
        }
    }
    game.write(u"MASK/GRIMV.LST", bytes);
    bool stopped = false;
    std::vector<Texte> got;
    try {
        game.titles.show();
        for (const Texte &entry : game.titles.LstTitre.Items.get()) {
            got.push_back(trim(entry.substr(0, 30)));
        }
    } catch (const ProgramEnd &) {
        stopped = true;
    }
    RC_ASSERT(game.windows.messages.size() == warnings);
    RC_ASSERT(stopped == titles.empty());
    if (!stopped) {
        RC_ASSERT(got == titles);
    }
    RC_ASSERT(game.there(u"MASK/GRIMV.LST") == !stopped);
}

TEST(CatalogueLaw, AgreesWithThePlainReadingOfTheRules) {
    Game game;
    rc::detail::checkGTest([&game] { checkAnyCatalogue(game); });
}

} // namespace grimoval::test::catalogue
