// SPDX-License-Identifier: GPL-3.0-or-later
// The command language of the program without a screen: words, quotes, surroundings, time.
#include "support/scripts.h"
#include "tools/script/commands.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace grimoval::test::command_language {

using Lines = std::vector<std::string>;

// The words of a line in brackets; "refused" for quotes that are not closed.
std::string split(const Texte &line) {
    const auto words = script::splitCommand(line);
    if (!words) {
        return "refused";
    }
    std::string text;
    for (const Texte &word : *words) {
        text += "[" + toUtf8(word) + "]";
    }
    return text;
}

TEST(CommandLine, FallsIntoWordsAtBlanksWithQuotesToGroup) {
    const std::pair<const char16_t *, const char *> rows[] = {
        {u"", ""},
        {u"   \t ", ""},
        {u"clic FMenu.CmdTjr(2)", "[clic][FMenu.CmdTjr(2)]"},
        {u"  saisir\tA   B  ", "[saisir][A][B]"},
        {u"demarrer \"/mon jeu\" -", "[demarrer][/mon jeu][-]"},
        {u"a \"\" b", "[a][][b]"},
        {u"a\"b c\"d", "[ab cd]"},
        {u"\"un\"\"deux\"", "[undeux]"},
        {u"\"a \\\" b\"", "[a \" b]"},
        {u"\"a \\\\ b\"", "[a \\ b]"},
        {u"\"a \\n b\"", "[a \\n b]"},
        {u"a\\b", "[a\\b]"},
        {u"\"sans fin", "refused"},
        {u"a \"", "refused"},
        {u"\"a\\\"", "refused"},
        {u"été \"œ é\"", "[été][œ é]"},
    };
    for (const auto &[line, words] : rows) {
        EXPECT_EQ(split(line), words) << toUtf8(line);
    }
}

struct Commands : testing::Test {
    ScriptedRun scripted;
    Lines run(const std::string &commands) { return scripted.run(commands); }
    // The lines that begin with a text.
    Lines only(const std::string &commands, const std::string &beginning) {
        Lines lines = run(commands);
        std::erase_if(lines, [&](const std::string &line) { return !line.starts_with(beginning); });
        return lines;
    }
    static constexpr const char *started = "demarrer {APPLI} {DONNEES}\nclic frmSplash.M\n";
};

TEST_F(Commands, BlankLinesAndCommentsAreNone) {
    EXPECT_EQ(run("\n   \n# un commentaire \"sans fin mais clos\"\n\r\n"), Lines{});
}

TEST_F(Commands, LinesMayEndInCarriageReturns) {
    EXPECT_EQ(only("demarrer {APPLI} {DONNEES}\r\ntouche A\r\n", "fenetre"),
              (Lines{"fenetre frmSplash affichee", "fenetre frmSplash dechargee",
                     "fenetre Fplein affichee", "fenetre FMenu affichee"}));
}

TEST_F(Commands, EndOfInputClosesNothing) {
    EXPECT_EQ(run("demarrer {APPLI} {DONNEES}").back(), "fenetre frmSplash affichee");
    const Lines lines = run(started);
    EXPECT_EQ(lines.back(), "pointeur 0");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "fin 0"), 0);
}

TEST_F(Commands, EndOfTheProgramIsToldAndCommandsAfterItAreRefused) {
    const Lines lines = run(std::string(started) + "clic FMenu.CmdTjr(3)\nclic Fmsg1.CmdMsg(1)\n"
                                                   "clic FMenu.CmdTjr(3)\netat\n");
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[lines.size() - 3], "fin 0");
    EXPECT_EQ(lines[lines.size() - 2], "refus programme arrete");
    EXPECT_EQ(lines[lines.size() - 1], "refus programme arrete");
}

TEST_F(Commands, ProgramCanBeStartedAgainAndFindsItsSettings) {
    const std::string quit = "clic FMenu.CmdTjr(3)\nclic Fmsg1.CmdMsg(1)\n";
    const Lines lines = only(started + quit + started + quit, "fin");
    EXPECT_EQ(lines, (Lines{"fin 0", "fin 0"}));
}

TEST_F(Commands, UntrappedFailureIsToldByItsNumber) {
    EXPECT_EQ(only("demarrer {VIDE} {DONNEES}\ntouche A\n", "echec"), Lines{"echec 53"});
    EXPECT_EQ(only(std::string(started) + "clic FMenu.CmdTjr(3)\ntouche Echap\n", "echec"),
              Lines{"echec 340"});
}

TEST_F(Commands, ScreenDecidesOnTheBackdrop) {
    EXPECT_EQ(only("ecran 12000 9000\n" + std::string(started), "fenetre Fplein"), Lines{});
    EXPECT_EQ(only("ecran 12001 9000\n" + std::string(started), "fenetre Fplein"),
              Lines{"fenetre Fplein affichee"});
    EXPECT_EQ(only(started, "fenetre Fplein"), Lines{"fenetre Fplein affichee"}); // the default
}

TEST_F(Commands, DevicesAreThoseThatAreNamed) {
    const auto flags = [this](const std::string &devices) {
        ScriptedRun fresh;
        Lines lines = fresh.run(devices + started + "etat\n");
        std::erase_if(lines, [](const std::string &line) {
            return !line.starts_with("WavPresent") && !line.starts_with("MidiPresent");
        });
        return lines;
    };
    EXPECT_EQ(flags(""), (Lines{"WavPresent = 1", "MidiPresent = 1"}));
    EXPECT_EQ(flags("peripheriques\n"), (Lines{"WavPresent = 0", "MidiPresent = 0"}));
    EXPECT_EQ(flags("peripheriques wav\n"), (Lines{"WavPresent = 1", "MidiPresent = 0"}));
    EXPECT_EQ(flags("peripheriques midi\n"), (Lines{"WavPresent = 0", "MidiPresent = 1"}));
    EXPECT_EQ(flags("peripheriques wav midi\n"), (Lines{"WavPresent = 1", "MidiPresent = 1"}));
}

// A game in mode 1 with a thinking time of 20 seconds.
const std::string game = "clic FMenu.CmdTjr(2)\nclic FCHoix.Cmd(1)\nsaisir Fnom.Saisie(0) durand\n"
                         "saisir Fnom.Saisie(1) \"marie ève\"\nclic Fnom.Cmd(0)\n"
                         "clic FLstTitre.CmdTitre(1)\n";

TEST_F(Commands, WaitTakesPartsOfASecond) {
    const std::string gauge = "FMenu.FluReflec.Valeur";
    EXPECT_EQ(only(started + game + "attendre 0.9\n", gauge), Lines{});
    EXPECT_EQ(only(started + game + "attendre 0.5\nattendre 0,5\n", gauge), Lines{gauge + " = 1"});
    EXPECT_EQ(only(started + game + "attendre 2.5\nattendre .4\n", gauge),
              (Lines{gauge + " = 1", gauge + " = 2"}));
    EXPECT_EQ(only(started + game + "attendre 2.5\nattendre 0.5\n", gauge).size(), 3u);
    EXPECT_EQ(only(started + game + "attendre 0\n", gauge), Lines{});
}

TEST_F(Commands, ClockMovesByWaitingAlone) {
    const std::string date = "date 2026-12-31 23:59:58\n";
    EXPECT_EQ(only(date + started + game + "attendre 3\netat\n", "HeureDebut"),
              Lines{"HeureDebut = 23:59:58"});
    EXPECT_EQ(only(date + started + game + "attendre 3\netat\n", "HeureCourante"),
              Lines{"HeureCourante = 00:00:01"});
    EXPECT_EQ(only(date + started + game + "attendre 3\netat\n", "TempsEcoule"),
              Lines{"TempsEcoule = 00:00:03"});
}

TEST_F(Commands, RandomNumbersAreTakenInOrderAndThenZero) {
    EXPECT_EQ(only("hasard 0.75\nhasard 0.5\n" + (started + game) + "etat\n", "MotCherche(1)"),
              Lines{R"(MotCherche(1) = "PUMA")"});
    EXPECT_EQ(only(started + game + "etat\n", "MotCherche(1)"), Lines{R"(MotCherche(1) = "CHAT")"});
}

TEST_F(Commands, TypingGoesIntoTheFieldEmptiesItAndTypesAsAPersonDoes) {
    const std::string open = std::string(started) + "clic FMenu.CmdTjr(2)\nclic FCHoix.Cmd(1)\n";
    const auto fields = [this, &open](const std::string &typing) {
        return only(open + typing + "etat\n", "Fnom.Saisie(0).Text");
    };
    EXPECT_EQ(fields("saisir Fnom.Saisie(0) éloïse\n").back(), R"(Fnom.Saisie(0).Text = "ÉLOÏSE")");
    EXPECT_EQ(fields("saisir Fnom.Saisie(0) abcdefghijklmnop\n").back(),
              R"(Fnom.Saisie(0).Text = "ABCDEFGHIJKLM")");
    EXPECT_EQ(fields("saisir Fnom.Saisie(0) un\nsaisir Fnom.Saisie(0) deux\n").back(),
              R"(Fnom.Saisie(0).Text = "DEUX")");
    EXPECT_EQ(fields("saisir Fnom.Saisie(0) un\nsaisir Fnom.Saisie(0) \"\"\n").back(),
              R"(Fnom.Saisie(0).Text = "")");
}

TEST_F(Commands, KeysBearNamesOrAreOneCharacter) {
    EXPECT_EQ(only(started + game + "touche a\n", "FMenu.AffMot(0).Caption").back(),
              R"(FMenu.AffMot(0).Caption = "##A#")");
    EXPECT_EQ(only(started + game + "touche a\ntouche A\n", "parole ohoh"),
              Lines{"parole ohoh.Wav"});
    // Tab goes on to the next control, the space bar presses it.
    EXPECT_EQ(only(std::string(started) + "touche Espace\n", "fenetre FCHoix"),
              Lines{"fenetre FCHoix affichee"});
    const std::string names = std::string(started) + "clic FMenu.CmdTjr(2)\nclic FCHoix.Cmd(1)\n";
    EXPECT_EQ(
        only(names + "touche x\ntouche Retour\ntouche y\netat\n", "Fnom.Saisie(0).Text").back(),
        R"(Fnom.Saisie(0).Text = "Y")");
    EXPECT_EQ(only(names + "touche x\ntouche Tab\ntouche y\netat\n", "Fnom.Saisie(1).Text").back(),
              R"(Fnom.Saisie(1).Text = "Y")");
}

TEST_F(Commands, CoveringIsAPaintAndClosingARequest) {
    const std::string names = std::string(started) +
                              "clic FMenu.CmdTjr(2)\nclic FCHoix.Cmd(1)\nsaisir Fnom.Saisie(1) x\n";
    // The paint sends the focus home.
    EXPECT_EQ(only(names + "couvrir Fnom\ntouche z\netat\n", "Fnom.Saisie(0).Text").back(),
              R"(Fnom.Saisie(0).Text = "Z")");
    EXPECT_EQ(only(names + "fermer Fnom\n", "fenetre Fnom").back(), "fenetre Fnom cachee");
}

} // namespace grimoval::test::command_language
