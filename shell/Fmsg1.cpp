// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Fmsg1.h"

namespace grimoval {

Fmsg1::Fmsg1(Globales &globales) : Fenetre(globales, "Fmsg1") {
    Width = 5355;
    Height = 2070;
    parchment = true;
    centred = true;
    Caption = Application::title;

    TxtMsg.place = {240, 600, 4935, 495};
    TxtMsg.Caption = u"Veux-tu vraiment quitter ?";
    TxtMsg.FontSize = 16;
    TxtMsg.bold = true;
    TxtMsg.alignment = Alignment::centre;
    poserBouton(CmdMsg[1], {480, 1200, 1500, 750}, u"OK", [this] { CmdMsg_Click(1); });
    poserBouton(CmdMsg[2], {3360, 1200, 1500, 750}, u"Annuler", [this] { CmdMsg_Click(2); });
    for (PictureButton &bouton : CmdMsg) {
        bouton.Visible = false;
    }
    BmpMsg.place = {2640, 1320, 600, 615};
    MinutFlash.Interval = 500;
}

void Fmsg1::CmdMsg_Click(int index) {
    // By index, in the numbering of the platform's message box: OK, Yes, No, Cancel.
    static constexpr int reponses[] = {1, 6, 7, 2};
    screen().MousePointer = pointeur::sablier;
    if (index >= 0 && index <= 3) {
        g.ReponseFenetre = reponses[index];
    }
    unload();
}

void Fmsg1::Form_KeyPress(Int16 &keyAscii) {
    if (keyAscii == Key::enter) {
        CmdMsg_Click(CmdMsg[1].Visible ? 1 : 0);
    }
}

void Fmsg1::Form_KeyDown(const Key &key) {
    // Settled: the window holds no button 0, so Escape ends the program by failure 340. It is not a
    // way of saying no here.
    if (key.code == Key::escape && CmdMsg[0].Visible) {
        CmdMsg_Click(0);
    }
}

void Fmsg1::Form_Unload() { g.FenetreModale = false; }

void AfficherMessage(Globales &g, Fmsg1 &fenetre, const Texte &texte, const Int16 &genre,
                     const Int16 & /*defaut*/, const Texte & /*titre*/) {
    auto &bouton = fenetre.CmdMsg;
    g.FenetreModale = true;
    g.services.screen.MousePointer = pointeur::sablier;
    fenetre.load();
    bouton[2].Face = g.dossiers.DossierImages + u"_Annuler_ovale.tga";
    bouton[1].Face = g.dossiers.DossierImages + u"_OK_ovale.tga";
    fenetre.TxtMsg.Caption = texte;
    switch (genre) {
    case 1:
        bouton[0].Visible = true;
        break;
    case 2:
        bouton[1].Visible = true;
        bouton[2].Visible = true;
        break;
    case 3:
        bouton[2].place.left = bouton[0].place.left;
        bouton[3].place.top = bouton[0].place.top;
        for (g.IndiceBoucle = 1; g.IndiceBoucle <= 3; g.IndiceBoucle += 1) {
            bouton[g.IndiceBoucle].Visible = true;
        }
        break;
    default:
        break;
    }
    fenetre.showModal();
    fenetre.unload();
}

void DemanderQuitter(Globales &g, Fmsg1 &fenetre) {
    AfficherMessage(g, fenetre, u"Veux-tu vraiment quitter ?", 2, 1, u"");
}

} // namespace grimoval
