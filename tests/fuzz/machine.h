// SPDX-License-Identifier: GPL-3.0-or-later
// The program over a folder of its own, for one input: windows that only keep what was asked of
// them.
#pragma once

#include "fuzz/targets.h"
#include "support/program.h"

namespace grimoval::fuzz {

struct Windows : test::NoWindows {
    std::vector<Message> messages;
    std::vector<Texte> pictures;        // that were asked for
    std::function<void(Form &)> person; // with a modal window

    void message(const Message &message) override { messages.push_back(message); }
    void checkPicture(const Texte &path) override { pictures.push_back(path); }
    void runModal(Form &form) override {
        if (person) {
            person(form);
        }
        form.unload();
    }
};

struct Machine : Windows, test::Program {
    Machine() : test::Program(static_cast<Windows &>(*this)) {
        folder.makeFolder(u"IMAGES");
        folder.makeFolder(u"moi");
        g.dossiers.DossierImages = asFolder(folder.path(u"IMAGES"));
        g.dossiers.DossierUtilisateur = asFolder(folder.path(u"moi"));
        g.dossiers.DossierTemp = g.dossiers.DossierScore = g.dossiers.DossierUtilisateur;
        g.TitreAppli = u"Le Grimoval ";
    }

    FMenu &menu = windows.menu;
    FLstTitre &titles = windows.titres;
};

// A record as a person counts bytes, without a look at the types of the program.
struct PlainRecord {
    std::string_view bytes;

    int number(std::size_t place) const {
        const int value = static_cast<unsigned char>(bytes[place]) +
                          256 * static_cast<unsigned char>(bytes[place + 1]);
        return value < 32768 ? value : value - 65536;
    }
    // Without the blanks at both ends.
    std::string text(std::size_t place, std::size_t width) const {
        std::string text(bytes.substr(place, width));
        text.erase(text.find_last_not_of(' ') + 1);
        text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
        return text;
    }
};

inline std::vector<PlainRecord> plainRecords(std::string_view bytes, std::size_t length) {
    std::vector<PlainRecord> records;
    for (; bytes.size() >= length; bytes.remove_prefix(length)) {
        records.push_back({bytes.substr(0, length)});
    }
    return records;
}

} // namespace grimoval::fuzz
