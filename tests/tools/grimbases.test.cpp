// SPDX-License-Identifier: GPL-3.0-or-later
// The making, checking and printing of word bases.
#include "support/conditions.h"
#include "support/failures.h"
#include "support/game.h"

#include <gtest/gtest.h>
#include <sstream>

namespace grimoval::test::grimbases {

using outils::Probleme;
using outils::Theme;

struct WordBases : testing::Test {
    TemporaryFolder folder;
    Files files;
    std::vector<Probleme> problems;

    Theme read(const std::string &source, const Texte &name = u"ESSAI.txt") {
        folder.write(u"sources/" + name, source);
        problems.clear();
        return outils::lireTheme(files, folder.path(u"sources"), name, problems);
    }
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

TEST_F(WordBases, ReadHeadingsAndAWordALineWithoutCommentsAndBlankLines) {
    const Theme theme =
        read("\xEF\xBB\xBF# commentaire\r\n\r\n  TITRE: Les été \t\r\nimagé   :  plage\r\n"
             "Niveau : Moyen\n\norigine : un livre : celui-là\nL'ÉTÉ CHAUD (SAISON : ICI)\n"
             "  PORTE-MANTEAU  2 \n#FIN\nDERNIER",
             u"mer_1.txt");
    EXPECT_EQ(told(problems), Told{});
    EXPECT_EQ(toUtf8(theme.fichier), "MER_1");
    EXPECT_EQ(toUtf8(theme.titre), "Les été");
    EXPECT_EQ(toUtf8(theme.image), "PLAGE");
    ASSERT_EQ(theme.entrees.size(), 3u);
    EXPECT_EQ(toUtf8(theme.entrees[0].texte), "L'ÉTÉ CHAUD (SAISON : ICI)");
    EXPECT_EQ(theme.entrees[0].ligne, 8);
    EXPECT_EQ(toUtf8(theme.entrees[1].texte), "PORTE-MANTEAU  2");
    EXPECT_EQ(toUtf8(theme.entrees[2].texte), "DERNIER");
    EXPECT_EQ(theme.entrees[2].ligne, 11);
}

TEST_F(WordBases, ReadAPlainListOfWordsAsAThemeNamedByItsFile) {
    const Theme theme = read("CHAT\nCHIEN\n", u"mes_mots.txt");
    EXPECT_EQ(told(problems), Told{});
    EXPECT_EQ(toUtf8(theme.titre), "Mes mots");
    EXPECT_EQ(theme.image, Texte());
    EXPECT_EQ(theme.entrees.size(), 2u);
    EXPECT_EQ(toUtf8(read("Titre :\nImage :\nMOTS\n").titre), "ESSAI");
    EXPECT_EQ(told(problems), Told{});
}

TEST_F(WordBases, TellWhatIsWrongWithAHeading) {
    read("Titer : Faute\nTitre : Un\nTITRE : Deux\nNiveau : dur\nMOTS\nImage : TARD\nA : BCD\n");
    EXPECT_EQ(told(problems),
              (Told{"ESSAI.txt:1 Titer : Faute : les en-têtes sont Titre, Image, Niveau et Origine",
                    "ESSAI.txt:3 TITRE : Deux : cet en-tête est déjà plus haut",
                    "ESSAI.txt:4 Niveau : dur : le niveau est facile, moyen ou difficile",
                    "ESSAI.txt:6 Image : TARD : un en-tête se met avant le premier mot"}));
}

TEST_F(WordBases, TellEveryProblemOfASourceWithItsLine) {
    read("BONNE\nbonne\nBONNE\nAB\nABCDEFGHIJKLMNOPQRSTUVWXYZABCDE\nŁÓDŹ VILLE\n"
         "MOT (bas permis ici)\nÉTÉS\nTRÈS BON\n");
    EXPECT_EQ(
        told(problems),
        (Told{"ESSAI.txt:2 bonne : le mot doit être en capitales",
              "ESSAI.txt:3 BONNE : l'entrée est déjà dans ce thème",
              "ESSAI.txt:4 AB : il y a moins de 3 lettres à trouver",
              "ESSAI.txt:5 ABCDEFGHIJKLMNOPQRSTUVWXYZABCDE : l'entrée a plus de 30 caractères",
              "ESSAI.txt:6 ŁÓDŹ VILLE : un caractère n'existe pas dans les fichiers du jeu",
              "ESSAI.txt:8 ÉTÉS : il y a moins de 3 lettres à trouver"}));
}

TEST_F(WordBases, TellWhatIsWrongWithASourceAsAWhole) {
    read("");
    EXPECT_EQ(told(problems), Told{"ESSAI.txt:0 il n'y a aucun mot"});
    read("Titre : Titre\nImage : IMAGE\n");
    EXPECT_EQ(problems.size(), 1u);
    read("MOTS\n", u"TROPLONGNOM.txt");
    EXPECT_EQ(told(problems), Told{"TROPLONGNOM.txt:0 le nom du fichier doit avoir 1 à 8 lettres "
                                   "sans accent ou chiffres"});
    read("MOTS\n", u"été.txt");
    EXPECT_EQ(problems.size(), 1u);
    read("Titre : Un titre qui dépasse trente lettres\nImage : UNEIMAGEDETROP\nMOTS\n");
    EXPECT_EQ(told(problems),
              (Told{"ESSAI.txt:1 Titre : Un titre qui dépasse trente lettres : le titre a plus de "
                    "30 caractères ou un caractère inconnu du jeu",
                    "ESSAI.txt:2 Image : UNEIMAGEDETROP : le nom de l'image doit avoir 1 à 8 "
                    "lettres sans accent ou chiffres"}));
}

TEST_F(WordBases, TakeAnEntryOfExactly30CharactersAndThreeLetters) {
    read(
        "Titre : Titre de trente caractères xxx\nImage : IMAGES88\nABCDEFGHIJKLMNOPQRSTUVWXYZABCD\n"
        "A-B 2C\n",
        u"ABCDEFGH.txt");
    EXPECT_EQ(told(problems), Told{});
}

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
    files.writeTime = [&] { // asked for once a file that is written
        listThere.push_back(folder.exists(u"MASK/GRIMV.LST~"));
        return DateTime{2026, 1, 1, 0, 0, 0};
    };
    outils::construireBases(
        files, {theme(u"AA", {u"UN"}), theme(u"BB", {u"DEUX"}), theme(u"CC", {u"TROIS"})}, mask());
    EXPECT_EQ(listThere, (std::vector<bool>{false, false, false, true}));
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
              "MOTS.DBS:3 ÉTÉ : il y a moins de 3 lettres à trouver"}));
}

TEST_F(WordBases, WithoutAGoodOneStopTheGameAndTheCheckSaysSo) {
    folder.write(u"MASK/A.DBS", wordRecords({u"CHAT"}));
    folder.write(u"MASK/GRIMV.LST", baseRecord(1, 2, u"A"));
    EXPECT_EQ(check().back(), "GRIMV.LST:0 aucune base n'est bonne : le jeu s'arrête");
}

TEST_F(WordBases, ArePrintedThemeByThemeWithTheirWords) {
    folder.write(u"MASK/ETE.DBS", wordRecords({u"ÉTÉ", u"SABLE"}));
    folder.write(u"MASK/GRIMV.LST", baseRecord(1, 2, u"ete", u"L'été", u"PLAGE") +
                                        baseRecord(2, 5, u"MORT", u"Mort", u"", 0));
    std::ostringstream output;
    outils::listerBases(files, mask(), output);
    EXPECT_EQ(output.str(), "L'été (ETE.DBS, 2 mots, image PLAGE)\n  ÉTÉ\n  SABLE\n"
                            "Mort (MORT.DBS, 5 mots, image , hors service)\n");
}

} // namespace grimoval::test::grimbases
