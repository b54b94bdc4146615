// SPDX-License-Identifier: GPL-3.0-or-later
// grimbases beside a game, as a package installs them: the bases lie elsewhere, behind a link.
#pragma once

#include "support/game.h"
#include "support/process.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <set>

namespace grimoval::test {

// What a game offers: titles and the words of each.
using Offer = std::map<std::string, std::vector<std::string>>;

struct InstalledGame : testing::Test {
    TemporaryFolder folder;
    const Texte game = u"usr/share/games/grimoval/", var = u"var/games/grimoval/";

    // MASK is not made yet.
    explicit InstalledGame(const std::string &program) {
        namespace fs = std::filesystem;
        folder.makeFolder(u"usr/bin");
        fs::copy_file(program, in(u"usr/bin/grimbases"));
        folder.makeFolder(u"var/games/grimoval");
        folder.write(game + u"IMAGES/MER.JPG", "image");
        fs::create_directory_symlink("../../../../var/games/grimoval/MASK", in(game + u"MASK"));
        shipped(u"MER.txt", "Titre : La mer\nImage : MER\nDAUPHIN\nBALEINE\n");
        shipped(u"CIEL.txt", "Titre : Le ciel\nNUAGE\n");
    }

    void shipped(const Texte &name, const std::string &text) const {
        folder.write(game + u"mots/" + name, text);
    }
    std::string list(const Texte &name, const std::string &text) const {
        folder.write(u"classe/" + name, text);
        return in(u"classe/" + name);
    }
    std::string in(const Texte &name) const { return folder.bytePath(name); }

    Answer run(std::vector<std::string> words,
               const std::vector<std::string> &settings = {}) const {
        words.insert(words.begin(), in(u"usr/bin/grimbases"));
        return test::run(words, settings);
    }
    void good(const std::vector<std::string> &words) const {
        const Answer answer = run(words);
        EXPECT_EQ(answer.status, 0) << answer.errors;
    }

    // A base that no list made, with a record of its own unless it has no title.
    void byHand(const Texte &stem, const Texte &title, const std::vector<Texte> &words) const {
        const Texte mask = var + u"MASK/";
        folder.write(mask + stem + u".DBS", wordRecords(words));
        if (!title.empty()) {
            const std::string list = folder.read(mask + u"GRIMV.LST");
            const int number = static_cast<int>(list.size() / 52) + 1;
            folder.write(mask + u"GRIMV.LST",
                         list + baseRecord(number, static_cast<int>(words.size()), stem, title));
        }
    }

    // Names in a folder, without those of the folders.
    std::vector<std::string> names(const Texte &name) const {
        std::vector<std::string> all;
        for (const std::string &path : folder.list()) {
            if (path.starts_with(toUtf8(name)) && !path.ends_with('/')) {
                all.push_back(path.substr(name.size()));
            }
        }
        return all;
    }

    // As the game reads the folder: each message that it would show is a failure of the test.
    Offer offered() const {
        Game player;
        player.g.dossiers.DossierBases = folder.path(game + u"MASK/");
        player.g.dossiers.DossierImages = folder.path(game + u"IMAGES/");
        player.titles.show();
        for (const auto &message : player.windows.messages) {
            ADD_FAILURE() << toUtf8(message.text);
        }
        Offer offer;
        for (const Texte &entry : player.titles.LstTitre.Items.get()) {
            player.g.base.FichierBase = trim(entry.substr(30, entry.size() - 40));
            ChargerMots(player.g, player.menu, [](int number) { throw Failure(number); });
            std::vector<std::string> &words = offer[toUtf8(trim(entry.substr(0, 30)))];
            EXPECT_TRUE(words.empty()) << "a title stands twice";
            for (const Texte &word : player.menu.LstMot[0].Items.get()) {
                words.push_back(toUtf8(word));
            }
        }
        return offer;
    }
};

inline const Offer shippedOffer{{"La mer", {"DAUPHIN", "BALEINE"}}, {"Le ciel", {"NUAGE"}}};

} // namespace grimoval::test
