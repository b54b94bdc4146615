// SPDX-License-Identifier: GPL-3.0-or-later
// A command that cannot be carried out is refused with its reason, and the script goes on.
#include "platform/files.h"
#include "support/scripts.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace grimoval::test::command_refusals {

using Lines = std::vector<std::string>;

struct Row {
    const char *command, *reason; // nullptr: it is carried out
};

Lines refusals(const std::string &commands) {
    ScriptedRun scripted;
    Lines lines = scripted.run(commands);
    std::erase_if(lines, [](const std::string &line) { return !line.starts_with("refus"); });
    return lines;
}

// After a preparation, what becomes of each command: those that are refused one after the other, as
// they change nothing, and each of the others alone.
void check(const std::string &before, const std::vector<Row> &rows) {
    std::string refused = before;
    Lines reasons;
    for (const Row &row : rows) {
        if (row.reason == nullptr) {
            EXPECT_EQ(refusals(before + row.command + "\n"), Lines{}) << row.command;
        } else {
            refused += std::string(row.command) + "\n";
            reasons.push_back("refus " + std::string(row.reason));
        }
    }
    EXPECT_EQ(refusals(refused), reasons);
}

const std::string started = "demarrer {APPLI} {DONNEES}\nclic frmSplash.M\n";
const std::string chosen = started + "clic FMenu.CmdTjr(2)\n";
const std::string named = chosen + "clic FCHoix.Cmd(1)\n";
const std::string themed =
    named + "saisir Fnom.Saisie(0) un\nsaisir Fnom.Saisie(1) deux\nclic Fnom.Cmd(0)\n";
const std::string playing = themed + "clic FLstTitre.CmdTitre(1)\n";

TEST(Refused, BeforeTheStartAreCommandsToAProgramAndWrongSurroundings) {
    check("", {{"etat", "programme arrete"},
               {"clic FMenu.CmdTjr(2)", "programme arrete"},
               {"attendre 1", "programme arrete"},
               {"touche A", "programme arrete"},
               {"inconnu", "programme arrete"},
               {"\"sans fin", "guillemet sans fin"},
               {"demarrer {APPLI}", "arguments"},
               {"demarrer", "arguments"},
               {"demarrer {APPLI} {DONNEES} de-trop", "arguments"},
               {"ecran 15360", "arguments"},
               {"ecran 0 100", "arguments"},
               {"ecran -5 100", "arguments"},
               {"ecran 1.5 100", "arguments"},
               {"ecran large haut", "arguments"},
               {"ecran 15360 11520", nullptr},
               {"date 2026-03-07", "date"},
               {"date 2026-13-07 00:00:00", "date"},
               {"date 2026-03-07 24:00:00", "date"},
               {"date 2026-03-07 12:60:00", "date"},
               {"date 2026-03-07 12:00:00x", "date"},
               {"date 2026-03-07 12:00:00", nullptr},
               {"hasard 1", "nombre hors de 0 a 1"},
               {"hasard -0.1", "nombre hors de 0 a 1"},
               {"hasard 0.2 deux", "nombre hors de 0 a 1"},
               {"hasard 0 0.999", nullptr},
               {"hasard", nullptr},
               {"peripheriques radio", "peripherique inconnu"},
               {"peripheriques wav midi", nullptr},
               {"imprimante 11000 120", "arguments"},
               {"imprimante 11000 120 -1", "arguments"},
               {"imprimante a b c", "arguments"},
               {"imprimante 11000 120 240", nullptr}});
}

TEST(Refused, AfterTheStartAreWhatComesBeforeItAndWhatIsUnknown) {
    check(started, {{"demarrer {APPLI} {DONNEES}", "programme en marche"},
                    {"ecran 15360 11520", "programme en marche"},
                    {"peripheriques wav", "programme en marche"},
                    {"imprimante 1 1 1", "programme en marche"},
                    {"date 2026-03-07 12:00:00", nullptr},
                    {"hasard 0.5", nullptr},
                    {"inconnu", "commande inconnue"},
                    {"inconnu FMenu.CmdTjr(2)", "commande inconnue"},
                    {"clic", "commande inconnue"},
                    {"clic FMenu.CmdTjr(2) encore", "commande inconnue"},
                    {"etat encore", "commande inconnue"},
                    {"attendre", "commande inconnue"},
                    {"attendre -1", "duree"},
                    {"attendre longtemps", "duree"},
                    {"attendre 1e8", "duree"},
                    {"touche", "commande inconnue"},
                    {"touche F1", "touche inconnue"},
                    {"touche entree", "touche inconnue"},
                    {"touche Entree", nullptr},
                    {"clic FMenu.CmdTjr(9)", "controle inconnu"},
                    {"clic FMenu.cmdtjr(2)", "controle inconnu"},
                    {"clic FAbout.CmdABout(0)", "controle inconnu"},
                    {"clic CmdTjr(2)", "controle inconnu"},
                    {"fermer FAbout", "fenetre inconnue"},
                    {"couvrir FMenus", "fenetre inconnue"},
                    {"couvrir FMenu", nullptr}});
}

TEST(Refused, AreActionsThatTheControlDoesNotTake) {
    check(started, {{"clic FMenu.CmdTjr(0)", "commande sans prise"},  // greyed
                    {"clic FMenu.CmdJeux(2)", "commande sans prise"}, // hidden
                    {"clic FMenu.VsAlpha(0)", "commande sans prise"}, // disabled
                    {"clic FMenu.VsAlphabis(0)", "commande sans prise"},
                    {"clic FMenu.FluReflec", "commande sans prise"},
                    {"clic FMenu.AffMot(0)", "commande sans prise"},
                    {"clic FMenu.LstMot(0)", "commande sans prise"},
                    {"clic FMenu.MinutHorloge", "commande sans prise"},
                    {"double-clic FMenu.CmdTjr(2)", "commande sans prise"},
                    {"double-clic FMenu.LstMot(0)", "commande sans prise"},
                    {"saisir FMenu.AffMot(0) texte", "commande sans prise"},
                    {"choisir FMenu.CmdTjr(2) 0", "commande sans prise"},
                    {"choisir FMenu.LstMot(0) 0", "commande sans prise"},
                    {"choisir FMenu.LstMot(0) un", "nombre"},
                    {"regler FMenu.CmdTjr(2) 5", "commande sans prise"},
                    {"regler FMenu.CmdTjr(2) 1.5", "nombre"},
                    {"clic FMenu.Image1", nullptr},
                    {"clic FMenu.CmdTjr(1)", nullptr}});
    check(playing, {{"clic FMenu.CmdTjr(2)", "commande sans prise"},
                    {"clic FMenu.CmdBase", "commande sans prise"},
                    {"clic FMenu.VsAlpha(0)", nullptr},
                    {"clic FMenu.CmdJeux(1)", nullptr}});
}

TEST(Refused, AreCommandsToAWindowThatIsCoveredOrHidden) {
    check(chosen, {{"clic FMenu.CmdTjr(3)", "fenetre couverte"},
                   {"fermer FMenu", "fenetre couverte"},
                   {"couvrir FMenu", "fenetre couverte"},
                   {"clic FMenu.VsAlpha(0)", "fenetre couverte"},
                   {"clic FCHoix.ConfActive", nullptr},
                   {"regler FCHoix.DefReflec(0) 60", nullptr},
                   {"regler FCHoix.DefReflec(0) soixante", "nombre"}});
    check(named, {{"clic FCHoix.Cmd(0)", "fenetre couverte"},
                  {"clic FMenu.CmdTjr(3)", "fenetre couverte"},
                  {"clic Fnom.Cmd(0)", "commande sans prise"}, // greyed
                  {"saisir Fnom.Cmd(0) texte", "commande sans prise"},
                  {"saisir Fnom.Saisie(0) texte", nullptr}});
    check(named + "clic Fnom.Cmd(1)\n", {{"saisir Fnom.Saisie(0) texte", "fenetre cachee"},
                                         {"clic Fnom.Cmd(1)", "fenetre cachee"},
                                         {"fermer Fnom", "fenetre cachee"}});
    check(themed, {{"choisir FLstTitre.LstTitre 2", "commande sans prise"},
                   {"choisir FLstTitre.LstTitre -1", "commande sans prise"},
                   {"choisir FLstTitre.LstFichier 0", "commande sans prise"},
                   {"choisir FLstTitre.LstTitre 1", nullptr},
                   {"double-clic FLstTitre.LstTitre", nullptr}});
}

TEST(Refused, DoubleClickOnADisabledListIs) {
    ScriptedRun scripted;
    // Without any base the list of titles is disabled.
    Files files;
    files.remove(scripted.folder.path(u"appli/MASK/ANIMAUX.DBS"));
    files.remove(scripted.folder.path(u"appli/MASK/ETE.DBS"));
    const Lines lines =
        scripted.run(started + "clic FMenu.CmdBase\ndouble-clic FLstTitre.LstTitre\n");
    EXPECT_EQ(lines.back(), "refus commande sans prise");
}

TEST(Refused, ChangesNothing) {
    ScriptedRun scripted, other;
    const auto state = [](const Lines &lines) {
        return Lines(
            std::find_if(lines.begin(), lines.end(),
                         [](const std::string &line) { return line.starts_with("TitreAppli"); }),
            lines.end());
    };
    const Lines plain = state(scripted.run(playing + "etat\n"));
    const Lines refused = state(other.run(playing + "clic FMenu.CmdTjr(2)\ntouche F1\n"
                                                    "choisir FMenu.LstMot(0) 1\nattendre -1\n"
                                                    "fermer FCHoix\netat\n"));
    EXPECT_GT(plain.size(), 200u);
    EXPECT_EQ(plain, refused);
}

} // namespace grimoval::test::command_refusals
