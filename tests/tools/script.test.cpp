// SPDX-License-Identifier: GPL-3.0-or-later
// The language of grimoval-script: its words, its refusals, its end.
#include "support/game.h"
#include "tools/script/commands.h"

#include <gtest/gtest.h>
#include <sstream>

namespace grimoval::test {
namespace {

// An installation of one theme, and what the tool answers to a script on it.
struct Tool : Game {
    Tool() {
        install({{u"UN", u"Premier thème", {u"OIE", u"AMI"}}});
        write(u"IMAGES/IMG01.BMP", "BM");
    }
    Events run(const std::string &script) {
        std::istringstream input(script);
        std::ostringstream output;
        script::Interpreter(input, output).run();
        Events lines;
        std::istringstream text(output.str());
        for (std::string line; std::getline(text, line);) {
            lines.push_back(line);
        }
        return lines;
    }
    std::string begin() {
        return "demarrer " + toUtf8(folder.path(u"grimoval")) + " " +
               toUtf8(folder.path(u"donnees")) + "\n";
    }
    // From the splash to a word in play, alone, by keyboard.
    std::string play() {
        return begin() +
               "touche Espace\ntouche Espace\nclic FCHoix.Cmd(1)\nsaisir Fnom.Saisie(0) A\n"
               "touche Entree\nsaisir Fnom.Saisie(1) B\ntouche Entree\ntouche Entree\n";
    }
};

bool holds(const Events &events, const std::string &line) {
    return std::find(events.begin(), events.end(), line) != events.end();
}

TEST(ScriptWords, ArePartedByBlanksAndGroupedByQuotes) {
    const auto words = [](const Texte &line) { return *script::splitCommand(line); };
    using Words = std::vector<Texte>;
    EXPECT_EQ(words(u"clic FMenu.CmdTjr(2)"), (Words{u"clic", u"FMenu.CmdTjr(2)"}));
    EXPECT_EQ(words(u"  saisir  a \"b c\" "), (Words{u"saisir", u"a", u"b c"}));
    EXPECT_EQ(words(u"saisir a \"\""), (Words{u"saisir", u"a", u""}));
    EXPECT_EQ(words(u"x \"a \\\"b\\\" \\\\ c\""), (Words{u"x", u"a \"b\" \\ c"}));
    EXPECT_EQ(words(u""), Words{});
    EXPECT_FALSE(script::splitCommand(u"saisir a \"b").has_value());
}

TEST(Script, TheSplashWaitsAndTheEndOfInputClosesNothing) {
    Tool tool;
    const Events events = tool.run(tool.begin() + "attendre 3600\n");
    EXPECT_TRUE(holds(events, "fenetre frmSplash affichee"));
    EXPECT_FALSE(holds(events, "fenetre frmSplash dechargee"));
    EXPECT_TRUE(only(events, "fin").empty());
}

TEST(Script, BlankLinesAndCommentsAreLeftOutAndAnOpenQuoteIsRefused) {
    Tool tool;
    EXPECT_EQ(tool.run("\n# rien\r\n   \n"), Events{});
    EXPECT_EQ(tool.run("date \"2026\n"), Events{"refus guillemet sans fin"});
}

TEST(Script, ACommandThatCannotBeCarriedOutIsRefusedAndTheScriptGoesOn) {
    Tool tool;
    const std::string outside[] = {
        "clic FMenu.CmdTjr(2)",     "etat",     "ecran 0 5",  "ecran 1",
        "date 2026-13-01 00:00:00", "hasard 1", "hasard oui", "peripheriques lumiere",
        "imprimante 1 2",           "demarrer"};
    for (const std::string &line : outside) {
        const Events events = tool.run(line + "\n");
        ASSERT_EQ(events.size(), 1u) << line;
        EXPECT_TRUE(events[0].starts_with("refus ")) << line;
    }
    const std::string inside[] = {"clic FMenu.Rien",
                                  "clic FCHoix.Cmd(0)", // not loaded
                                  "clic FMenu.CmdTjr(0)",
                                  "clic FMenu.FluReflec",
                                  "double-clic FMenu.RapTit",
                                  "choisir FMenu.LstMot(0) 0",
                                  "regler FMenu.FluReflec 3",
                                  "saisir FMenu.AffMot(0) x",
                                  "fermer FRien",
                                  "touche Trop",
                                  "attendre -1",
                                  "chanter",
                                  "ecran 12000 9000",
                                  "demarrer a b"};
    for (const std::string &line : inside) {
        const Events events = tool.run(tool.begin() + "touche Espace\n" + line + "\nattendre 0\n");
        EXPECT_TRUE(events.back().starts_with("refus ")) << line << ": " << events.back();
    }
}

TEST(Script, ACommandToAWindowUnderAModalOneIsRefused) {
    Tool tool;
    const std::string under = tool.begin() + "touche Espace\nclic FMenu.CmdCfg(1)\n";
    for (const std::string line : {"clic FMenu.CmdTjr(3)", "fermer FMenu", "couvrir FMenu"}) {
        EXPECT_EQ(tool.run(under + line + "\n").back(), "refus fenetre couverte") << line;
    }
}

TEST(Script, ADoubleClickOnADisabledListIsRefused) {
    Tool tool;
    tool.files.remove(tool.folder.path(u"grimoval/MASK/UN.DBS")); // the chooser opens empty
    EXPECT_EQ(tool.run(tool.begin() + "touche Espace\nclic FMenu.CmdBase\n"
                                      "double-clic FLstTitre.LstTitre\n")
                  .back(),
              "refus commande sans prise");
}

TEST(Script, PartsOfASecondPassForTheGauge) {
    Tool tool;
    const std::string start = tool.play() + "attendre 0.5\n";
    EXPECT_FALSE(holds(tool.run(start + "attendre 0.4\n"), "FMenu.FluReflec.Valeur = 1"));
    EXPECT_TRUE(holds(tool.run(start + "attendre 0.5\n"), "FMenu.FluReflec.Valeur = 1"));
    EXPECT_TRUE(holds(tool.run(start + "attendre 2.5\n"), "FMenu.FluReflec.Valeur = 3"));
}

TEST(Script, NumbersAreTakenInTheirOrderThenZero) {
    Tool tool;
    EXPECT_TRUE(holds(tool.run("hasard 0.75\n" + tool.play() + "etat\n"),
                      "MotCherche(1) = \"OIE\"")); // the picture takes the first number
    EXPECT_TRUE(
        holds(tool.run("hasard 0 0.75\n" + tool.play() + "etat\n"), "MotCherche(1) = \"AMI\""));
}

TEST(Script, TheStateTellsVariablesSettingsScoreAndEveryControl) {
    Tool tool;
    const Events events =
        tool.run("date 2026-03-07 14:05:09\n" + tool.play() + "touche I\nattendre 2\netat\n");
    for (const char *line :
         {"NombreJoueur = 1", "RéflexionLimite = 1", "BaseChargee = Vrai",
          "TitreBase = \"Premier thème\"", "NomJoueur(2) = \"B              \"", "Score(1) = 1",
          "BonnesLettres(1) = 1", "MotAffiche(1) = \"#I#\"", "PartieEnCours = Vrai",
          "TempsEcoule = 00:00:02", "FMenu.AffMot(0).Caption = \"#I#\"",
          "FMenu.AffMot(0).ForeColor = #0000FF", "FMenu.VsAlpha(8).DisabledPicture = \"I.trouvee\"",
          "FMenu.VsAlpha(0).Picture = \"A.libre\"", "FMenu.LstMot(1).Items = \"AMI\"",
          "FMenu.CmdTjr(0).Inactif = Vrai", "FMenu.FluReflec.EnMarche = Vrai"}) {
        EXPECT_TRUE(holds(events, line)) << line;
    }
}

TEST(Script, AnUntrappedFailureEndsTheProgramAndAnotherCanBegin) {
    Tool tool;
    tool.files.remove(tool.folder.path(u"grimoval/MASK/GRIMV.LST"));
    const Events events =
        tool.run(tool.begin() + "touche Espace\nclic FMenu.CmdTjr(2)\n" + tool.begin());
    EXPECT_TRUE(holds(events, "echec 53"));
    EXPECT_TRUE(holds(events, "refus programme arrete"));
    EXPECT_EQ(events.back(), "fenetre frmSplash affichee");
}

TEST(Script, WhatIsWrittenBearsTheScriptedTime) {
    Tool tool;
    tool.run("date 2031-07-14 08:00:00\n" + tool.begin() + "touche Espace\n");
    EXPECT_EQ(tool.files.lastWrite(tool.folder.path(u"donnees/Calvenor/Le Grimoval/GRIMOVA.INI")),
              (DateTime{2031, 7, 14, 8, 0, 0}));
}

} // namespace
} // namespace grimoval::test
