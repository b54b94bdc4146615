// SPDX-License-Identifier: GPL-3.0-or-later
// The theme's picture: its own, a default one, or none at all.
#include "support/game.h"

#include <cmath>
#include <gtest/gtest.h>

namespace grimoval::test::pictures {

struct ThemePicture : testing::Test {
    Game game;
    FMenu &menu = game.menu;

    void base(const Texte &image) { game.install({{u"ESSAI", u"Essai", {u"MOT"}, image}}); }
    void defaults(int number) {
        for (int i = 1; i <= number; ++i) {
            game.write(u"IMAGES/IMG0" + decimal(i) + u".BMP", "BM");
        }
    }
    void choose() {
        game.expectTheme(0);
        ASSERT_TRUE(menu.CmdBase.userClick());
    }
    // The file's name alone.
    std::string picture() const {
        const std::string path = shown(menu.VSDessin.PictureFile);
        return path.substr(path.find_last_of('/') + 1);
    }
};

TEST_F(ThemePicture, OfABaseIsItsOwn) {
    base(u"ESSAI");
    game.write(u"IMAGES/ESSAI.JPG", "\xFF\xD8");
    defaults(3);
    choose();
    EXPECT_EQ(picture(), "ESSAI.JPG");
    EXPECT_EQ(shown(menu.DessTmp.PictureFile), shown(menu.VSDessin.PictureFile));
    EXPECT_TRUE(menu.VSDessin.Visible);
    EXPECT_FALSE(menu.DessTmp.isVisible());
}

TEST_F(ThemePicture, OfABaseWithoutOneIsADefaultPicture) {
    base(u"");
    defaults(3);
    choose();
    EXPECT_EQ(picture(), "IMG01.BMP");
    EXPECT_TRUE(menu.VSDessin.Visible);
}

TEST_F(ThemePicture, WhoseFileIsMissingIsADefaultPictureInSilence) {
    base(u"ABSENTE");
    defaults(3);
    choose();
    EXPECT_EQ(picture(), "IMG01.BMP");
    EXPECT_EQ(only(game.windows.take(), "message"), Events{});
    EXPECT_TRUE(game.g.base.BaseChargee);
}

TEST_F(ThemePicture, ThatCannotBeReadLeavesTheOneThatWasThere) {
    base(u"UN");
    game.write(u"IMAGES/UN.JPG", "\xFF\xD8");
    defaults(3);
    choose();
    game.write(u"IMAGES/UN.JPG", "ceci n'est pas une image");
    base(u"UN");
    menu.VSDessin.Visible = false;
    choose();
    EXPECT_EQ(picture(), "UN.JPG"); // as it was in memory
    EXPECT_TRUE(menu.VSDessin.Visible);
    base(u"DEUX");
    game.write(u"IMAGES/DEUX.JPG", "rien");
    choose();
    EXPECT_EQ(picture(), "UN.JPG");
    EXPECT_TRUE(game.g.base.BaseChargee);
    EXPECT_EQ(only(game.windows.take(), "message"), Events{});
}

TEST_F(ThemePicture, ByDefaultIsDrawnAmongAllButTheLastUnlessThereIsOne) {
    const struct {
        int number;
        float draw;
        const char *file;
    } rows[] = {
        {1, 0.0f, "IMG01.BMP"},  {1, 0.99f, "IMG01.BMP"},
        {2, 0.0f, "IMG01.BMP"},  {2, std::nextafter(1.0f, 0.0f), "IMG01.BMP"},
        {3, 0.0f, "IMG01.BMP"},  {3, 0.49f, "IMG01.BMP"},
        {3, 0.5f, "IMG02.BMP"},  {3, std::nextafter(1.0f, 0.0f), "IMG02.BMP"},
        {5, 0.74f, "IMG03.BMP"}, {5, 0.76f, "IMG04.BMP"},
    };
    for (const auto &row : rows) {
        Game other;
        other.install({{u"ESSAI", u"Essai", {u"MOT"}}});
        for (int i = 1; i <= row.number; ++i) {
            other.write(u"IMAGES/IMG0" + decimal(i) + u".BMP", "BM");
        }
        other.random.numbers = {row.draw};
        other.expectTheme(0);
        ASSERT_TRUE(other.menu.CmdBase.userClick());
        EXPECT_TRUE(shown(other.menu.VSDessin.PictureFile).ends_with(row.file))
            << row.number << " pictures, " << row.draw;
        EXPECT_EQ(other.random.seeds, 1);
    }
}

// The theme has no picture of its own, or names one that is missing: both end in the same way.
struct DamagedDefault : testing::TestWithParam<const char16_t *> {};

TEST_P(DamagedDefault, LeavesThePictureThatWasThereOrNoneAndTheThemeIsChosen) {
    Game game;
    const auto choose = [&game](const Texte &image) {
        game.install({{u"ESSAI", u"Essai", {u"MOT"}, image}});
        game.g.base.BaseChargee = false;
        game.menu.VSDessin.Visible = false;
        game.expectTheme(0);
        EXPECT_TRUE(game.menu.CmdBase.userClick());
        EXPECT_TRUE(game.g.base.BaseChargee);
        EXPECT_TRUE(game.menu.VSDessin.Visible);
        EXPECT_EQ(only(game.windows.take(), "message"), Events{});
        return shown(game.menu.VSDessin.PictureFile);
    };
    game.write(u"IMAGES/IMG01.BMP", "ceci n'est pas une image");
    EXPECT_EQ(choose(GetParam()), "");
    game.write(u"IMAGES/UN.JPG", "\xFF\xD8");
    const std::string before = choose(u"UN");
    EXPECT_NE(before, "");
    EXPECT_EQ(choose(GetParam()), before);
    EXPECT_EQ(game.menu.LstMot[0].ListCount(), 1);
}

INSTANTIATE_TEST_SUITE_P(Of, DamagedDefault, testing::Values(u"", u"ABSENTE"),
                         [](const auto &image) {
                             return *image.param == 0 ? "AThemeWithoutAPicture"
                                                      : "AThemeWhosePictureIsMissing";
                         });

TEST_F(ThemePicture, ByDefaultThatGoesBetweenTheListingAndTheDrawIsPassedOver) {
    for (const char16_t *image : {u"", u"ABSENTE"}) {
        Game other;
        other.install({{u"ESSAI", u"Essai", {u"MOT"}, image}});
        other.write(u"IMAGES/IMG01.BMP", "BM");
        other.windows.expectModal("FLstTitre", [&](Form &) {
            other.files.remove(other.folder.path(u"grimoval/IMAGES/IMG01.BMP"));
            other.enter();
        });
        EXPECT_TRUE(other.menu.CmdBase.userClick());
        EXPECT_TRUE(other.g.base.BaseChargee);
        EXPECT_EQ(shown(other.menu.VSDessin.PictureFile), "");
    }
}

TEST_F(ThemePicture, ByDefaultIsAFileOfTwoCharactersAfterItsThreeLetters) {
    base(u"");
    for (const char16_t *name : {u"IMG1.BMP", u"IMG001.BMP", u"IMG01.JPG", u"AIMG01.BMP"}) {
        game.write(u"IMAGES/" + Texte(name), "BM");
    }
    game.write(u"IMAGES/img7z.bmp", "BM");
    choose();
    EXPECT_EQ(picture(), "img7z.bmp");
}

const std::string fatal =
    R"(message critique "Le Grimoval" "Le Grimoval va être arrêté.\n\nLa base \"Essai\" n'a pas )"
    R"(d'image\net les images par défaut du programme sont introuvables.\n\n)"
    R"(Veuillez réinstaller le Grimoval.")";

TEST_F(ThemePicture, OfNoKindIsFatalAndToldLetterForLetter) {
    for (const char16_t *image : {u"", u"ABSENTE"}) {
        Game other;
        other.install({{u"ESSAI", u"Essai", {u"MOT"}, image}});
        other.windows.expectModal("FLstTitre", [&](Form &) { other.enter(); });
        bool stopped = false;
        try {
            other.menu.CmdBase_Click();
        } catch (const ProgramEnd &end) {
            stopped = end.status == 0;
        }
        EXPECT_TRUE(stopped);
        EXPECT_EQ(only(other.windows.take(), "message"), Events{fatal});
        EXPECT_FALSE(other.g.base.BaseChargee);
    }
}

TEST_F(ThemePicture, WithANameThatLeadsElsewhereIsPassedOver) {
    game.folder.write(u"grimoval/SECRET.JPG", "\xFF\xD8");
    base(u"../SECR");
    game.folder.write(u"grimoval/SECR.JPG", "\xFF\xD8");
    defaults(1);
    choose();
    EXPECT_EQ(picture(), "");
    EXPECT_TRUE(game.g.base.BaseChargee);
}

TEST_F(ThemePicture, IsHiddenWhileItIsBeingChanged) {
    base(u"ESSAI");
    game.write(u"IMAGES/ESSAI.JPG", "\xFF\xD8");
    choose();
    game.windows.take();
    choose();
    EXPECT_EQ(only(game.windows.take(), "FMenu.VSDessin.Visible"),
              (Events{"FMenu.VSDessin.Visible = Faux", "FMenu.VSDessin.Visible = Vrai"}));
}

} // namespace grimoval::test::pictures
