// SPDX-License-Identifier: GPL-3.0-or-later
// The score window, which closes a game: it shows what each player did, writes the game's record
// when it is left, prints the report, and clears the counters when it goes.
//   FScore2.cpp       the window and its table
//   FichierScore.cpp  the record in the monthly log
//   Rapport.cpp       the printed page
#pragma once

#include "shell/CSTOUT1.h"

namespace grimoval {

class FScore2 : public Fenetre {
public:
    explicit FScore2(Globales &g);

    void RemplirTableau();
    void CmdScore_Click(int index); // 0 leave, 1 print
    void EcrireScore();
    // The session ends and nobody will leave the window: the record that Escape would write, of a
    // running game too, at once and without a word. Touches no window; a failure is lost.
    void FinirSession();
    void ImprimerScore();

    ControlArray<Label, 0, 3> Etiquette{*this, "Etiquette"};
    ControlArray<Label, 0, 3> Resultat{*this, "Resultat"};
    Table LstScore{*this, "LstScore"};
    ControlArray<PictureButton, 0, 1> CmdScore{*this, "CmdScore"};

    // The record is written only while both are set, so at most once.
    bool PartieAEcrire = false, ScoreNonEcrit = false;
    Texte Horodatage;        // the moment of opening
    double HauteurLigne = 0; // of the printer's font, in its page unit
    double LargeurCar = 0;

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_KeyDown(const Key &key) override;
    void Form_Unload() override;

private:
    // A label and the value of each player.
    struct Ligne {
        Texte etiquette;
        std::array<Int16, 2> valeurs;
    };
    std::vector<Ligne> lignesDuTableau() const;
    Int16 motsNonTrouves(std::size_t joueur) const;
    Texte ligneDeSeparation();
    Texte composer(const Texte &separation);
    void inscrire(const Texte &separation); // fails as the files do
    void imprimerEntete(Pen &plume);
    void imprimerTable(Pen &plume);

    bool tentee_ = false; // the record has been tried, which is done once
};

// Blanks at both ends go, and the text is stored back at the left of its field.
Texte rangerNom(FixedText<15> &champ);

// "Samedi, 07 mars 2026 à 14:05:09": French names whatever the system's language.
Texte dateEnTouteLettre(const DateTime &moment);

// The program's name as scores and reports bear it.
Texte titreDuJournal(const Globales &g);

} // namespace grimoval
