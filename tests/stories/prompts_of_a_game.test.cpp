// SPDX-License-Identifier: GPL-3.0-or-later
// All that is heard in a whole game of each mode, from the greeting to the leave-taking, in order.
#include "support/scripts.h"

#include <gtest/gtest.h>

namespace grimoval::test::heard {

using Sounds = std::vector<std::string>;

Sounds of(const std::string &commands) {
    ScriptedRun scripted;
    Sounds sounds;
    for (const std::string &line : scripted.run("demarrer {APPLI} {DONNEES}\n" + commands)) {
        if (line.starts_with("parole ") || line.starts_with("musique ") ||
            line.starts_with("refus") || line.starts_with("fin ")) {
            sounds.push_back(line);
        }
    }
    return sounds;
}

const std::string onePlayer = "saisir Fnom.Saisie(0) durand\nsaisir Fnom.Saisie(1) zoé\n"
                              "clic Fnom.Cmd(0)\n";
const std::string secondPlayer = "saisir Fnom.Saisie(0) petit\nsaisir Fnom.Saisie(1) léo\n"
                                 "clic Fnom.Cmd(0)\n";
// The themes are "Animaux" (CHAT, LION, OURS, PUMA), then "Été (la plage)" (MER, SABLE).
const std::string toTheFirstTheme = "clic FLstTitre.CmdTitre(1)\n";
const std::string toTheSecondTheme = "choisir FLstTitre.LstTitre 1\nclic FLstTitre.CmdTitre(1)\n";
const std::string newWord = "touche Entree\n";
const std::string stopAndLeave = "clic FMenu.CmdTjr(0)\nclic FScore2.CmdScore(0)\n"
                                 "clic FMenu.CmdTjr(3)\nclic Fmsg1.CmdMsg(1)\n";

std::string keys(const std::string &letters) {
    std::string result;
    for (const char letter : letters) {
        result += std::string("touche ") + letter + "\n";
    }
    return result;
}

const Sounds beginning = {"musique CLVMID1.mid", "parole CALVENO.Wav", "parole AttCaCOm.Wav"};
const Sounds ending = {"parole Score.Wav", "parole Quitter.Wav", "parole AlaProch.Wav", "fin 0"};

Sounds between(Sounds middle) {
    middle.insert(middle.begin(), beginning.begin(), beginning.end());
    middle.insert(middle.end(), ending.begin(), ending.end());
    return middle;
}

TEST(Heard, InAGameAlone) {
    EXPECT_EQ(of("touche Espace\nclic FMenu.CmdTjr(2)\nregler FCHoix.DefReflec(1) 6\n"
                 "clic FCHoix.Cmd(1)\n" +
                 onePlayer + toTheFirstTheme + keys("zxwchat") + newWord + keys("lion") + newWord +
                 keys("zzxwkours") + newWord + "attendre 20\n" + stopAndLeave),
              between({// three errors
                       "parole CesPBon.Wav", "parole CesPBon.Wav", "parole CesPBon.Wav",
                       "parole CesBien.Wav",
                       // none
                       "parole Cestbien.Wav",
                       // four, one of them proposed twice
                       "parole CesPBon.Wav", "parole ohoh.Wav", "parole CesPBon.Wav",
                       "parole CesPBon.Wav", "parole CesPBon.Wav", "parole Cesmoy.Wav",
                       // the time is over
                       "parole TropTar.Wav"}));
}

TEST(Heard, InAGameOfTwoOnOneWord) {
    EXPECT_EQ(of("touche Espace\nclic FMenu.CmdTjr(2)\nclic FCHoix.CmdNbPlay(1)\n"
                 "clic FCHoix.Cmd(1)\n" +
                 onePlayer + secondPlayer + toTheSecondTheme + keys("mz") + "attendre 20\n" +
                 keys("er") + newWord + keys("s") + stopAndLeave),
              between({// a wrong letter, a letter too late, and the word all the same
                       "parole CesPBon.Wav", "parole TropTar.Wav", "parole CesBien.Wav"}));
}

TEST(Heard, InAGameOfTwoEachWithAWord) {
    EXPECT_EQ(of("touche Espace\nclic FMenu.CmdTjr(2)\nclic FCHoix.CmdNbPlay(2)\n"
                 "regler FCHoix.DefReflec(1) 2\nclic FCHoix.Cmd(1)\n" +
                 onePlayer + secondPlayer + toTheFirstTheme + keys("chat") + keys("zx") + newWord +
                 "attendre 20\nclic FMenu.CmdJeux(2)\n" + stopAndLeave),
              between({// with two errors allowed the first word is found without one
                       "parole Cesmoy.Wav",
                       // the second is lost by them
                       "parole CesPBon.Wav", "parole CesPBon.Wav", "parole FauFaEff.Wav",
                       // the next pair: one too late, one given up
                       "parole TropTar.Wav", "parole FauFaEff.Wav"}));
}

} // namespace grimoval::test::heard
