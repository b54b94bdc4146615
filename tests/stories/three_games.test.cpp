// SPDX-License-Identifier: GPL-3.0-or-later
// Three games in a row, one in each mode, quitting in the middle of the third: the log that
// results, byte for byte, of the whole program.
#include "support/game.h"
#include "tools/script/commands.h"

#include <gtest/gtest.h>
#include <sstream>

namespace grimoval::test {
namespace {

const std::string dashes(68, '-');
const std::string zone2(14, ' '), zone3(28, ' ');

std::string head(const std::string &time, const std::string &errors, const std::string &elapsed,
                 const std::string &level) {
    return dashes + "\r\n" + zone2 + "Le Grimoval v3.0\r\n" + zone2 + time +
           "\r\n\r\nFichier        : UN.DBS\r\nSujet          : Premier thème\r\n"
           "Nombre de mots : 3\r\n\r\nTemps de réflexion limitée à 20 secondes\r\n" +
           errors + "\r\n" + zone3 + "Temps écoulé : " + elapsed + "\r\n" + zone2 +
           "Niveau : " + level + "\r\n\r\n";
}

TEST(ThreeGamesInARow, LeaveThreeRecordsAsTheyWerePlayed) {
    Game place; // the folders and a base of three words
    place.install({{u"UN", u"Premier thème", {u"OIE", u"AMI", u"CHAT"}}});
    place.write(u"IMAGES/IMG01.BMP", "BM");

    std::istringstream script(
        "date 2026-03-07 14:05:09\n"
        "demarrer " +
        toUtf8(place.folder.path(u"grimoval")) + " " + toUtf8(place.folder.path(u"donnees")) +
        "\n"
        "clic frmSplash.M\n"
        // Alone: OIE found with one error, then AMI given up.
        "clic FMenu.CmdTjr(2)\nclic FCHoix.Cmd(1)\n"
        "saisir Fnom.Saisie(0) Durand\ntouche Entree\nsaisir Fnom.Saisie(1) Zoé\ntouche Entree\n"
        "clic FLstTitre.CmdTitre(1)\n"
        "touche Z\ntouche O\nattendre 2\ntouche I\ntouche E\ntouche Entree\nattendre 1\n"
        "clic FMenu.CmdJeux(1)\nclic FMenu.CmdTjr(0)\nclic FScore2.CmdScore(0)\n"
        // Two on one word: OIE, an error of the first, the second finds it.
        "clic FMenu.CmdCfg(0)\nclic FCHoix.CmdNbPlay(1)\nclic FCHoix.Cmd(1)\n"
        "touche Entree\ntouche Entree\n"
        "saisir Fnom.Saisie(0) Petit\ntouche Entree\nsaisir Fnom.Saisie(1) Léo\ntouche Entree\n"
        "clic FMenu.CmdTjr(2)\ntouche Z\ntouche O\ntouche I\nattendre 3\ntouche E\n"
        "clic FMenu.CmdTjr(0)\ntouche Echap\n"
        // Each with a word: the first finds OIE with two errors, then the window is closed.
        "clic FMenu.CmdCfg(0)\nclic FCHoix.TxtPlay(2)\nclic FCHoix.Cmd(1)\n"
        "touche Entree\ntouche Entree\ntouche Entree\ntouche Entree\n"
        "clic FMenu.CmdTjr(2)\ntouche Z\ntouche X\ntouche O\ntouche I\ntouche E\ntouche A\n"
        "attendre 4\nfermer FMenu\ntouche Entree\ntouche Echap\n");
    std::ostringstream events;
    script::Interpreter(script, events).run();
    ASSERT_NE(events.str().find("\nfin 0\n"), std::string::npos) << events.str();
    EXPECT_EQ(events.str().find("refus"), std::string::npos) << events.str();

    const std::string log =
        toUtf8(fromAnsi(place.folder.read(u"donnees/Calvenor/Le Grimoval/SCORGRIM.TXT")));
    EXPECT_EQ(log, head("Samedi, 07 mars 2026 à 14:05:12", "Nombre d'erreurs limité à  : 6\r\n",
                        "00:00:03", " un seul joueur") +
                       zone2 +
                       "1er joueur : DURAND ZOÉ\r\n"
                       "Nombre de mots proposés     : 2\r\n"
                       "Nombre d'abandons           : 1\r\n"
                       "Nombre de mots non trouvés  : 1\r\n"
                       "Nombre de mauvaises lettres : 1\r\n"
                       "Nombre de bonnes lettres    : 3\r\n"
                       "Nombre de mots trouvés      : 1\r\n\r\n" +
                       head("Samedi, 07 mars 2026 à 14:05:15", "", "00:00:03",
                            " 2 joueurs cherchant le même mot") +
                       "Nombre de mots proposés     : 1\r\n\r\n" + zone2 +
                       "1er joueur : DURAND ZOÉ\r\n"
                       "Nombre de mauvaises lettres : 1\r\n"
                       "Nombre de bonnes lettres    : 0\r\n"
                       "Nombre de mots trouvés      : 0\r\n"
                       "SCORE.......................: 0\r\n\r\n" +
                       zone2 +
                       "2ème joueur : PETIT LÉO\r\n"
                       "Nombre de mauvaises lettres : 0\r\n"
                       "Nombre de bonnes lettres    : 3\r\n"
                       "Nombre de mots trouvés      : 1\r\n"
                       "SCORE.......................: 8\r\n" +
                       head("Samedi, 07 mars 2026 à 14:05:19", "Nombre d'erreurs limité à  : 6\r\n",
                            "00:00:04", " 2 joueurs chacun son mot") +
                       zone2 +
                       "1er joueur : DURAND ZOÉ\r\n"
                       "Nombre de mots proposés     : 1\r\n"
                       "Nombre d'abandons           : 0\r\n"
                       "Nombre de mauvaises lettres : 4\r\n" // booked twice in this mode
                       "Nombre de bonnes lettres    : 3\r\n"
                       "Nombre de mots trouvés      : 1\r\n"
                       "SCORE.......................: 8\r\n\r\n" +
                       zone2 +
                       "2ème joueur : PETIT LÉO\r\n"
                       "Nombre de mots proposés     : 1\r\n"
                       "Nombre d'abandons           : 0\r\n"
                       "Nombre de mauvaises lettres : 0\r\n"
                       "Nombre de bonnes lettres    : 1\r\n"
                       "Nombre de mots trouvés      : 0\r\n"
                       "SCORE.......................: 1\r\n");
}

} // namespace
} // namespace grimoval::test
