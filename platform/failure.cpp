// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/failure.h"

namespace grimoval {

namespace {
struct Meaning {
    int number;
    const char16_t *text;
};

constexpr Meaning meanings[] = {
    {failure::overflow, u"Un nombre est devenu trop grand."},
    {failure::outOfMemory, u"Un fichier est trop gros pour être lu."},
    {failure::divisionByZero, u"Une division par zéro a été demandée."},
    {failure::internal, u"Une erreur interne est survenue."},
    {failure::badFileNameOrNumber, u"Le nom d'un fichier est incorrect."},
    {failure::fileNotFound, u"Un fichier est introuvable."},
    {failure::fileAlreadyOpen, u"Un fichier est déjà ouvert."},
    {failure::deviceError, u"Le disque n'a pas pu être lu ou écrit."},
    {failure::fileAlreadyExists, u"Un fichier existe déjà."},
    {failure::diskFull, u"Le disque est plein."},
    {failure::inputPastEnd, u"Un fichier est plus court que prévu."},
    {failure::badRecordNumber, u"Un enregistrement n'existe pas."},
    {failure::badFileName, u"Le nom d'un fichier est incorrect."},
    {failure::tooManyFiles, u"Trop de fichiers sont ouverts."},
    {failure::deviceUnavailable, u"Un disque n'est pas disponible."},
    {failure::permissionDenied, u"L'accès à un fichier est refusé."},
    {failure::diskNotReady, u"Un disque n'est pas prêt."},
    {failure::pathAccess, u"Un dossier ou un fichier ne peut pas être utilisé."},
    {failure::pathNotFound, u"Un dossier est introuvable."},
    {failure::noSuchElement, u"Un bouton de la fenêtre n'existe pas."},
    {failure::windowUnloaded, u"Une fenêtre a été fermée."},
    {failure::invalidPropertyValue, u"Un réglage a une valeur incorrecte."},
    {failure::invalidPicture, u"Une image est illisible."},
    {failure::printerError, u"L'imprimante ne répond pas."},
};
} // namespace

Texte failureMeaning(int number) {
    for (const Meaning &meaning : meanings) {
        if (meaning.number == number) {
            return meaning.text;
        }
    }
    return u"Une erreur inattendue est survenue.";
}

} // namespace grimoval
