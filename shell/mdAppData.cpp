// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/mdAppData.h"

namespace grimoval {

namespace {
void creerSiAbsent(Files &fichiers, const Texte &dossier) {
    if (fichiers.folderExists(dossier)) {
        return;
    }
    try {
        fichiers.makeFolder(dossier);
    } catch (const Failure &) {
        // Another game on this account may have made it just now.
        if (!fichiers.folderExists(dossier)) {
            throw;
        }
    }
}
} // namespace

void TrouverDossierUtilisateur(Globales &g) {
    g.VBTINI.RacineRegistre = 1;
    g.VBTINI.CleRegistre = u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
    g.VBTINI.NomRegistre = u"AppData";
    g.VBTINI.Action(Clvutil::lireRegistre);
    Texte &dossier = g.dossiers.DossierUtilisateur;
    if (g.VBTINI.ValeurRegistre == u"error") {
        // Settled: without a separator at its end, so that the files of such an installation stand
        // beside the application's folder, under names that begin with its own.
        dossier = g.services.application.path();
        return;
    }
    dossier = asFolder(g.VBTINI.ValeurRegistre);
    dossier += u"Calvenor";
    dossier += separator;
    creerSiAbsent(g.services.files, dossier);
    dossier += Application::title;
    dossier += separator;
    creerSiAbsent(g.services.files, dossier);
}

bool DefinirRepertoires(Globales &g) {
    Dossiers &d = g.dossiers;
    d.DossierBases = asFolder(d.DossierAppli + u"MASK");
    d.DossierSons = asFolder(d.DossierAppli + u"SONS");
    d.DossierImages = asFolder(d.DossierAppli + u"IMAGES");
    d.DossierTemp = d.DossierUtilisateur;
    d.DossierScore = d.DossierUtilisateur;
    return true;
}

} // namespace grimoval
