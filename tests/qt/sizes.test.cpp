// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of the game on the screens that schools and families have: all that is on view lies
// inside its window, nothing lies over the word, and every text is whole.
#include "qt/bench.h"
#include "qt/written.h"
#include "support/program.h"
#include "tools/bases/catalogue.h"

#include "platform/qt/strings.h"

#include <QFontMetricsF>

namespace grimoval::test {
namespace {

struct Sizes : testing::TestWithParam<QSize> {
    Sizes() {
        windows.setFactor(QtWindows::factorFor(GetParam()));
        program.g.dossiers.DossierImages = asFolder(fromUtf8(GRIMOVAL_SOUNDS "/../IMAGES"));
    }

    // At its own size: the screen of this platform would have the main window fill it.
    FormWindow &load(Form &form) {
        form.load();
        form.WindowState = 0;
        return *windows.windowOf(form);
    }
    std::vector<Form *> all() {
        FenetresDuJeu &w = program.windows;
        return {&w.splash, &w.menu, &w.nom, &w.choix, &w.score, &w.about, &w.question, &w.option};
    }
    FMenu &play(const Texte &shown) {
        FMenu &menu = program.windows.menu;
        load(menu);
        menu.VSDessin.Visible = true;
        menu.FluxScore.Visible = true;
        menu.Bord[3].Visible = true;
        menu.CmdJeux[1].Visible = true;
        menu.AffMot[0].FontSize = 15;
        menu.AffMot[0].Caption = shown;
        menu.AffMot[1].Caption = u"30";
        menu.RapTit.Caption = u"Sujet : " + Texte(30, u'M');
        menu.Rappel[1].Caption = Texte(15, u'W') + u" W. A toi";
        menu.Rappel[2].Caption = Texte(15, u'W') + u" W.";
        menu.ImgScore[0].Caption = u"32767";
        menu.FluReflec.TexteFlux = u"120";
        menu.FluxScore.TexteFlux = u"32767/32767";
        return menu;
    }
    // With names and numbers as long as they can be.
    FScore2 &score(int mode, const Texte &name) {
        Globales &g = program.g;
        g.reglages.NombreJoueur = mode;
        for (std::size_t field = 1; field <= 4; ++field) {
            g.joueurs.NomJoueur[field] = name;
        }
        g.base.TitreBase = Texte(30, u'M');
        g.scores.NbMotsProposes = g.scores.NbMotsBase = 32767;
        g.scores.Abandons = g.scores.MauvaisesLettres = g.scores.Score = {0, 32767, 32767};
        FScore2 &score = program.windows.score;
        score.unload();
        load(score);
        score.show(); // its labels come with it
        return score;
    }
    FLstTitre &themes() {
        outils::construireBases(
            files,
            {{u"UN", Texte(30, u'W'), {}, {{0, u"MOT"}}}, {u"DEUX", u"La mer", {}, {{0, u"MOT"}}}},
            program.g.dossiers.DossierBases);
        load(program.windows.titres);
        return program.windows.titres;
    }
    // How much is drawn; all of it with letters of so many pixels at least. Fifteen times the
    // widest letter, which no name has, may be smaller by a little.
    std::size_t expectReadable(Form &form, double least) {
        for (Control *control : form.controls()) {
            if (auto *button = dynamic_cast<PictureButton *>(control)) {
                button->Face = program.g.dossiers.DossierImages + u"_play.tga"; // no plain one
            }
        }
        const auto written = writtenBy(*windows.windowOf(form));
        for (const Written &each : written) {
            const bool widest = each.text.startsWith(u'W');
            EXPECT_GE(each.pixels, widest ? least - 1.5 : least)
                << form.path() << ": " << each.text.toStdString();
        }
        return written.size();
    }
    QWidget *widget(Control &control) {
        Mirror *mirror = windows.windowOf(control.form())->mirrorOf(&control);
        return mirror == nullptr ? nullptr : mirror->widget();
    }

    Files files;
    TemporaryFolder folder;
    QtWindows windows{files, folder.path()};
    Program program{windows};
};

TEST_P(Sizes, EveryWindowFitsItsScreen) {
    for (Form *form : all()) {
        const FormWindow &window = load(*form);
        EXPECT_LE(window.width(), GetParam().width()) << form->path();
        EXPECT_LE(window.height(), GetParam().height()) << form->path();
        for (Control *control : form->controls()) {
            const QWidget *view = widget(*control);
            if (view != nullptr && control->isVisible()) {
                EXPECT_TRUE(window.rect().contains(view->geometry()))
                    << control->path() << " in " << form->path();
            }
        }
    }
}

TEST_P(Sizes, NothingLiesOverTheWord) {
    FMenu &menu = play(u"###");
    const QRect strip = widget(menu.AffMot[0])->geometry();
    for (Control *control : menu.controls()) {
        const QWidget *view = widget(*control);
        if (view != nullptr && control != &menu.AffMot[0]) {
            EXPECT_FALSE(view->geometry().intersects(strip)) << control->path();
        }
    }
}

TEST_P(Sizes, NoControlOfTheMainWindowLiesOverAnother) {
    FMenu &menu = play(u"###");
    const auto controls = menu.controls();
    for (std::size_t a = 0; a < controls.size(); ++a) {
        for (std::size_t b = a + 1; b < controls.size(); ++b) {
            const QWidget *one = widget(*controls[a]), *other = widget(*controls[b]);
            const bool together =
                controls[a]->container == controls[b] || controls[b]->container == controls[a];
            if (one != nullptr && other != nullptr && !together && controls[a]->isVisible() &&
                controls[b]->isVisible()) {
                EXPECT_FALSE(one->geometry().intersects(other->geometry()))
                    << controls[a]->path() << " and " << controls[b]->path();
            }
        }
    }
}

TEST_P(Sizes, AnEntryOfThirtyCharactersIsWholeAndItsLettersAreLarge) {
    for (const Texte &shown :
         {Texte(30, u'#'), Texte(u"ARC-EN-CIEL DU SOIR D'ÉTÉ (BÔ)"),
          Texte(u"GRANDE-ROUE DE LA FOIRE (FÊTE)"), Texte(u"ANTICONSTITUTIONNELLEMENT (30)")}) {
        ASSERT_LE(shown.size(), 30U);
        FMenu &menu = play(shown);
        auto *view = dynamic_cast<WordView *>(widget(menu.AffMot[0]));
        ASSERT_NE(view, nullptr);
        std::size_t letters = 0;
        for (const auto &piece : view->pieces()) {
            EXPECT_TRUE(QRectF(view->rect()).contains(piece.place)) << toUtf8(shown);
            letters += !piece.character.isSpace();
            if (piece.kind != WordView::Piece::plain) {
                // On a classroom's screen, 1.2 m high: tiles of 4 cm, letters of nearly 3, which
                // are read from six metres (a 200th of the distance).
                EXPECT_GE(piece.place.height(), GetParam().height() / 28.0) << toUtf8(shown);
            }
        }
        const Texte word = shown.substr(0, shown.find(u'('));
        EXPECT_EQ(letters, static_cast<std::size_t>(std::count_if(
                               word.begin(), word.end(), [](char16_t c) { return c != u' '; })));
        EXPECT_TRUE(QRectF(view->rect()).contains(view->commentPlace()) ||
                    view->comment().isEmpty());
        for (const auto &a : view->pieces()) {
            for (const auto &b : view->pieces()) {
                EXPECT_FALSE(&a != &b && a.place.adjusted(0.5, 0.5, -0.5, -0.5)
                                             .intersects(b.place.adjusted(0.5, 0.5, -0.5, -0.5)));
            }
        }
    }
}

TEST_P(Sizes, EveryTextIsWholeAndNotTooSmall) {
    const double least = GetParam().height() < 768 ? 8.5 : 10; // pixels
    for (Form *form : all()) {
        load(*form);
        for (Control *control : form->controls()) {
            auto *label = dynamic_cast<Label *>(control);
            auto *view = label == nullptr ? nullptr : dynamic_cast<LabelView *>(widget(*label));
            if (view == nullptr || label->Caption.get().empty() ||
                dynamic_cast<WordView *>(view) != nullptr) {
                continue;
            }
            const double wanted = pixelsOf(label->FontSize, windows.windowOf(*form)->factor());
            const double pixels =
                fittingPixels(toQt(label->Caption), view->size(), wanted, label->bold,
                              label->wraps || label->Caption.get().find(u'\n') != Texte::npos);
            EXPECT_GE(pixels, std::min(wanted, least))
                << control->path() << ": " << toUtf8(label->Caption.get());
        }
    }
}

// Letters of 8.5 pixels have capitals of 6, the least that keeps an E from a B; where there is room
// for more they have 10. Whatever draws them: labels, tiles, gauges, lists, tables.
TEST_P(Sizes, WhateverIsDrawnCanBeRead) {
    const double least = GetParam().height() < 768 ? 8.5 : 10; // pixels
    for (Form *form : all()) {
        load(*form);
        expectReadable(*form, least);
    }
    EXPECT_GE(expectReadable(play(Texte(30, u'W')), least), 60U); // letters, names, gauges
    EXPECT_GE(expectReadable(themes(), least), 3U);
    for (const int mode : {1, 2, 3}) {
        for (const Texte &name : {Texte(15, u'W'), Texte(u"MARIE-CHRISTINE"), Texte(u"LI")}) {
            EXPECT_GE(expectReadable(score(mode, name), least), 20U);
        }
    }
}

// A name of usual letters is whole, in two lines if it must.
TEST_P(Sizes, LongNamesInTheScoreTableAreWhole) {
    const Form &form = score(3, u"MARIE-CHRISTINE");
    int whole = 0;
    for (const Written &each : writtenBy(*windows.windowOf(form))) {
        whole += static_cast<int>(each.text.count(QStringLiteral("MARIE-CHRISTINE")));
        EXPECT_FALSE(each.text.contains(u'…')) << each.text.toStdString();
    }
    EXPECT_EQ(whole, 4);
}

INSTANTIATE_TEST_SUITE_P(Screens, Sizes,
                         testing::Values(QSize(800, 600), QSize(1024, 600), QSize(1024, 768),
                                         QSize(1366, 768), QSize(1920, 1080), QSize(3840, 2160)),
                         [](const testing::TestParamInfo<QSize> &size) {
                             return "At" + std::to_string(size.param.width()) + "By" +
                                    std::to_string(size.param.height());
                         });

} // namespace
} // namespace grimoval::test
