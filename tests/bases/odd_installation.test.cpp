// SPDX-License-Identifier: GPL-3.0-or-later
// The installed folders as they should not be: something missing, empty, huge, of another kind, or
// changed while the game runs. It is told or replaced, and nothing waits.
#include "support/conditions.h"
#include "support/failures.h"
#include "support/game.h"
#include "support/odd_files.h"
#include "support/startup.h"

#include <gtest/gtest.h>

namespace grimoval::test::odd_installation {

namespace fs = std::filesystem;
constexpr std::uintmax_t huge = 5'000'000'000; // bytes, none of them written

// --- At the start ---

TEST(OddInstallationAtStart, OfWhichASoundOrPictureFolderIsMissingStarts) {
    for (const char16_t *name : {u"SONS", u"IMAGES"}) {
        for (const bool there : {false, true}) {
            Startup run;
            if (there) {
                run.folder.write(u"grimoval/" + Texte(name), "a file in its place");
            }
            EXPECT_EQ(run.run(), 0);
            EXPECT_TRUE(run.windows.messages.empty());
        }
    }
}

TEST(OddInstallationAtStart, OfWhichTheBasesOrTheirListCannotBeReachedEndsInTheFailureReport) {
    const struct {
        const char *what;
        const char16_t *name;
        int number;
    } rows[] = {
        {"", u"grimoval/MASK/GRIMV.LST", failure::fileNotFound},
        {"", u"grimoval/MASK", failure::pathNotFound},
        {"", u"grimoval", failure::pathNotFound},
        {"fullDevice", u"grimoval/MASK", failure::pathNotFound},
        {"linkIntoNothing", u"grimoval/MASK", failure::pathNotFound},
        {"linkToItself", u"grimoval/MASK", failure::pathNotFound},
        {"linkIntoNothing", u"grimoval/MASK/GRIMV.LST", failure::fileNotFound},
        {"linkToItself", u"grimoval/MASK/GRIMV.LST", failure::pathNotFound},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(std::string(row.what) + " " + toUtf8(row.name));
        Startup run;
        put(row.what, run.folder, row.name);
        run.windows.expectModal("frmSplash", [](Form &form) { form.unload(); });
        EXPECT_EQ(failureNumber([&] { Main(run.g, run.all); }), row.number);
    }
}

// --- In the theme chooser ---

struct OddInstallation : testing::Test {
    OddInstallation() {
        game.install({{u"UN", u"Un", {u"AB", u"CD"}, u"UN"}, {u"DEUX", u"Deux", {u"EF"}}});
        game.write(u"IMAGES/UN.JPG", "\xFF\xD8");
        game.write(u"IMAGES/IMG01.BMP", "BM");
    }

    // Opens the chooser, takes an entry if one is asked for; what it said, a number for each of
    // the failures it told, and how it ended.
    std::string choose(int entry = -1) {
        const Deadline deadline(20);
        game.windows.messages.clear();
        std::string outcome;
        try {
            game.titles.show();
            if (entry >= 0) {
                EXPECT_TRUE(game.titles.LstTitre.userSelect(entry));
                EXPECT_TRUE(game.titles.CmdTitre[1].userClick());
            }
        } catch (const ProgramEnd &) {
            outcome = "fin";
        }
        game.titles.unload();
        std::string said;
        for (const Message &message : game.windows.messages) {
            const std::string title = toUtf8(message.title), text = toUtf8(message.text);
            const std::string mark = "ERREUR : ";
            said += title.starts_with(mark)             ? title.substr(mark.size())
                    : text.starts_with("Attention")     ? "attention"
                    : text.starts_with("Aucun fichier") ? "aucun"
                                                        : text.substr(0, text.find('\n'));
            said += ' ';
        }
        return said + outcome;
    }
    void makeHuge(const Texte &name) {
        fs::resize_file(game.folder.bytePath(u"grimoval/" + name), huge);
    }
    std::string in(const Texte &name) const { return game.folder.bytePath(u"grimoval/" + name); }

    Game game;
};

TEST_F(OddInstallation, WithABaseOfAnotherLengthWarnsOfItAlone) {
    const std::string whole = game.bytes(u"MASK/DEUX.DBS");
    for (const std::size_t length : {std::size_t{0}, std::size_t{1}, whole.size() - 1,
                                     whole.size() + 84, std::size_t{84 * 32767}}) {
        game.write(u"MASK/DEUX.DBS", std::string(length, ' '));
        EXPECT_EQ(choose(0), "attention ") << length;
        EXPECT_EQ(game.menu.LstMot[0].ListCount(), 2);
    }
    game.write(u"MASK/DEUX.DBS", whole + std::string(83, ' '));
    EXPECT_EQ(choose(1), "");
}

TEST_F(OddInstallation, WithAHugeBaseTellsOfTheOverflowAndOffersTheOthers) {
    makeHuge(u"MASK/DEUX.DBS");
    EXPECT_EQ(choose(0), "6 attention ");
    EXPECT_EQ(game.menu.LstMot[0].ListCount(), 2);
}

TEST_F(OddInstallation, WithAHugeListSaysSoAndStops) {
    makeHuge(u"MASK/GRIMV.LST");
    EXPECT_EQ(choose(), "7 63 fin");
    EXPECT_EQ(fs::file_size(in(u"MASK/GRIMV.LST")), huge); // and leaves it as it is
}

TEST_F(OddInstallation, WithAListOfAnOddLengthCountsItsWholeRecords) {
    const std::string list = game.bytes(u"MASK/GRIMV.LST");
    game.write(u"MASK/GRIMV.LST", list + std::string(51, 'x'));
    EXPECT_EQ(choose(1), "");
    game.write(u"MASK/GRIMV.LST", list.substr(0, list.size() - 1));
    EXPECT_EQ(choose(0), ""); // the last record is not whole: its base is not offered
    EXPECT_EQ(game.there(u"MASK/GRIMV.LST"), true);
}

TEST_F(OddInstallation, WithSomethingElseForABaseWarnsOfIt) {
    for (const OddFile &odd : oddFiles()) {
        SCOPED_TRACE(odd.name);
        put(odd, game.folder, u"grimoval/MASK/DEUX.DBS");
        game.write(u"MASK/AUTRE.DBS", ""); // some name that no record claims
        EXPECT_EQ(choose(0), "attention ");
        EXPECT_EQ(game.menu.LstMot[0].ListCount(), 2);
    }
}

// What has no length is an empty list; what has one cannot be read.
TEST_F(OddInstallation, WithSomethingElseForTheListTellsAndStops) {
    const std::map<std::string, std::string> said = {
        {"pipe", "75 1601 fin"},
        {"folder", "75 75 63 fin"},
        {"endlessDevice", "75 1601 fin"},
        {"fullDevice", "75 1601 fin"},
        {"linkToItself", "76 76 76 63 fin"},
        {"linkIntoNothing", "53 53 fin"},
    };
    for (const OddFile &odd : oddFiles()) {
        SCOPED_TRACE(odd.name);
        put(odd, game.folder, u"grimoval/MASK/GRIMV.LST");
        EXPECT_EQ(choose(), said.at(odd.name));
    }
}

TEST_F(OddInstallation, WithSomethingElseForTheWorkCopyTakesAnotherNameForItAndLeavesIt) {
    const Texte user = u"donnees/Calvenor/Le Grimoval/";
    for (const OddFile &odd : oddFiles()) {
        SCOPED_TRACE(odd.name);
        put(odd, game.folder, user + u"~GRIMV.TMP");
        const std::string copy = game.folder.bytePath(user + u"~GRIMV.TMP");
        const auto type = fs::symlink_status(copy).type();
        EXPECT_EQ(choose(1), "");
        EXPECT_TRUE(game.g.base.BaseChargee);
        EXPECT_EQ(fs::symlink_status(copy).type(), type);
        EXPECT_EQ(std::distance(fs::directory_iterator(game.folder.bytePath(user)), {}), 1);
    }
}

TEST_F(OddInstallation, WhoseWorkCopyANeighbourRemovesIsReadToItsEnd) {
    const Texte copy = u"donnees/Calvenor/Le Grimoval/~GRIMV.TMP";
    game.write(u"MASK/DEUX.DBS", wordRecords({u"A", u"B"})); // which is told during the check
    bool removed = false;
    game.windows.onMessage = [&](const Message &) {
        removed = game.folder.exists(copy);
        game.files.remove(game.folder.path(copy));
    };
    game.titles.show();
    EXPECT_TRUE(removed);
    EXPECT_EQ(game.windows.messages.size(), 1u);
    EXPECT_EQ(game.titles.LstTitre.ListCount(), 1);
    EXPECT_FALSE(game.folder.exists(copy));
}

TEST_F(OddInstallation, WithoutItsPictureFolderPlaysWithoutAPictureAndStopsWhereOneIsDrawn) {
    fs::remove_all(in(u"IMAGES"));
    EXPECT_EQ(choose(1), "");
    EXPECT_TRUE(game.g.base.BaseChargee);
    EXPECT_EQ(choose(0), "Le Grimoval va être arrêté. fin");
}

TEST_F(OddInstallation, WithSomethingElseForAPicturePlaysAll) {
    for (const OddFile &odd : oddFiles()) {
        SCOPED_TRACE(odd.name);
        put(odd, game.folder, u"grimoval/IMAGES/UN.JPG");
        EXPECT_EQ(choose(1), "");
        EXPECT_EQ(game.menu.LstMot[0].ListCount(), 2);
    }
}

TEST_F(OddInstallation, ThatGoesWhileTheGameRunsIsToldAndTheChooserOpensEmpty) {
    fs::remove_all(in(u"MASK"));
    EXPECT_EQ(choose(), "76 76 aucun ");
    EXPECT_FALSE(game.g.base.BaseChargee);
}

TEST_F(OddInstallation, ThatMayOnlyBeReadIsPlayed) {
    const std::string list = game.bytes(u"MASK/GRIMV.LST");
    for (const char16_t *name : {u"MASK/UN.DBS", u"MASK/DEUX.DBS", u"MASK/GRIMV.LST",
                                 u"IMAGES/UN.JPG", u"IMAGES/IMG01.BMP"}) {
        fs::permissions(in(name), fs::perms(0444));
    }
    for (const char16_t *name : {u"MASK", u"IMAGES"}) {
        fs::permissions(in(name), fs::perms(0555));
    }
    fs::permissions(game.folder.bytePath(u"donnees/Calvenor/Le Grimoval"), fs::perms(0777));
    {
        const OrdinaryUser child;
        EXPECT_EQ(choose(1), "");
        EXPECT_EQ(game.menu.LstMot[0].ListCount(), 2);
        EXPECT_EQ(choose(0), "");
        EXPECT_EQ(game.menu.LstMot[0].ListCount(), 1);
    }
    for (const char16_t *name : {u"MASK", u"IMAGES"}) {
        fs::permissions(in(name), fs::perms(0755));
    }
    EXPECT_EQ(game.bytes(u"MASK/GRIMV.LST"), list);
}

// --- Between the check of the list and the choice ---

struct BaseChangedBeforeTheChoice : OddInstallation {
    int chosen(const std::function<void()> &change) {
        const Deadline deadline(20);
        game.titles.show();
        change();
        EXPECT_TRUE(game.titles.LstTitre.userSelect(1));
        EXPECT_TRUE(game.titles.CmdTitre[1].userClick());
        EXPECT_TRUE(game.windows.messages.empty());
        EXPECT_FALSE(game.titles.isLoaded());
        return game.menu.LstMot[0].ListCount();
    }
};

TEST_F(BaseChangedBeforeTheChoice, IntoAHugeOneGivesNoWord) {
    EXPECT_EQ(chosen([this] { makeHuge(u"MASK/UN.DBS"); }), 0);
}

TEST_F(BaseChangedBeforeTheChoice, IntoALargeOneGivesTheMostThatCanBeCounted) {
    EXPECT_EQ(chosen([this] { game.write(u"MASK/UN.DBS", std::string(84 * 32767, ' ')); }), 32767);
}

TEST_F(BaseChangedBeforeTheChoice, IntoSomethingElseGivesNoWord) {
    const std::string words = game.bytes(u"MASK/UN.DBS");
    for (const OddFile &odd : oddFiles()) {
        SCOPED_TRACE(odd.name);
        EXPECT_EQ(chosen([&] { put(odd, game.folder, u"grimoval/MASK/UN.DBS"); }), 0);
        fs::remove_all(in(u"MASK/UN.DBS"));
        game.write(u"MASK/UN.DBS", words);
    }
}

} // namespace grimoval::test::odd_installation
