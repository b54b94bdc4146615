// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/GLBPAROL.h"

#include <algorithm>
#include <cmath>

namespace grimoval {

namespace {

struct Parole {
    int numero;
    const char16_t *fichier;         // nullptr: the file of the last prompt stays set
    const char16_t *autre = nullptr; // drawn instead of the first, one time in two
};

// Those that no event plays are kept: the sound folder holds them, and only this table names them.
constexpr Parole paroles[] = {
    {1, u"CALVENO.Wav"},
    {3, u"Quitter.Wav"},
    {4, u"TPEUQIPO.Wav"},
    {6, u"TropTar.Wav", u"PaassRap.Wav"},
    {7, u"TropTar.Wav", u"PaassRap.Wav"},
    {8, u"Score.Wav"},
    {9, u"CesaiPrg.Wav"},
    {10, u"StoArexe.Wav"},
    {12, u"AlaProch.Wav", u"Salut1.Wav"},
    {13, u" "},
    {14, u"AttCaCOm.Wav"},
    {15, u"CesPBon.Wav"},
    {16, u"CesBien.Wav"},
    {17, u"Cestbien.Wav"},
    {18, u"Cesmoy.Wav"},
    {19, u"FauFaEff.Wav"},
    {20, u"Aideexer.Wav"},
    {21, u"confexer.Wav"},
    {24, u"Aurevoir.Wav"},
    {25, nullptr},
};

bool paroleMuette(const Globales &g) { return (g.son.WavPresent & g.son.ParoleActive) == 0; }

} // namespace

void JouerParole(Globales &g, const Int16 &numero) {
    if (paroleMuette(g)) {
        return;
    }
    const auto *parole = std::find_if(std::begin(paroles), std::end(paroles),
                                      [&](const Parole &p) { return p.numero == numero; });
    if (parole == std::end(paroles)) {
        // A developer's alarm: no event plays such a number.
        g.services.screen.message(u"Lulu tu as deconné !", MessageIcon::information);
    } else if (parole->fichier != nullptr) {
        const bool premier =
            parole->autre == nullptr || std::floor(2 * g.services.random.next() + 1) == 1;
        g.VBTINI.FichierWav = g.dossiers.DossierSons + (premier ? parole->fichier : parole->autre);
    }
    g.VBTINI.Action(Clvutil::jouerWav);
}

void JouerErreur(Globales &g) {
    if (paroleMuette(g)) {
        return;
    }
    g.VBTINI.FichierWav = g.dossiers.DossierSons + u"ohoh.Wav";
    g.VBTINI.Action(Clvutil::jouerWav);
}

void JouerMusique(Globales &g) {
    if ((g.son.MidiPresent & g.son.MusiqueActive) == 0) {
        g.VBTINI.Action(Clvutil::arreterMidi);
        return;
    }
    g.VBTINI.FichierMidi = g.dossiers.DossierSons + u"CLVMID1.mid";
    g.VBTINI.BoucleMidi = true;
    g.VBTINI.Action(Clvutil::jouerMidi);
}

} // namespace grimoval
