// SPDX-License-Identifier: GPL-3.0-or-later
// The record of a game in the log, byte for byte, and what shows the same numbers.
#include "support/scored.h"

#include <gtest/gtest.h>

namespace grimoval::test {
namespace {

const Texte journal = u"donnees/Calvenor/Le Grimoval/SCORGRIM.TXT";

struct Recorded : Scored {
    using Scored::Scored;
    std::string leave() {
        score.load();
        score.show();
        EXPECT_TRUE(score.CmdScore[0].userClick());
        return toUtf8(fromAnsi(folder.read(journal)));
    }
};

const std::string dashes(68, '-');
const std::string zone2(14, ' '), zone3(28, ' ');

std::string head(const std::string &limits) {
    return dashes + "\r\n" + zone2 + "Le Grimoval v3.0\r\n" + zone2 +
           "Samedi, 07 mars 2026 à 14:05:09\r\n\r\n"
           "Fichier        : ESSAI.DBS\r\nSujet          : Essai\r\nNombre de mots : 40\r\n\r\n" +
           limits + "\r\n" + zone3 + "Temps écoulé : 01:02:05\r\n";
}

TEST(Record, OfOnePlayerHasNoScoreAndEndsInABlankLine) {
    EXPECT_EQ(Recorded(1).leave(), head("Temps de réflexion limitée à 45 secondes\r\n"
                                        "Nombre d'erreurs limité à  : 6\r\n") +
                                       zone2 + "Niveau :  un seul joueur\r\n\r\n" + zone2 +
                                       "1er joueur : DURAND MARIE\r\n"
                                       "Nombre de mots proposés     : 7\r\n"
                                       "Nombre d'abandons           : 2\r\n"
                                       "Nombre de mots non trouvés  : 3\r\n"
                                       "Nombre de mauvaises lettres : 12\r\n"
                                       "Nombre de bonnes lettres    : 31\r\n"
                                       "Nombre de mots trouvés      : 4\r\n\r\n");
}

TEST(Record, OfTwoPlayersOnOneWordSharesTheWordsProposedAndKnowsNoErrorLimit) {
    EXPECT_EQ(Recorded(2).leave(), head("Temps de réflexion limitée à 45 secondes\r\n") + zone2 +
                                       "Niveau :  2 joueurs cherchant le même mot\r\n\r\n"
                                       "Nombre de mots proposés     : 7\r\n\r\n" +
                                       zone2 +
                                       "1er joueur : DURAND MARIE\r\n"
                                       "Nombre de mauvaises lettres : 12\r\n"
                                       "Nombre de bonnes lettres    : 31\r\n"
                                       "Nombre de mots trouvés      : 4\r\n"
                                       "SCORE.......................: 51\r\n\r\n" +
                                       zone2 +
                                       "2ème joueur : PETIT LÉO\r\n"
                                       "Nombre de mauvaises lettres : 9\r\n"
                                       "Nombre de bonnes lettres    : 22\r\n"
                                       "Nombre de mots trouvés      : 3\r\n"
                                       "SCORE.......................: 37\r\n");
}

TEST(Record, OfTwoPlayersEachWithAWordTellsAllOfBothAndEndsWithoutABlankLine) {
    EXPECT_EQ(Recorded(3, false).leave(), head("Temps de réflexion limitée : NON\r\n"
                                               "Nombre d'erreurs limité à  : 6\r\n") +
                                              zone2 + "Niveau :  2 joueurs chacun son mot\r\n\r\n" +
                                              zone2 +
                                              "1er joueur : DURAND MARIE\r\n"
                                              "Nombre de mots proposés     : 7\r\n"
                                              "Nombre d'abandons           : 2\r\n"
                                              "Nombre de mauvaises lettres : 12\r\n"
                                              "Nombre de bonnes lettres    : 31\r\n"
                                              "Nombre de mots trouvés      : 4\r\n"
                                              "SCORE.......................: 51\r\n\r\n" +
                                              zone2 +
                                              "2ème joueur : PETIT LÉO\r\n"
                                              "Nombre de mots proposés     : 7\r\n"
                                              "Nombre d'abandons           : 1\r\n"
                                              "Nombre de mauvaises lettres : 9\r\n"
                                              "Nombre de bonnes lettres    : 22\r\n"
                                              "Nombre de mots trouvés      : 3\r\n"
                                              "SCORE.......................: 37\r\n");
}

TEST(Record, IsWindows1252AndABlankNameLeavesItsBlank) {
    Recorded game(2);
    game.g.joueurs.NomJoueur[1] = u"  NOËL";
    game.g.joueurs.NomJoueur[2] = u"";
    game.leave();
    const std::string bytes = game.folder.read(journal);
    EXPECT_NE(bytes.find("1er joueur : NO\xCBL \r\n"), std::string::npos);
    EXPECT_EQ(game.g.joueurs.NomJoueur[1].text(), u"NOËL           ");
}

TEST(Record, ElapsedHoursWrapAtADay) {
    Recorded game(1);
    game.g.scores.TempsEcoule = 25 * 3600 + 1;
    EXPECT_NE(game.leave().find("Temps écoulé : 01:00:01\r\n"), std::string::npos);
}

TEST(Record, TellsTheElapsedTimeInTwoDigits) {
    const std::pair<int, const char *> rows[] = {{0, "00:00:00"},
                                                 {9 * 3600 + 9 * 60 + 9, "09:09:09"},
                                                 {10 * 3600 + 10 * 60 + 10, "10:10:10"},
                                                 {23 * 3600 + 59 * 60 + 59, "23:59:59"}};
    for (const auto &[seconds, text] : rows) {
        Recorded game(1);
        game.g.scores.TempsEcoule = seconds;
        EXPECT_NE(game.leave().find(std::string("Temps écoulé : ") + text + "\r\n"),
                  std::string::npos)
            << text;
    }
}

TEST(Record, ANumberOfWordsNotFoundBeyond16BitsIsToldAndTheRecordIsLost) {
    Recorded game(3);
    game.score.show();
    game.g.scores.NbMotsProposes = 32767;
    game.g.scores.MotsTrouves[1] = -1;
    game.g.reglages.NombreJoueur = 1;
    game.windows.take();
    game.score.CmdScore[0].userClick();
    ASSERT_EQ(game.windows.messages.size(), 1u);
    EXPECT_EQ(game.windows.messages[0].text, u"L'ERREUR 6 est survenue.");
    EXPECT_EQ(game.folder.read(journal), "");
    EXPECT_FALSE(game.score.isLoaded());
}

TEST(Dates, AreFrenchWithTheDayInTwoDigitsAndACapital) {
    EXPECT_EQ(toUtf8(dateEnTouteLettre({2026, 3, 7, 14, 5, 9})), "Samedi, 07 mars 2026 à 14:05:09");
    EXPECT_EQ(toUtf8(dateEnTouteLettre({2024, 2, 29, 0, 0, 0})),
              "Jeudi, 29 février 2024 à 00:00:00");
    EXPECT_EQ(toUtf8(dateEnTouteLettre({2026, 8, 16, 23, 59, 59})),
              "Dimanche, 16 août 2026 à 23:59:59");
    EXPECT_EQ(toUtf8(dateEnTouteLettre({2026, 12, 1, 9, 8, 7})),
              "Mardi, 01 décembre 2026 à 09:08:07");
}

TEST(Dates, NameEveryDayOfTheWeekAndEveryMonth) {
    const char *days[] = {"Lundi", "Mardi", "Mercredi", "Jeudi", "Vendredi", "Samedi", "Dimanche"};
    for (int i = 0; i < 7; ++i) { // the 4th of May 2026 is a Monday
        EXPECT_EQ(toUtf8(dateEnTouteLettre({2026, 5, 4 + i, 10, 0, 0})),
                  days[i] + (i < 6 ? std::string(", 0") : ", ") + std::to_string(4 + i) +
                      " mai 2026 à 10:00:00");
    }
    const char *months[] = {"janvier", "février", "mars",      "avril",   "mai",      "juin",
                            "juillet", "août",    "septembre", "octobre", "novembre", "décembre"};
    for (int i = 0; i < 12; ++i) {
        const std::string date = toUtf8(dateEnTouteLettre({2026, i + 1, 10, 10, 0, 0}));
        EXPECT_NE(date.find(std::string(" 10 ") + months[i] + " 2026 "), std::string::npos) << date;
    }
}

TEST(Record, InWhichANumberOverflowsIsToldAndNotWrittenAtAll) {
    Recorded game(1);
    const std::string before = game.leave();
    game.score.show();
    game.g.scores.NbMotsProposes = 32767;
    game.g.scores.MotsTrouves[1] = -1; // the words that were not found are too many
    game.score.EcrireScore();
    EXPECT_EQ(toUtf8(fromAnsi(game.folder.read(journal))), before);
    ASSERT_EQ(game.windows.messages.size(), 1u);
    EXPECT_EQ(toUtf8(game.windows.messages[0].text), "L'ERREUR 6 est survenue.");
    EXPECT_TRUE(game.score.ScoreNonEcrit);
}

} // namespace
} // namespace grimoval::test
