// SPDX-License-Identifier: GPL-3.0-or-later
// The utility control: profile files, sound, registry, help, web addresses and documents. In the
// old style of such controls the caller sets properties, which keep their values, and then starts
// an operation by its number. It never reports a failure: the only answers that tell of one are an
// empty Valeur and the "error" of ValeurRegistre.
#pragma once

#include "platform/services.h"

namespace grimoval {

class Clvutil {
public:
    explicit Clvutil(Services &services) : services_(services) {}

    // Operations. The codes 7, 8, 10 and 11 are not used.
    enum Code {
        ecrireCle = 1,
        lireCle = 2,
        montrerAide = 3,
        jouerMidi = 4,
        arreterMidi = 5,
        jouerWav = 6,
        lireRegistre = 9,
        ouvrirSite = 12
    };
    void Action(int code);

    bool MidiDispo();
    bool WavDispo();
    void OuvrirDocument(const Texte &chemin);

    Texte FichierMidi, FichierWav;
    bool BoucleMidi = false;
    Texte FichierIni, Section, Cle, Valeur;
    Texte FichierAide;
    int RacineRegistre = 0; // 1 is the current user's branch
    Texte CleRegistre, NomRegistre, ValeurRegistre;
    Texte AdresseWeb;

    // The window that the control sits on: the control's first use loads it.
    Form *hote = nullptr;

private:
    void utiliser();
    Services &services_;
};

} // namespace grimoval
