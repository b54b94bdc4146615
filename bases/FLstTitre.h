// SPDX-License-Identifier: GPL-3.0-or-later
// The theme chooser. FLstTitre.cpp holds the window and the choice, ListeBases.cpp the check of the
// catalogue that runs each time the window opens.
#pragma once

#include "bases/GLBBASE2.h"

namespace grimoval {

class FLstTitre : public Fenetre {
public:
    FLstTitre(Globales &g, FMenu &menu);

    void CmdTitre_Click(int index); // 0 cancel, 1 OK
    void LstTitre_Click();
    void LstTitre_DblClick();
    void ChargerListeBases();
    void ValiderBase();
    void ImageParDefaut();

    Label RapTit{*this, "RapTit"};
    List LstTitre{*this, "LstTitre"};     // entries, in French order
    List LstBmpDef{*this, "LstBmpDef"};   // default pictures, IMG??.BMP
    List TmpLstFich{*this, "TmpLstFich"}; // base files that no record has claimed
    List LstFichier{*this, "LstFichier"}; // base files of the folder, *.dbs
    ControlArray<PictureButton, 0, 1> CmdTitre{*this, "CmdTitre"};

    bool ListeOk = false;
    bool ErreurListe = false;
    Texte NomFichierCourant;          // of the record in hand, in capitals, with its extension
    Texte FichierChoisi, TitreChoisi; // of the selected entry
    TypeBase EnregBase;               // the record that was read last, over all openings

protected:
    void Form_Load() override;
    void Form_Paint() override;
    void Form_KeyDown(const Key &key) override;
    void Form_QueryUnload(bool &cancel, UnloadMode mode) override;

private:
    class NomsLibres;
    void traiterErreurListe(int numero);
    void verifierListe();
    void AvertirListe();
    void examiner(bool present, std::vector<Texte> &entrees);

    FMenu &menu_;
};

} // namespace grimoval
