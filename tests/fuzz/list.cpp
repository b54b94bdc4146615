// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/machine.h"
#include "tools/bases/catalogue.h"

#include <algorithm>
#include <map>
#include <set>

namespace grimoval::fuzz {

namespace {

// The folder that the list is read over, and what the names in it stand for.
const std::map<std::string, std::string> folder = {
    {"A.DBS", std::string(84, 'A')},
    {"MER.dbs", std::string(168, 'M')},
    {"VIDE.DBS", ""},
    {"B_1-2345.DBS", std::string(3 * 84 + 10, 'B')},
};
constexpr const char *outside = "DEHORS.DBS";

std::string capitals(std::string_view text) { return toAnsi(upper(fromAnsi(text))); }

// What the chooser must offer, told a second time.
struct Offer {
    explicit Offer(std::string_view bytes) {
        const std::vector<PlainRecord> records = plainRecords(bytes, 52);
        if (records.empty() || records.back().number(0) != static_cast<int>(records.size())) {
            return;
        }
        std::map<std::string, std::size_t> free; // and the words of each
        for (const auto &[name, content] : folder) {
            free[capitals(name)] = content.size() / 84;
        }
        for (const PlainRecord &record : records) {
            if (free.empty()) {
                break;
            }
            const std::string file = capitals(record.text(4, 8)) + ".DBS";
            const auto found = free.find(file);
            const bool alive = record.number(50) != 0;
            const std::size_t words = found == free.end() ? 0 : found->second;
            if (found != free.end()) {
                free.erase(found);
            }
            if (alive && words > 0 && record.number(2) == static_cast<int>(words)) {
                bases.insert({record.text(12, 30), file, record.text(42, 8)});
                places.insert(file);
            }
        }
    }
    std::multiset<std::array<std::string, 3>> bases; // title, file, picture
    std::set<std::string> places;
};

void install(Machine &machine, std::string_view bytes) {
    for (const auto &[name, content] : folder) {
        machine.folder.write(u"MASK/" + fromAnsi(name), content);
    }
    machine.folder.write(fromAnsi(outside), std::string(84, 'X'));
    machine.folder.write(u"IMAGES/IMG01.BMP", "BM");
    machine.folder.write(u"MASK/GRIMV.LST", std::string(bytes));
}

// Nothing comes and nothing changes but the list itself, which may go.
void unharmed(Machine &machine) {
    std::size_t there = 0;
    for (const std::string &name : machine.folder.list()) {
        const std::string_view path = name;
        if (path.ends_with('/') || path == "MASK/GRIMV.LST" || path == "IMAGES/IMG01.BMP" ||
            path == outside) {
            continue;
        }
        const auto base =
            folder.find(std::string(path.substr(std::min<std::size_t>(5, path.size()))));
        law(path.starts_with("MASK/") && base != folder.end(), "no file is made");
        law(machine.folder.read(fromAnsi(path)) == base->second, "a base stays what it is");
        ++there;
    }
    law(there == folder.size(), "no base goes");
}

// A message is a sentence, not what a list puts into it.
void choose(Machine &machine, int item) {
    machine.pictures.clear();
    machine.titles.load();
    machine.titles.LstTitre.ListIndex = item;
    machine.titles.CmdTitre_Click(1);
    const Globales &g = machine.g;
    const auto chosen = std::find_if(folder.begin(), folder.end(), [&](const auto &base) {
        return capitals(base.first) == toAnsi(g.base.FichierBase);
    });
    law(chosen != folder.end(), "what is chosen is a base of the folder");
    law(machine.menu.LstMot[0].ListCount() == static_cast<int>(chosen->second.size() / 84),
        "its words are loaded");
    law(g.base.BaseChargee, "the base is chosen");
    const Texte &images = g.dossiers.DossierImages;
    for (const Texte &picture : machine.pictures) {
        law(picture.starts_with(images) &&
                picture.find_first_of(u"/\\", images.size()) == Texte::npos,
            "a picture lies in its folder");
    }
}

} // namespace

void list(std::string_view bytes) {
    Machine machine;
    install(machine, bytes);
    const Offer offer(bytes);
    const bool sound =
        !outils::graves(outils::verifierBases(machine.files, machine.g.dossiers.DossierBases));
    bool ended = false;
    try {
        machine.titles.load();
    } catch (const ProgramEnd &) {
        ended = true;
    }
    law(ended == offer.bases.empty(), "the program ends where there is nothing to choose");
    law(!sound || (!ended && machine.messages.empty()), "what the tool finds good is offered");
    unharmed(machine);
    if (ended) {
        return;
    }
    std::multiset<std::array<std::string, 3>> read;
    for (const Texte &entry : machine.titles.LstTitre.Items.get()) {
        law(entry.size() > 80, "an entry has its columns");
        read.insert({toAnsi(trim(entry.substr(0, 30))),
                     toAnsi(trim(entry.substr(80, entry.size() - 98))),
                     toAnsi(trim(entry.substr(entry.size() - 8)))});
    }
    law(read == offer.bases, "the chooser offers what the records tell");
    for (int item = 0; item < static_cast<int>(read.size()); ++item) {
        choose(machine, item);
    }
    unharmed(machine);
}

} // namespace grimoval::fuzz
