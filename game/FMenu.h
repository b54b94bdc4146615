// SPDX-License-Identifier: GPL-3.0-or-later
// The main window: every command of the game arrives here, and the word in play lives here. One
// class over several files, one for each matter:
//   FMenu.cpp          controls, loading, keys of the window
//   FMenuCommandes.cpp the commands and the state of the buttons
//   FMenuTirage.cpp    the drawing of words
//   FMenuLettres.cpp   masks, letters good and wrong
//   FMenuTemps.cpp     thinking time, turns, the clock
//   FMenuFinDeMot.cpp  end of word, scores, players on view
//   FMenuVoile.cpp     the curtain over the theme's picture
#pragma once

#include "shell/CSTOUT1.h"

namespace grimoval {

class FMenu : public Fenetre {
public:
    explicit FMenu(Globales &g);

    // What commands open.
    struct Fenetres {
        Form *FLstTitre = nullptr, *FCHoix = nullptr, *FOption = nullptr, *FAbout = nullptr,
             *FScore2 = nullptr;
        std::function<void()> DemanderQuitter; // leaves its answer in ReponseFenetre
    };
    Fenetres fenetres;

    // Commands.
    void CmdTjr_Click(int index);
    void CmdJeux_Click(int index);
    void CmdCfg_Click(int index);
    void CmdBase_Click();
    void lblAbout_Click();
    void Image1_Click();
    void InitialiserMot();

    // Drawing of words.
    void PreparerListe();
    bool TirerMot(); // false: the list is used up, and the game has been stopped

    // Letters.
    void MasquerMot();
    void ActiverLettres();
    void DesactiverLettres();
    void VsAlpha_Click(int index);
    void IndiceDeLettre(char16_t lettre);
    void ProposerLettre(char16_t lettre);

    // Thinking time and turns.
    void ArreterFlux();
    void RelancerFlux();
    void ChangerJoueur();
    void MinutHorloge_Timer();
    void FluReflec_Progression();
    void FluReflec_Fin();

    // End of word and scores.
    void VerifierFinMot();
    void FinDeMot();
    void AfficherScore();
    bool AfficherJoueurs(); // true when the names allow a game

    // The curtain.
    void AvancerVoile();

    ControlArray<Label, 2, 3> Bord{*this, "Bord"};
    Picture VSDessin{*this, "VSDessin"};
    Shape Shape1{*this, "Shape1"};
    Picture DessTmp{*this, "DessTmp"};
    Label RapTit{*this, "RapTit"};
    ControlArray<Label, 1, 2> Rappel{*this, "Rappel"};
    ControlArray<Label, 0, 1> ImgScore{*this, "ImgScore"};
    Gauge FluReflec{*this, "FluReflec"};
    Gauge FluxScore{*this, "FluxScore"};
    ControlArray<Label, 0, 1> AffMot{*this, "AffMot"};
    ControlArray<PictureButton, 0, 3> CmdTjr{*this, "CmdTjr"};
    ControlArray<PictureButton, 0, 2> CmdJeux{*this, "CmdJeux"};
    PictureButton CmdBase{*this, "CmdBase"};
    ControlArray<PictureButton, 0, 1> CmdCfg{*this, "CmdCfg"};
    PictureButton lblAbout{*this, "lblAbout"};
    Picture Image1{*this, "Image1"};
    ControlArray<LetterButton, 0, 25> VsAlpha{*this, "VsAlpha"};
    ControlArray<LetterButton, 0, 25> VsAlphabis{*this, "VsAlphabis"};
    ControlArray<List, 0, 1> LstMot{*this, "LstMot"}; // all words; those left in this game
    Timer MinutHorloge{*this, "MinutHorloge"};

    // The word in play; slots 1 and 2, the second for player 2 in mode 3.
    std::array<Texte, 3> MotCherche, MotAffiche;
    std::array<Int16, 3> LongueurMot; // leading characters in play
    std::array<Int16, 3> NbLettres;   // masked at the start
    std::array<Int16, 3> ErreursMot;  // by player
    Int16 JoueurCourant = 1;
    Int16 IndiceLettre; // 0 to 25
    Int16 IndiceTirage; // of the last word drawn
    bool BonneLettre = false;
    bool PartieEnCours = false;
    bool FluxActif = false;    // the gauge is meant to run
    bool FluxArme = false;     // an end of the gauge is a time-out
    bool MessageEchec = false; // a lost word is spoken of
    int HeureLancement = 0;    // seconds of the day

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_QueryUnload(bool &cancel, UnloadMode mode) override;
    void Form_KeyPress(Int16 &keyAscii) override;

private:
    void dessiner();
    void brancher();
    void NouvellePartie();
    void StopperPartie();
    void NouveauMot();
    void AbandonnerMot();
    bool configurer(); // true: the settings and names stand
    void desarmerFlux();
    void afficherInvitation();
    void tirerDans(std::size_t slot);
    void masquer(std::size_t slot);
    void rendreMot(); // the word of slot 1 can come again in this game
    void reglerVoile();
    void montrerNoms();
    void montrerMode(); // what belongs to one mode alone
    void inviterJoueur(int joueur);
    std::size_t slotDuJoueur() const;
    bool limite() const { return g.reglages.RéflexionLimite != 0; }
    bool parMot() const { return g.reglages.NombreJoueur != 2; } // modes 1 and 3
};

} // namespace grimoval
