// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FAbout.h"

#include "shell/Createur.h"

namespace grimoval {

FAbout::FAbout(Globales &globales) : Fenetre(globales, "FAbout") {
    Width = 5715;
    Height = 5370;
    titleBar = true;

    // clang-format off
    Txt[0].place      = {360,   360, 4995,  900};
    VsAbout[2].place  = {360,  1680, 5055,  375};
    Txt[1].place      = {360,  2160, 4995,  330};
    Txt[2].place      = {480,  2520, 4875, 1290};
    // clang-format on
    Txt[0].FontSize = 26;
    Txt[0].bold = true;
    Txt[0].alignment = Alignment::centre;
    Txt[0].look = Label::Look::title;
    Txt[1].FontSize = 12;
    Txt[2].FontSize = 11;
    Txt[2].wraps = true;
    VsAbout[2].FontSize = 13;
    VsAbout[2].alignment = Alignment::centre;
    for (Label *texte : {&Txt[0], &Txt[1], &Txt[2], &VsAbout[2]}) {
        texte->ForeColor = colours::white;
    }
    poserBouton(CmdABout[0], {480, 3840, 1200, 1200}, u"OK", [this] { CmdABout_Click(0); });
    poserBouton(CmdABout[1], {4080, 3840, 1200, 1200}, u"Site internet",
                [this] { CmdABout_Click(1); });
    Command2.place = {1800, 4560, 2160, 480};
    Command2.accessibleName = u"ECRIRE AU SUPPORT TECHNIQUE";
    Command2.Click = [this] { Command2_Click(); };
}

void FAbout::Form_Load() {
    RemplirAPropos();
    PlacerFenetre(*this, u"C");
}

void FAbout::RemplirAPropos() {
    VsAbout[2].Caption = createur::ligne;
    Caption = u"A propos de l'application : " + g.TitreAppli;
    Txt[0].Caption = g.TitreAppli;
    Txt[1].Caption = u"Pour tous renseignements et remarques :";
    g.TexteMessage = createur::nom + g.SautLigne + u"FRANCE" + g.SautLigne + g.SautLigne +
                     u"support technique : " + createur::courriel + g.SautLigne +
                     u"site internet : " + createur::site;
    Txt[2].Caption = g.TexteMessage;
    g.TexteMessage.clear();
}

void FAbout::Form_Activate() {
    CmdABout[0].Face = g.dossiers.DossierImages + u"_OK.tga";
    CmdABout[1].Face = g.dossiers.DossierImages + u"_Apropos2.tga";
}

void FAbout::Form_Paint() {
    if (g.BoutonSite) {
        setFocus(CmdABout[1]);
    } else {
        CmdABout[1].Visible = false;
        CmdABout[0].place.left = (Width - CmdABout[0].place.width) / 2;
    }
    Fenetre::Form_Paint();
}

void FAbout::Form_KeyDown(const Key &key) {
    if (key.code == Key::escape) {
        CmdABout_Click(0);
    }
}

void FAbout::CmdABout_Click(int index) {
    if (index == 1) {
        g.VBTINI.AdresseWeb = createur::site;
        g.VBTINI.Action(Clvutil::ouvrirSite);
    } else {
        unload();
    }
}

// The address is handed over as it stands; the separator before the body is "?&", and the subject
// carries the version on purpose.
void FAbout::Command2_Click() {
    const Texte version = decimal(Application::major) + u"." + decimal(Application::minor) + u"." +
                          decimal(Application::revision);
    g.services.documents.writeMail(
        u"mailto:" + Texte(createur::courriel) + u"?Subject=" + Application::title + u" " +
        version +
        u"?&body=Veuillez saisir votre message et merci de ne pas modifier le titre "
        u"(sujet/subject)");
}

} // namespace grimoval
