// SPDX-License-Identifier: GPL-3.0-or-later
// The making, checking and printing of word bases.
#include "support/conditions.h"
#include "support/failures.h"
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::grimbases {

using outils::Probleme;
using outils::Theme;

struct WordBases : testing::Test {
    TemporaryFolder folder;
    Files files;

    static std::vector<std::string> told(const std::vector<Probleme> &all) {
        std::vector<std::string> lines;
        for (const Probleme &problem : all) {
            lines.push_back(toUtf8(problem.fichier) + ":" + std::to_string(problem.ligne) + " " +
                            toUtf8(problem.texte));
        }
        return lines;
    }
    Texte mask() const { return folder.path(u"MASK"); }
    static Theme theme(const Texte &file, const std::vector<Texte> &words) {
        Theme made{file, u"Titre de " + file, file, {}};
        for (const Texte &word : words) {
            made.entrees.push_back({0, word});
        }
        return made;
    }
    std::vector<std::string> check() { return told(outils::verifierBases(files, mask())); }
};

using Told = std::vector<std::string>;

TEST_F(WordBases, WriteBothFilesByteByByte) {
    folder.makeFolder(u"MASK");
    outils::construireBases(files, {theme(u"AA", {u"ÉTÉ", u"MER"}), theme(u"BB", {u"SKI"})},
                            mask());
    const std::string words = folder.read(u"MASK/AA.DBS");
    ASSERT_EQ(words.size(), 168u);
    EXPECT_EQ(words.substr(0, 2), std::string(2, '\0'));
    EXPECT_EQ(words.substr(2, 30), "\xC9T\xC9" + std::string(27, ' '));
    EXPECT_EQ(words.substr(32, 2), std::string(2, '\0'));
    EXPECT_EQ(words.substr(34, 48), std::string(48, ' '));
    EXPECT_EQ(words.substr(82, 2), std::string(2, '\0'));
    EXPECT_EQ(words.substr(84 + 2, 30), "MER" + std::string(27, ' '));
    const std::string list = folder.read(u"MASK/GRIMV.LST");
    ASSERT_EQ(list.size(), 104u);
    EXPECT_EQ(list.substr(0, 4), std::string("\x01\0\x02\0", 4));
    EXPECT_EQ(list.substr(4, 8), "AA      ");
    EXPECT_EQ(list.substr(12, 30), "Titre de AA" + std::string(19, ' '));
    EXPECT_EQ(list.substr(42, 8), "AA      ");
    EXPECT_EQ(list.substr(50, 2), std::string("\x01\0", 2));
    EXPECT_EQ(list.substr(52, 4), std::string("\x02\0\x01\0", 4));
    EXPECT_EQ(folder.read(u"MASK/BB.DBS").size(), 84u);
}

TEST_F(WordBases, WriteTheListLast) {
    folder.makeFolder(u"MASK");
    std::vector<bool> listThere;
    files.writeTime = [&] { // asked for once a file that is written; the first is the journal
        listThere.push_back(!files.list(mask(), u"GRIMV.LST~*").empty());
        return DateTime{2026, 1, 1, 0, 0, 0};
    };
    outils::construireBases(
        files, {theme(u"AA", {u"UN"}), theme(u"BB", {u"DEUX"}), theme(u"CC", {u"TROIS"})}, mask());
    EXPECT_EQ(listThere, (std::vector<bool>{false, false, false, false, true}));
}

TEST_F(WordBases, LeaveTheOldFilesWholeWhereTheNewOnesFindNoPlace) {
    folder.makeFolder(u"MASK");
    outils::construireBases(files, {theme(u"AA", {u"UN"})}, mask());
    const std::string list = folder.read(u"MASK/GRIMV.LST"), words = folder.read(u"MASK/AA.DBS");
    const auto before = folder.list();
    {
        const FileSizeLimit full(100);
        EXPECT_EQ(failureNumber([&] {
                      outils::construireBases(files, {theme(u"AA", {u"DEUX", u"TROIS", u"QUATRE"})},
                                              mask());
                  }),
                  failure::diskFull);
    }
    EXPECT_EQ(folder.read(u"MASK/GRIMV.LST"), list);
    EXPECT_EQ(folder.read(u"MASK/AA.DBS"), words);
    EXPECT_EQ(folder.list(), before);
}

TEST_F(WordBases, ThatWereMadeHaveNoProblemAndTheGameTakesThem) {
    folder.makeFolder(u"MASK");
    outils::construireBases(files, {theme(u"AA", {u"CHAT", u"CHIEN"}), theme(u"BB", {u"SKIS"})},
                            mask());
    EXPECT_EQ(check(), Told{});
    Game game;
    game.g.dossiers.DossierBases = asFolder(mask());
    game.titles.show();
    EXPECT_EQ(game.titles.LstTitre.ListCount(), 2);
    EXPECT_TRUE(game.windows.messages.empty());
}

TEST_F(WordBases, AreCheckedForAllThatTheGameWouldRefuse) {
    folder.makeFolder(u"MASK");
    EXPECT_EQ(check().size(), 1u); // no list
    EXPECT_EQ(check()[0].substr(0, 12), "GRIMV.LST:0 ");
    folder.write(u"MASK/GRIMV.LST", "");
    EXPECT_EQ(check(), Told{"GRIMV.LST:0 la liste est vide : le jeu s'arrête"});
    folder.write(u"MASK/GRIMV.LST", std::string(51, ' '));
    EXPECT_EQ(check(), Told{"GRIMV.LST:0 la liste est vide : le jeu s'arrête"});

    folder.write(u"MASK/BON.DBS", wordRecords({u"CHAT"}));
    folder.write(u"MASK/COMPTE.DBS", wordRecords({u"CHAT", u"CHIEN"}));
    folder.write(u"MASK/MORT.DBS", wordRecords({u"CHAT"}));
    folder.write(u"MASK/MOTS.DBS", wordRecords({u"CHAT", u"chien", u"ÉTÉ"}));
    folder.write(u"MASK/GRIMV.LST",
                 baseRecord(1, 1, u"BON") + baseRecord(2, 9, u"COMPTE") +
                     baseRecord(3, 1, u"ABSENT") + baseRecord(4, 1, u"MORT", u"T", u"", 0) +
                     baseRecord(5, 3, u"MOTS") + baseRecord(7, 1, u"DEJA", u"T", u"", 0));
    EXPECT_EQ(
        check(),
        (Told{"GRIMV.LST:0 le numéro du dernier enregistrement n'est pas leur nombre : le jeu "
              "s'arrête",
              "COMPTE.DBS:2 la liste annonce 9 mots, le fichier en a 2",
              "ABSENT.DBS:3 le fichier de la base manque",
              "MORT.DBS:4 la base est hors service mais son fichier existe",
              "MOTS.DBS:2 chien : le mot doit être en capitales",
              "MOTS.DBS:3 ÉTÉ : il n'y a pas 3 lettres à trouver (une lettre accentuée est montrée "
              "dès "
              "le début) : changez ou effacez cette ligne"}));
}

TEST_F(WordBases, WithoutAGoodOneStopTheGameAndTheCheckSaysSo) {
    folder.write(u"MASK/A.DBS", wordRecords({u"CHAT"}));
    folder.write(u"MASK/GRIMV.LST", baseRecord(1, 2, u"A"));
    EXPECT_EQ(check().back(), "GRIMV.LST:0 aucune base n'est bonne : le jeu s'arrête");
}

TEST_F(WordBases, ThatNoListNamesAreRemarkedAndHarmNothing) {
    folder.write(u"MASK/A.DBS", wordRecords({u"CHAT"}));
    folder.write(u"MASK/SEULE.DBS", wordRecords({u"CHIEN"}));
    folder.write(u"MASK/GRIMV.LST", baseRecord(1, 1, u"A"));
    const outils::Problemes problems = outils::verifierBases(files, mask());
    EXPECT_EQ(told(problems), Told{"SEULE.DBS:0 aucun thème ne se sert de ce fichier"});
    EXPECT_FALSE(outils::graves(problems));
}

TEST_F(WordBases, ThatChangeGetAFileOfTheirOwnAndTheOldOneGoes) {
    folder.makeFolder(u"MASK");
    outils::construireBases(files, {theme(u"AA", {u"CHAT"}), theme(u"BB", {u"CHIEN"})}, mask());
    const std::string same = folder.read(u"MASK/BB.DBS");
    outils::construireBases(files, {theme(u"AA", {u"CHAT", u"RAT"}), theme(u"BB", {u"CHIEN"})},
                            mask());
    EXPECT_EQ(folder.list(), (Told{"MASK/", "MASK/AA_2.DBS", "MASK/BB.DBS", "MASK/GRIMV.LST"}));
    EXPECT_EQ(folder.read(u"MASK/BB.DBS"), same);
    EXPECT_EQ(check(), Told{});
    // Once more the same: nothing is renamed.
    outils::construireBases(files, {theme(u"AA", {u"CHAT", u"RAT"}), theme(u"BB", {u"CHIEN"})},
                            mask());
    EXPECT_EQ(folder.list(), (Told{"MASK/", "MASK/AA_2.DBS", "MASK/BB.DBS", "MASK/GRIMV.LST"}));
}

TEST_F(WordBases, NeverTakeTheNameOfAFileThatIsNotTheirsNorThatOfADeadRecord) {
    folder.write(u"MASK/AA.DBS", "autre chose");
    folder.write(u"MASK/GRIMV.LST",
                 baseRecord(1, 1, u"aa_2", u"T", u"", 0) + baseRecord(2, 1, u"X"));
    outils::construireBases(files, {theme(u"AA", {u"CHAT"})}, mask());
    EXPECT_EQ(folder.list(), (Told{"MASK/", "MASK/AA.DBS", "MASK/AA_3.DBS", "MASK/GRIMV.LST"}));
    EXPECT_EQ(folder.read(u"MASK/AA.DBS"), "autre chose");
}

TEST_F(WordBases, OfNamesThatAreAlikeAreNumbered) {
    folder.makeFolder(u"MASK");
    std::vector<Theme> many;
    for (int i = 0; i < 12; ++i) {
        many.push_back({u"DICTEEDE", u"Titre " + decimal(i), u"", {{0, u"CHAT"}}});
    }
    outils::construireBases(files, many, mask());
    EXPECT_TRUE(folder.exists(u"MASK/DICTEE_9.DBS"));
    EXPECT_TRUE(folder.exists(u"MASK/DICTE_12.DBS"));
    EXPECT_EQ(check(), Told{});
}

TEST_F(WordBases, LeaveNothingOfAWriterThatDied) {
    folder.write(u"MASK/AA.DBS~", "reste");
    folder.write(u"MASK/GRIMV.LST~", "reste");
    folder.write(u"MASK/GRIMV.LST~4711", "reste");
    outils::construireBases(files, {theme(u"AA", {u"CHAT"})}, mask());
    EXPECT_EQ(folder.list(), (Told{"MASK/", "MASK/AA.DBS", "MASK/GRIMV.LST"}));
}

} // namespace grimoval::test::grimbases
