// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/machine.h"
#include "fuzz/sources.h"
#include "tools/bases/commandes.h"
#include "tools/bases/noms.h"

#include <array>

namespace grimoval::fuzz {

namespace {

constexpr std::array<const char16_t *, 3> bases = {u"MASK/A.DBS", u"MASK/MER.dbs", u"MASK/CON.DBS"};

struct Answer {
    int status;
    std::string said;
};

Answer call(int (*command)(outils::Appel &), const std::vector<Texte> &words) {
    std::ostringstream output, errors;
    outils::Appel call{{}, words, u"grimbases", output, errors, {}};
    int status = 0;
    try {
        status = command(call);
    } catch (const outils::Arret &stop) {
        status = stop.statut;
        errors << toUtf8(stop.texte);
    }
    printable(output.str());
    printable(errors.str());
    return {status, output.str() + errors.str()};
}

std::vector<std::string> contents(const test::TemporaryFolder &folder) {
    std::vector<std::string> all;
    for (const std::string &name : folder.list()) {
        all.push_back(name.ends_with('/') ? name : name + "=" + folder.read(fromUtf8(name)));
    }
    return all;
}

// Of each title, its words.
using Offer = std::multimap<Texte, std::vector<Texte>>;

Offer offered(Machine &machine, const Texte &folder) {
    machine.g.dossiers.DossierBases = folder;
    machine.folder.write(u"IMAGES/IMG01.BMP", "BM");
    machine.titles.load();
    const int number = machine.titles.LstTitre.ListCount();
    Offer offer;
    for (int item = 0; item < number; ++item) {
        machine.titles.load();
        machine.titles.LstTitre.ListIndex = item;
        machine.titles.CmdTitre_Click(1);
        offer.emplace(machine.g.base.TitreBase, machine.menu.LstMot[0].Items.get());
    }
    return offer;
}

void remake(Machine &machine) {
    const Texte mask = machine.g.dossiers.DossierBases;
    std::vector<std::string> before;
    for (const char16_t *name : bases) {
        before.push_back(machine.folder.read(name));
    }
    const bool empty = before.front().size() < 84;
    const std::string said = call(outils::refaire, {mask}).said;
    for (std::size_t i = 0; i < bases.size(); ++i) {
        law(machine.folder.read(bases[i]) == before[i], "who remakes loses no base");
    }
    law(empty || offered(machine, mask).size() == bases.size(), "what was remade can be played");
    law(empty || machine.messages.empty(), "what was remade is played without a word");
    law(empty == (said.find("ni liste de mots ni base") != std::string::npos),
        "there is nothing to remake, or it is remade");
}

} // namespace

// The first byte is the number of records of the list, which follow; the rest stands in each base.
void grimbases(std::string_view bytes) {
    if (bytes.empty()) {
        return;
    }
    const std::size_t length = std::min<std::size_t>(
        bytes.size() - 1, (static_cast<unsigned char>(bytes[0]) % 8) * std::size_t{52});
    const auto lay = [&](Machine &machine) {
        machine.folder.write(u"MASK/GRIMV.LST", std::string(bytes.substr(1, length)));
        for (const char16_t *name : bases) {
            machine.folder.write(name, std::string(bytes.substr(1 + length)));
        }
    };
    {
        Machine another;
        lay(another);
        remake(another);
    }
    Machine machine;
    lay(machine);
    const Texte mask = machine.g.dossiers.DossierBases;
    const std::vector<std::string> before = contents(machine.folder);
    const bool good = call(outils::verifier, {mask}).status == outils::bon;
    call(outils::lister, {mask});
    law(contents(machine.folder) == before, "who looks changes nothing");

    const test::TemporaryFolder elsewhere;
    const bool extracted =
        call(outils::extraire, {mask, elsewhere.path(u"sources")}).status == outils::bon;
    law(contents(machine.folder) == before, "who takes out changes nothing");
    std::vector<outils::Theme> themes;
    outils::Problemes problems;
    for (const std::string &name : elsewhere.list()) {
        if (!name.ends_with('/')) {
            law(name.starts_with("sources/") && name.find('/', 8) == std::string::npos &&
                    name.ends_with(".txt"),
                "a source is made in the folder that was named");
            themes.push_back(
                outils::lireTheme(machine.files, elsewhere.path(fromUtf8(name)), problems));
        }
    }
    if (!good) {
        return;
    }
    const Offer offer = offered(machine, mask);
    law(machine.messages.empty(), "what is found good is played without a word");
    law(!offer.empty(), "what is found good can be played");
    if (!extracted || !problems.empty()) {
        return;
    }
    // Blanks in a row, or a title in two of the themes, are no difference to a source.
    elsewhere.makeFolder(u"MASK");
    outils::construireBases(machine.files, themes, elsewhere.path(u"MASK"));
    law(offered(machine, asFolder(elsewhere.path(u"MASK"))).size() == themes.size(),
        "what was taken out can be put in again");
}

} // namespace grimoval::fuzz
