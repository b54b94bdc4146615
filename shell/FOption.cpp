// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FOption.h"

#include "shell/GLBPAROL.h"
#include "shell/mdClvUtil.h"

namespace grimoval {

FOption::FOption(Globales &globales) : Fenetre(globales, "FOption") {
    Width = 4395;
    Height = 2880;
    parchment = true;
    Caption = Application::title;

    // clang-format off
    EtiquetteTitre.place = {600,  480, 3465, 315};
    Etiquette[0].place   = {1440,  840, 1935, 315};
    Etiquette[1].place   = {1440, 1320, 1935, 315};
    ConfTSons[0].place   = {1250,  900,  200, 240};
    ConfTSons[1].place   = {1250, 1350,  200, 240};
    // clang-format on
    EtiquetteTitre.Caption = u"Activer / Désactiver";
    EtiquetteTitre.FontSize = 14;
    EtiquetteTitre.bold = true;
    EtiquetteTitre.alignment = Alignment::centre;
    Etiquette[0].Caption = u"Musique";
    Etiquette[1].Caption = u"Parole";
    for (int i = 0; i < 2; ++i) {
        Etiquette[i].FontSize = 14;
        Etiquette[i].Click = [this, i] { Etiquette_Click(i); };
        ConfTSons[i].labelledBy = &Etiquette[i];
        ConfTSons[i].Click = [this, i] { ConfTSons_Click(i); };
    }
    poserBouton(Cmd[0], {240, 1920, 1500, 750}, u"OK", [this] { Cmd_Click(0); });
    poserBouton(Cmd[1], {2640, 1920, 1500, 750}, u"Annuler", [this] { Cmd_Click(1); });
}

void FOption::Form_Load() {
    Cmd[1].Face = g.dossiers.DossierImages + u"_Annuler_ovale.tga";
    Cmd[0].Face = g.dossiers.DossierImages + u"_OK_ovale.tga";
    PlacerFenetre(*this, u"C");
}

void FOption::Form_Activate() {
    ChoixMusique = 0;
    ChoixParole = 0;
    const auto montrer = [this](int index, Int16 present, Int16 actif, Int16 &choix) {
        if (present != 0) {
            choix = actif;
            ConfTSons[index].Value = actif;
        } else {
            ConfTSons[index].Enabled = false;
            ConfTSons[index].Value = 0;
        }
    };
    montrer(0, g.son.MidiPresent, g.son.MusiqueActive, ChoixMusique);
    montrer(1, g.son.WavPresent, g.son.ParoleActive, ChoixParole);
}

void FOption::ConfTSons_Click(int index) {
    (index == 0 ? ChoixMusique : ChoixParole) = ConfTSons[index].Value.get();
}

// Settled: the word flips a box that is disabled, too.
void FOption::Etiquette_Click(int index) {
    ConfTSons[index].Value = ConfTSons[index].Value == 0 ? 1 : 0;
}

void FOption::Cmd_Click(int index) {
    if (index == 0) {
        if (g.son.MusiqueActive != ChoixMusique) {
            g.son.MusiqueActive = ChoixMusique;
            EcrireConfigSon(g, 2);
            if (g.son.MusiqueActive == 0) {
                g.VBTINI.Action(Clvutil::arreterMidi);
            } else {
                JouerMusique(g);
            }
        }
        g.son.ParoleActive = ChoixParole;
        EcrireConfigSon(g, 1);
    }
    unload();
}

// Settled: Escape confirms. Only a click on the second button abandons the changes.
void FOption::Form_KeyDown(const Key &key) {
    if (key.code == Key::escape) {
        Cmd_Click(0);
    }
}

void FOption::Form_QueryUnload(bool &cancel, UnloadMode mode) {
    if (mode == UnloadMode::person) {
        cancel = true;
        Cmd_Click(1);
    }
}

void FOption::Form_Unload() {
    g.TexteMessage.clear();
    ChoixMusique = 0;
    ChoixParole = 0;
}

} // namespace grimoval
