// SPDX-License-Identifier: GPL-3.0-or-later
// The situations of the catalogue GRIMV.LST when the theme chooser opens: what is shown, letter for
// letter, whether the program stops, and what is left on the disk.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::catalogue_exits {

const std::string listText =
    R"(Le fichier GRIMV.LST est introuvable ou défectueux.\n\n)"
    R"(Pour assurer le bon fonctionnement du \"Grimoval\" :\n)"
    R"( Il est nécessaire de recréer la liste des bases, avec le programme de Gestion des Bases.)";
const std::string warning =
    R"(message critique "Le Grimoval" "Attention ! les informations concernant les fichiers de )"
    R"(bases sont erronés.\nIl est vivement conseillé de recréer la liste des bases.")";

std::string listMessage(int number) {
    return R"(message critique "ERREUR : )" + std::to_string(number) + R"(" ")" + listText + "\"";
}

// The chooser as it opens, and what it leaves.
struct Outcome {
    bool stopped = false;
    Events said; // message boxes and beeps
    std::string entries;
    bool open = false; // the list and OK can be used
    std::vector<std::string> disk;
};

struct CatalogueExit : testing::Test {
    Game game;

    void list(const std::string &bytes) { game.write(u"MASK/GRIMV.LST", bytes); }
    void base(const Texte &file, int words) {
        game.write(u"MASK/" + file, std::string(static_cast<std::size_t>(words) * 84, ' '));
    }
    Outcome open() {
        Outcome outcome;
        game.windows.take();
        FLstTitre &window = game.titles;
        try {
            window.show();
            outcome.open = window.LstTitre.Enabled && !window.CmdTitre[1].Inactif;
            outcome.entries = titles();
            window.unload();
        } catch (const ProgramEnd &end) {
            outcome.stopped = true;
            EXPECT_EQ(end.status, 0);
        }
        for (const std::string &event : game.windows.take()) {
            if (event.starts_with("message") || event == "bip") {
                outcome.said.push_back(event);
            }
        }
        for (const std::string &name : game.folder.list()) {
            if (!name.ends_with("/")) {
                outcome.disk.push_back(name.substr(name.find_last_of('/') + 1));
            }
        }
        return outcome;
    }
    std::string titles() {
        std::string text;
        for (const Texte &entry : game.titles.LstTitre.Items.get()) {
            text += (text.empty() ? "" : ", ") + toUtf8(trim(entry.substr(0, 30)));
        }
        return text;
    }
};

using Disk = std::vector<std::string>;

TEST_F(CatalogueExit, ListMissingStopsTheProgramAndLeavesNoList) {
    base(u"A.DBS", 2);
    const Outcome outcome = open();
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.said, (Events{"bip", listMessage(1601)}));
    EXPECT_EQ(outcome.disk, Disk{"A.DBS"});
}

TEST_F(CatalogueExit, ListEmptyStopsTheProgramAndLeavesNoList) {
    base(u"A.DBS", 2);
    list("");
    const Outcome outcome = open();
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.said, (Events{"bip", listMessage(1601)}));
    EXPECT_EQ(outcome.disk, Disk{"A.DBS"});
}

TEST_F(CatalogueExit, ListMissingIsToldBeforeTheWantOfBases) {
    const Outcome outcome = open();
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.said, (Events{"bip", listMessage(1601)}));
    EXPECT_EQ(outcome.disk, Disk{});
}

TEST_F(CatalogueExit, ListShorterThanARecordStopsTheProgramAndStays) {
    base(u"A.DBS", 2);
    for (const std::size_t length : {std::size_t{1}, std::size_t{51}}) {
        list(std::string(length, ' '));
        const Outcome outcome = open();
        EXPECT_TRUE(outcome.stopped);
        EXPECT_EQ(outcome.said, (Events{"bip", listMessage(63)}));
        EXPECT_EQ(outcome.disk, (Disk{"A.DBS", "GRIMV.LST"}));
        game.titles.unload();
    }
}

TEST_F(CatalogueExit, NumberOfTheLastRecordWrongStopsTheProgramAndTheListStays) {
    base(u"A.DBS", 2);
    base(u"B.DBS", 2);
    const std::string bytes = baseRecord(1, 2, u"A") + baseRecord(3, 2, u"B");
    list(bytes);
    const Outcome outcome = open();
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.said, (Events{"bip", listMessage(1601)}));
    EXPECT_EQ(outcome.disk, (Disk{"A.DBS", "B.DBS", "GRIMV.LST"}));
    EXPECT_EQ(game.bytes(u"MASK/GRIMV.LST"), bytes);
}

TEST_F(CatalogueExit, NoBaseFileAtAllOpensTheChooserEmpty) {
    list(baseRecord(1, 2, u"A"));
    game.write(u"MASK/A.TXT", "");
    const Outcome outcome = open();
    EXPECT_FALSE(outcome.stopped);
    EXPECT_EQ(
        outcome.said,
        Events{"message information \"Le Grimoval\" \"Aucun fichier de bases .DBS n'est trouvé "
               "dans le répertoire " +
               toUtf8(game.g.dossiers.DossierBases) + "\""});
    EXPECT_FALSE(outcome.open);
    EXPECT_EQ(outcome.entries, "");
    EXPECT_EQ(outcome.disk, (Disk{"A.TXT", "GRIMV.LST"}));
}

TEST_F(CatalogueExit, OneRecordWrongIsWarnedOfOnceAndMissingFromTheChooser) {
    base(u"A.DBS", 2);
    base(u"B.DBS", 3);
    base(u"C.DBS", 4);
    list(baseRecord(1, 2, u"A", u"Un") + baseRecord(2, 99, u"B", u"Deux") +
         baseRecord(3, 4, u"C", u"Trois"));
    const Outcome outcome = open();
    EXPECT_FALSE(outcome.stopped);
    EXPECT_EQ(outcome.said, Events{warning});
    EXPECT_TRUE(outcome.open);
    EXPECT_EQ(outcome.entries, "Trois, Un");
    EXPECT_EQ(outcome.disk, (Disk{"A.DBS", "B.DBS", "C.DBS", "GRIMV.LST"}));
}

TEST_F(CatalogueExit, ThreeRecordsWrongAreWarnedOfThreeTimes) {
    base(u"A.DBS", 2);
    base(u"B.DBS", 3);
    list(baseRecord(1, 9, u"A") + baseRecord(2, 0, u"B") + baseRecord(3, 1, u"ABSENT") +
         baseRecord(4, 1, u"AUSSI"));
    base(u"AUSSI.DBS", 1);
    const Outcome outcome = open();
    EXPECT_EQ(outcome.said, (Events{warning, warning, warning}));
    EXPECT_EQ(outcome.entries, "Titre");
}

TEST_F(CatalogueExit, NoRecordGoodWarnsOfEachDeletesTheListAndStopsTheProgram) {
    base(u"A.DBS", 2);
    base(u"B.DBS", 3);
    list(baseRecord(1, 9, u"A") + baseRecord(2, 9, u"B"));
    const Outcome outcome = open();
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.said, (Events{warning, warning}));
    EXPECT_EQ(outcome.disk, (Disk{"A.DBS", "B.DBS"}));
    EXPECT_TRUE(game.titles.CmdTitre[1].Inactif);
    EXPECT_FALSE(game.titles.LstTitre.Enabled);
}

TEST_F(CatalogueExit, EveryRecordDeadStopsTheProgramWithoutAMessage) {
    base(u"AUTRE.DBS", 2);
    list(baseRecord(1, 2, u"A", u"Titre", u"", 0));
    const Outcome outcome = open();
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.said, Events{});
    EXPECT_EQ(outcome.disk, Disk{"AUTRE.DBS"});
}

TEST_F(CatalogueExit, AllGoodOpensTheChooserAndLeavesNoWorkCopy) {
    base(u"A.DBS", 2);
    list(baseRecord(1, 2, u"A"));
    const Outcome outcome = open();
    EXPECT_FALSE(outcome.stopped);
    EXPECT_EQ(outcome.said, Events{});
    EXPECT_TRUE(outcome.open);
    EXPECT_EQ(outcome.disk, (Disk{"A.DBS", "GRIMV.LST"}));
}

TEST_F(CatalogueExit, MoreThan32767RecordsAreAnOverflowAndThenARecordWithoutANumber) {
    base(u"A.DBS", 2);
    list(std::string(52 * 32768, ' '));
    const Outcome outcome = open();
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.said,
              (Events{"bip", R"(message critique "ERREUR : 6" "L'ERREUR 6 est survenue.")", "bip",
                      listMessage(63)}));
    EXPECT_EQ(outcome.disk, (Disk{"A.DBS", "GRIMV.LST"}));
}

TEST_F(CatalogueExit, ABaseBeyond32767WordsIsToldAsAnOverflowAndCountsAsNone) {
    base(u"A.DBS", 32768);
    base(u"B.DBS", 2);
    list(baseRecord(1, 2, u"B", u"Bon") + baseRecord(2, 0, u"A"));
    const Outcome outcome = open();
    EXPECT_FALSE(outcome.stopped);
    EXPECT_EQ(
        outcome.said,
        (Events{"bip", R"(message critique "ERREUR : 6" "L'ERREUR 6 est survenue.")", warning}));
    EXPECT_EQ(outcome.entries, "Bon");
}

TEST_F(CatalogueExit, AFileNameThatLeadsElsewhereIsAMissingOne) {
    base(u"A.DBS", 2);
    base(u"B.DBS", 2);
    list(baseRecord(1, 2, u"A") + baseRecord(2, 2, u"../B"));
    // No file of the folder bears such a name: it is warned of as a missing one.
    const Outcome outcome = open();
    EXPECT_FALSE(outcome.stopped);
    EXPECT_EQ(outcome.said, Events{warning});
}

TEST_F(CatalogueExit, TheWindowGoneDuringTheCheckEndsItInSilence) {
    list(baseRecord(1, 2, u"ABSENT") + baseRecord(2, 3, u"LA"));
    base(u"LA.DBS", 3);
    game.windows.onMessage = [](const Message &) { throw Failure(failure::windowUnloaded); };
    const Outcome outcome = open();
    EXPECT_FALSE(outcome.stopped);
    EXPECT_EQ(outcome.said, Events{warning}); // the one during which the window went
    EXPECT_EQ(outcome.entries, "");
    EXPECT_FALSE(outcome.open);
}

TEST_F(CatalogueExit, TheFilesThatNoRecordClaimsAreLeftInTheWorkList) {
    list(baseRecord(1, 2, u"ICI") + baseRecord(2, 1, u"LA"));
    base(u"AUTRE.DBS", 1);
    base(u"ICI.DBS", 2);
    base(u"LA.DBS", 1);
    base(u"ZUT.DBS", 1);
    game.titles.show();
    EXPECT_EQ(titles(), "Titre, Titre");
    EXPECT_EQ(shownValue(game.titles.TmpLstFich.Items.get()), R"("AUTRE.DBS" "ZUT.DBS")");
}

} // namespace grimoval::test::catalogue_exits
