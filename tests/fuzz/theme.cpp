// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/sources.h"
#include "support/temporary_folder.h"
#include "tools/bases/listes.h"
#include "tools/bases/noms.h"

namespace grimoval::fuzz {

namespace {

void good(const outils::Theme &theme) {
    law(outils::estUneRacine(theme.fichier), "a base has a name that leads nowhere else");
    law(theme.image.empty() || outils::estUneRacine(theme.image), "so has a picture");
    law(!theme.titre.empty() && theme.titre.size() <= 30, "a title has its place");
    law(fromAnsi(toAnsi(theme.titre)) == theme.titre, "a title can be written");
    law(!theme.entrees.empty() && theme.entrees.size() <= 32767, "there are words");
    for (const outils::Theme::Entree &entry : theme.entrees) {
        law(outils::defautDeLEntree(entry.texte).empty(), "each entry can be played");
        law(fromAnsi(toAnsi(entry.texte)) == entry.texte, "each entry can be written");
        law(trim(entry.texte) == entry.texte, "blanks around an entry do not count");
    }
}

void same(const outils::Theme &one, const outils::Theme &other) {
    law(one.titre == other.titre && one.image == other.image && one.niveau == other.niveau &&
            one.origine == other.origine && wordsOf(one) == wordsOf(other),
        "a theme that is written reads as itself");
}

} // namespace

// The first line is the file's name, the rest its content.
void theme(std::string_view bytes) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    const Texte name = outils::nomSeul(fromUtf8(bytes.substr(0, end)));
    const std::string content(bytes.substr(std::min(end + 1, bytes.size())));
    outils::Problemes problems;
    const outils::Theme theme = outils::lireTexte(content, name, problems);
    printable(problems);
    law(outils::estUneRacine(theme.fichier), "any name makes the stem of a base");
    if (outils::graves(problems)) {
        return;
    }
    good(theme);

    outils::Problemes none;
    same(theme, outils::lireTexte(outils::ecrireTheme(theme), u"AUTRE.txt", none));
    law(!outils::graves(none), "a theme that is written is good");

    const test::TemporaryFolder folder;
    Files files;
    folder.makeFolder(u"MASK");
    folder.makeFolder(u"listes");
    const outils::Lieu place = outils::lieuDe(files, folder.path(u"MASK"));
    outils::garder(files, place, theme);
    outils::construireBases(files, {theme}, place.masque);
    const std::string stem = toUtf8(theme.fichier);
    std::vector<std::string> made = {"MASK/", "MASK/GRIMV.LST", "MASK/" + stem + ".DBS", "listes/",
                                     "listes/" + stem + ".txt"};
    std::sort(made.begin(), made.end());
    law(folder.list() == made, "a list and a base are made, and nothing else");
    law(outils::verifierBases(files, place.masque).empty(), "the base that is made is good");
    const std::vector<TypeBase> bases = outils::lireCatalogue(files, place.masque);
    law(bases.size() == 1 && outils::titreDe(bases[0]) == trim(theme.titre), "it has its title");
    std::vector<Texte> words;
    for (const TypeMot &word : outils::lireMots(files, place.masque, bases[0])) {
        words.push_back(trim(word.Mot.text()));
    }
    law(words == wordsOf(theme), "it has its words");
}

} // namespace grimoval::fuzz
