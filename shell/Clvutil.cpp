// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Clvutil.h"

#include "platform/profile.h"

namespace grimoval {

void Clvutil::utiliser() {
    if (hote != nullptr) {
        hote->load();
    }
}

void Clvutil::Action(int code) {
    utiliser();
    switch (code) {
    case ecrireCle:
        writeProfile(services_.files, FichierIni, Section, Cle, Valeur);
        break;
    case lireCle:
        Valeur = readProfile(services_.files, FichierIni, Section, Cle);
        break;
    case montrerAide:
        services_.documents.showHelp(FichierAide, Cle);
        break;
    case jouerMidi:
        services_.sound.playMidi(FichierMidi, BoucleMidi);
        break;
    case arreterMidi:
        services_.sound.stopMidi();
        break;
    case jouerWav:
        services_.sound.playWave(FichierWav);
        break;
    case lireRegistre: {
        // There is no registry here: the one value that is asked for is the system's place for a
        // user's application data.
        const bool connue = RacineRegistre == 1 && NomRegistre == u"AppData";
        const auto dossier = connue ? services_.application.userDataFolder() : std::nullopt;
        ValeurRegistre = dossier.value_or(u"error");
        break;
    }
    case ouvrirSite:
        services_.documents.openWeb(AdresseWeb);
        break;
    default:
        break;
    }
}

bool Clvutil::MidiDispo() {
    utiliser();
    return services_.sound.midiAvailable();
}

bool Clvutil::WavDispo() {
    utiliser();
    return services_.sound.waveAvailable();
}

void Clvutil::OuvrirDocument(const Texte &chemin) {
    utiliser();
    services_.documents.openDocument(chemin);
}

} // namespace grimoval
