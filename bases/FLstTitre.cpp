// SPDX-License-Identifier: GPL-3.0-or-later
#include "bases/FLstTitre.h"

#include <cmath>

namespace grimoval {

FLstTitre::FLstTitre(Globales &globales, FMenu &menu)
    : Fenetre(globales, "FLstTitre"), menu_(menu) {
    Width = 6750;
    Height = 6300;
    parchment = true;
    Caption = Application::title;

    RapTit.place = {480, 420, 5790, 420};
    RapTit.Caption = u"Choisis un titre et appuie sur \"OK\"";
    RapTit.FontSize = 14;
    RapTit.bold = true;
    RapTit.alignment = Alignment::centre;
    LstTitre.place = {480, 960, 5790, 3900};
    LstTitre.labelledBy = &RapTit;
    LstTitre.shownColumns = 30;
    LstTitre.Click = [this] { LstTitre_Click(); };
    LstTitre.DblClick = [this] { LstTitre_DblClick(); };
    LstBmpDef.shownOnScreen = false;
    TmpLstFich.shownOnScreen = false;
    LstFichier.shownOnScreen = false;
    poserBouton(CmdTitre[1], {780, 5070, 1650, 825}, u"OK", [this] { CmdTitre_Click(1); });
    poserBouton(CmdTitre[0], {4320, 5070, 1650, 825}, u"Annuler", [this] { CmdTitre_Click(0); });
}

// Each loading begins with empty lists.
void FLstTitre::Form_Load() {
    Files &fichiers = g.services.files;
    LstBmpDef.Items = fichiers.list(g.dossiers.DossierImages, u"IMG??.BMP");
    LstFichier.Items = fichiers.list(g.dossiers.DossierBases, u"*.dbs");
    ChargerListeBases();
    CmdTitre[0].Face = g.dossiers.DossierImages + u"_Annuler_ovale.tga";
    CmdTitre[1].Face = g.dossiers.DossierImages + u"_OK_ovale.tga";
    PlacerFenetre(*this, u"C");
}

// Each time: a repaint puts the selection back on the first entry.
void FLstTitre::Form_Paint() {
    if (ListeOk) {
        setFocus(LstTitre);
        LstTitre.ListIndex = 0;
    } else {
        LstTitre.Enabled = false;
        CmdTitre[1].Inactif = true;
    }
    Fenetre::Form_Paint();
}

void FLstTitre::Form_KeyDown(const Key &key) {
    if (key.code == Key::escape) {
        CmdTitre_Click(0);
    } else if (key.code == Key::enter && !CmdTitre[1].Inactif) {
        CmdTitre_Click(1);
    }
}

void FLstTitre::Form_QueryUnload(bool &cancel, UnloadMode mode) {
    if (mode == UnloadMode::person) {
        cancel = true;
        CmdTitre_Click(0);
    }
}

// Takes the selected entry apart by position: title, file and picture stand in fixed columns.
void FLstTitre::LstTitre_Click() {
    if (LstTitre.ListIndex < 0) {
        return;
    }
    const std::u16string_view vue = LstTitre.item(LstTitre.ListIndex);
    if (vue.size() < 40) {
        return;
    }
    FichierChoisi = trim(vue.substr(30, vue.size() - 40));
    g.base.ImageBase = trim(vue.substr(vue.size() - 10));
    TitreChoisi = trim(vue.substr(0, 30));
}

void FLstTitre::LstTitre_DblClick() { CmdTitre_Click(1); }

void FLstTitre::CmdTitre_Click(int index) {
    screen().MousePointer = pointeur::sablier;
    if (index == 0) {
        unload();
        return;
    }
    FichierChoisi = trim(FichierChoisi);
    if (FichierChoisi == u"############" || FichierChoisi == u"============") {
        screen().message(u"Ce fichier est défectueux ou introuvable." + g.SautLigne + g.SautLigne +
                             u"Il est nécessaire de recréer la liste des bases.",
                         MessageIcon::exclamation);
    } else if (FichierChoisi.empty()) {
        CmdTitre[1].Inactif = true;
    } else {
        ValiderBase();
    }
}

void FLstTitre::ValiderBase() {
    // A picture file that is missing becomes a default one; any other failure is passed over, one
    // of the default picture too.
    const auto traiter = [this](int numero) {
        if (numero == failure::fileNotFound) {
            essayer([this] { ImageParDefaut(); }, [](int) {});
        }
    };
    g.services.random.seed();
    g.base.FichierBase = FichierChoisi;
    g.base.TitreBase = TitreChoisi;
    ChargerMots(g, menu_, traiter);
    menu_.VSDessin.Visible = false;
    const Texte image = trim(g.base.ImageBase);
    if (!image.empty()) {
        essayer(
            [&] {
                menu_.DessTmp.PictureFile =
                    screen().loadPicture(g.dossiers.DossierImages + insideFolder(image + u".JPG"));
            },
            traiter);
    } else {
        essayer([this] { ImageParDefaut(); }, traiter);
    }
    menu_.VSDessin.PictureFile = menu_.DessTmp.PictureFile;
    menu_.VSDessin.Visible = true;
    g.base.BaseChargee = true;
    screen().processEvents();
    unload();
}

void FLstTitre::ImageParDefaut() {
    const int nombre = LstBmpDef.ListCount();
    if (nombre >= 1) {
        // Settled: the last picture of the listing is never drawn, unless it is the only one.
        const float r = g.services.random.next();
        const int i = static_cast<int>(std::floor(static_cast<float>(nombre - 1) * r));
        menu_.DessTmp.PictureFile =
            screen().loadPicture(g.dossiers.DossierImages + LstBmpDef.item(i));
        return;
    }
    const Texte &saut = g.SautLigne;
    screen().message(u"Le Grimoval va être arrêté." + saut + saut + u"La base \"" +
                         g.base.TitreBase + u"\" n'a pas d'image" + saut +
                         u"et les images par défaut du programme sont introuvables." + saut + saut +
                         u"Veuillez réinstaller le Grimoval.",
                     MessageIcon::critical);
    g.services.application.end();
}

} // namespace grimoval
