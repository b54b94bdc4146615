// SPDX-License-Identifier: GPL-3.0-or-later
// The counting and the loading of a word base.
#include "support/conditions.h"
#include "support/failures.h"
#include "support/game.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sys/stat.h>

namespace grimoval::test::base_words {

struct WordBase : testing::Test {
    Game game;
    std::vector<int> failures;

    void write(const std::string &bytes) { game.write(u"MASK/ESSAI.DBS", bytes); }
    std::string loaded() {
        game.g.base.FichierBase = u"ESSAI.DBS";
        ChargerMots(game.g, game.menu, [this](int number) { failures.push_back(number); });
        return shownValue(game.menu.LstMot[0].Items.get());
    }
    int count() { return CompterMots(game.g, u"ESSAI.DBS"); }
};

TEST_F(WordBase, GivesItsWordsInFileOrderNeverSorted) {
    write(wordRecords({u"ZÈBRE", u"ÂNE", u"CHAT", u"ÂNE"}));
    EXPECT_EQ(loaded(), R"("ZÈBRE" "ÂNE" "CHAT" "ÂNE")");
    EXPECT_EQ(failures, std::vector<int>{});
}

TEST_F(WordBase, KeepsInnerBlanksAndLosesThoseAtTheEnds) {
    write(wordRecords({u"  POMME  DE TERRE ", u"", u"X"}));
    EXPECT_EQ(loaded(), R"("POMME  DE TERRE" "" "X")");
}

TEST_F(WordBase, OfSomeRecordsAndAPieceCountsTheWholeOnes) {
    const std::string words = wordRecords({u"UN", u"DEUX", u"TROIS"});
    for (const std::size_t tail :
         {std::size_t{0}, std::size_t{1}, std::size_t{42}, std::size_t{83}}) {
        write(words + std::string(tail, 'Q'));
        EXPECT_EQ(count(), 3) << tail;
        EXPECT_EQ(loaded(), R"("UN" "DEUX" "TROIS")") << tail;
    }
}

TEST_F(WordBase, ShorterThanARecordCountsNoWord) {
    write(std::string(83, 'A'));
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(loaded(), "");
}

TEST_F(WordBase, IsReadWithoutALookAtItsOtherFields) {
    TypeMot record;
    record.EntierDebut = -1;
    record.Mot = Texte(u"MOT");
    record.EntierMilieu = 32767;
    record.TexteLong = Texte(40, u'X');
    record.TexteCourt = Texte(8, u'Y');
    record.EntierFin = -32768;
    write(record.ecrire());
    EXPECT_EQ(loaded(), R"("MOT")");
}

TEST_F(WordBase, IsTakenAsItStandsWithoutAChangeOfCase) {
    write(wordRecords({u"Été", u"œuf"}));
    EXPECT_EQ(loaded(), R"("Été" "œuf")");
}

TEST_F(WordBase, ThatVanishedIsCreatedEmptyAndGivesNoWordAndNoFailure) {
    EXPECT_EQ(loaded(), "");
    EXPECT_EQ(failures, std::vector<int>{});
    EXPECT_EQ(game.bytes(u"MASK/ESSAI.DBS"), "");
    EXPECT_EQ(CompterMots(game.g, u"AUTRE.DBS"), 0);
    EXPECT_EQ(game.bytes(u"MASK/AUTRE.DBS"), "");
}

TEST_F(WordBase, ReplacesTheWordsOfTheOneBefore) {
    write(wordRecords({u"UN", u"DEUX"}));
    loaded();
    write(wordRecords({u"TROIS"}));
    EXPECT_EQ(loaded(), R"("TROIS")");
}

TEST_F(WordBase, CannotBeCountedBeyond32767Words) {
    write(std::string(84 * 32767 + 83, ' '));
    EXPECT_EQ(count(), 32767);
    write(std::string(84 * 32768, ' '));
    EXPECT_EQ(failureNumber([this] { count(); }), 6);
}

TEST_F(WordBase, OfAReadOnlyInstallationIsPlayed) {
    write(wordRecords({u"UN"}));
    ::chmod(game.folder.bytePath(u"grimoval/MASK/ESSAI.DBS").c_str(), 0444);
    const OrdinaryUser child;
    EXPECT_EQ(loaded(), R"("UN")");
    EXPECT_EQ(count(), 1);
}

TEST_F(WordBase, ThatCannotBeOpenedIsToldByItsNumberAndGivesNoWord) {
    game.folder.makeFolder(u"grimoval/MASK/ESSAI.DBS");
    EXPECT_EQ(loaded(), "");
    EXPECT_EQ(failures, std::vector<int>{failure::pathAccess});
}

TEST_F(WordBase, IsClosedAfterwards) {
    write(wordRecords({u"UN"}));
    loaded();
    count();
    const NoMoreDescriptors none; // a file left open would have taken the lowest number
    EXPECT_EQ(failureNumber([this] { count(); }), failure::tooManyFiles);
}

TEST(WordBaseLaw, AnyWordsComeBackTrimmedInTheirOrder) {
    Game game;
    game.g.base.FichierBase = u"E.DBS";
    rc::detail::checkGTest([&game] {
        const auto letters = rc::gen::elementOf(Texte(u"ABCÉÈŒ  -'(1"));
        const auto words = *rc::gen::container<std::vector<Texte>>(rc::gen::map(
            rc::gen::container<std::vector<char16_t>>(letters), [](const std::vector<char16_t> &w) {
                return Texte(w.begin(), w.end()).substr(0, 30);
            }));
        game.write(u"MASK/E.DBS", wordRecords(words));
        ChargerMots(game.g, game.menu, [](int) { RC_FAIL("a failure"); });
        std::vector<Texte> expected;
        for (const Texte &word : words) {
            expected.push_back(trim(word));
        }
        RC_ASSERT(game.menu.LstMot[0].Items.get() == expected);
        RC_ASSERT(CompterMots(game.g, u"e.dbs") == static_cast<int>(words.size()));
    });
}

} // namespace grimoval::test::base_words
