// SPDX-License-Identifier: GPL-3.0-or-later
// Rules of the game's own windows that show in the toolkit alone: how far a gauge is filled, who
// has the keyboard after a repaint, what a close request does to a window that another stands over.
#include "qt/bench.h"
#include "support/program.h"

#include <QDialog>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPainter>
#include <QWindow>

#include <map>

namespace grimoval::test {
namespace {

class GameWindows : public testing::Test {
protected:
    GameWindows() {
        windows.guard().end = [this](int status) { ends.push_back(status); };
        program.g.BoutonSite = true;
    }

    template <class View>
    View *view(Control &control) {
        Mirror *mirror = windows.windowOf(control.form())->mirrorOf(&control);
        return mirror == nullptr ? nullptr : dynamic_cast<View *>(mirror->widget());
    }
    // What the window manager sends when a person closes a window.
    void closeByManager(Form &form) { windows.windowOf(form)->windowHandle()->close(); }

    Files files;
    TemporaryFolder folder;
    QtWindows windows{files, folder.path()};
    Program program{windows};
    FMenu &menu = program.windows.menu;
    std::vector<int> ends;
};

// The columns in which two pictures of a gauge differ along the middle of its tube.
std::pair<int, int> differing(const QImage &one, const QImage &other) {
    std::pair<int, int> columns{one.width(), -1};
    for (int x = 0; x < one.width(); ++x) {
        if (one.pixel(x, one.height() / 2) != other.pixel(x, other.height() / 2)) {
            columns.first = std::min(columns.first, x);
            columns.second = x;
        }
    }
    return columns;
}

TEST_F(GameWindows, TheScoreGaugeIsDrawnFilledByTheWordsFoundOutOfTheBase) {
    program.g.reglages.NombreJoueur = 1;
    program.g.reglages.NombreErreur = 6;
    program.g.joueurs.NomJoueur[1] = u"DURAND";
    program.g.base.BaseChargee = true;
    menu.show();
    menu.AfficherJoueurs();
    std::vector<Texte> words;
    for (char16_t letter = u'A'; letter <= u'J'; ++letter) {
        words.push_back(Texte(1, letter));
    }
    menu.LstMot[0].Items = words;
    GaugeView &gauge = *view<GaugeView>(menu.FluxScore);
    const auto picture = [&] { // of the bar alone, without what is written on it
        gauge.set(gauge.value(), gauge.maximum(), {}, Qt::white);
        return gauge.grab().toImage();
    };
    ASSERT_TRUE(menu.CmdTjr[2].userClick());
    const QImage empty = picture();
    std::map<int, int> filled; // by words found, where the filling ends
    for (int word = 1; word <= 10; ++word) {
        if (word == 3 || word == 6) { // two are given up: seven words proposed, five found
            ASSERT_TRUE(menu.CmdJeux[1].userClick());
        } else {
            ASSERT_TRUE(menu.VsAlpha[menu.MotCherche[1].front() - u'A'].userClick());
        }
        const int found = program.g.scores.MotsTrouves[1];
        if (word == 7) {
            EXPECT_EQ(found, 5);
            EXPECT_EQ(toUtf8(menu.FluxScore.TexteFlux.get()), "5/7");
        }
        filled[found] = differing(empty, picture()).second;
        if (word < 10) {
            ASSERT_TRUE(menu.CmdJeux[0].userClick());
        }
    }
    gauge.set(10, 10, {}, Qt::white);
    const int right = differing(empty, picture()).second;
    EXPECT_GT(right, gauge.width() * 9 / 10);
    // A tenth of the tube for each word: half of it for five.
    const double tenth = (right - filled[5]) / 5.0;
    EXPECT_GT(tenth, gauge.width() / 12.0);
    for (const auto &[found, end] : filled) {
        EXPECT_NEAR(end, right - (10 - found) * tenth, 1.5) << found;
    }
    // And the tube begins where the sign of the gauge ends.
    EXPECT_NEAR(right - 10 * tenth, gauge.height(), gauge.height() / 2.0);
}

TEST_F(GameWindows, TheWindowAboutGivesTheKeyboardToTheSiteWheneverItComesIntoView) {
    FAbout &about = program.windows.about;
    about.show();
    FormWindow *window = windows.windowOf(about);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    QWidget *site = view<QWidget>(about.CmdABout[1]), *leave = view<QWidget>(about.CmdABout[0]);
    ASSERT_NE(site, nullptr);
    EXPECT_EQ(QApplication::focusWidget(), site);
    for (int time = 0; time < 3; ++time) {
        // The person goes on to another button; the toolkit's own painting changes nothing of that.
        for (int step = 0; window->focusWidget() != leave && step < 10; ++step) {
            QTest::keyClick(window, Qt::Key_Tab);
        }
        ASSERT_EQ(window->focusWidget(), leave);
        window->repaint();
        Bench::settle();
        EXPECT_EQ(window->focusWidget(), leave);
        // Covered, and in view again.
        window->windowHandle()->setVisible(false);
        Bench::settle();
        window->windowHandle()->setVisible(true);
        EXPECT_TRUE(QTest::qWaitFor([&] { return window->focusWidget() == site; })) << time;
        EXPECT_EQ(about.focus(), &about.CmdABout[1]);
    }
}

TEST_F(GameWindows, ACloseRequestReachesNoWindowThatAnotherStandsOver) {
    menu.show();
    int asked = 0;
    menu.fenetres.DemanderQuitter = [&] { ++asked; };
    for (Form *above : {static_cast<Form *>(&program.windows.option),
                        static_cast<Form *>(&program.windows.about)}) {
        Bench::later([&, above] {
            EXPECT_TRUE(above->isShown());
            closeByManager(menu);
            windows.windowOf(menu)->close(); // and where the toolkit lets it through
            EXPECT_EQ(asked, 0) << above->path();
            EXPECT_TRUE(menu.isShown() && above->isShown());
            EXPECT_TRUE(windows.windowOf(menu)->isVisible());
            EXPECT_TRUE(windows.windowOf(*above)->isVisible());
            above->unload();
        });
        above->showModal();
    }
    // Under a box of the program, too; and the one that nothing stands over is asked.
    Bench::later([&] {
        closeByManager(menu);
        windows.windowOf(menu)->close();
        EXPECT_EQ(asked, 0);
        windows.box()->done(0);
    });
    program.screen.message(u"Boîte", MessageIcon::information);
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(menu.isShown());
    closeByManager(menu);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(menu.isShown()); // the answer was no
    EXPECT_TRUE(windows.windowOf(menu)->isVisible());
    EXPECT_TRUE(ends.empty());
}

TEST_F(GameWindows, ThePictureIsFittedIntoItsFrameAndNotCut) {
    QImage wide(400, 100, QImage::Format_RGB32), high(100, 400, QImage::Format_RGB32);
    for (QImage *image : {&wide, &high}) {
        image->fill(Qt::red);
    }
    QPainter(&wide).fillRect(200, 0, 200, 100, Qt::blue);
    QPainter(&high).fillRect(0, 200, 100, 200, Qt::blue);
    QWidget parent;
    PictureView view(&parent);
    view.setFactor(1);
    view.resize(272, 204);
    view.setFramed(true);
    for (const QImage &image : {wide, high}) {
        view.setPicture(image);
        const QImage seen = view.grab().toImage();
        QRect red, blue;
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < seen.width(); ++x) {
                if (seen.pixelColor(x, y) == QColor(Qt::red)) {
                    red |= QRect(x, y, 1, 1);
                } else if (seen.pixelColor(x, y) == QColor(Qt::blue)) {
                    blue |= QRect(x, y, 1, 1);
                }
            }
        }
        // Both halves, each whole, in the picture's own proportions, from one side to the other.
        const QRect whole = red | blue;
        EXPECT_NEAR(double(whole.width()) / whole.height(), double(image.width()) / image.height(),
                    0.06 * image.width() / image.height());
        EXPECT_NEAR(red.width() * red.height(), blue.width() * blue.height(),
                    red.width() * red.height() / 10);
        const QRectF frame = view.inner();
        EXPECT_GE(std::max(whole.width() / frame.width(), whole.height() / frame.height()), 0.98);
    }
}

TEST_F(GameWindows, TheScoreTableIsWhiteOnNightAndTheTextsAroundItInkOnParchment) {
    program.g.reglages.NombreJoueur = 1;
    program.g.base.TitreBase = u"Essai";
    FScore2 &score = program.windows.score;
    score.show();
    const QImage table = view<TableView>(score.LstScore)->viewport()->grab().toImage();
    std::map<QRgb, int> colours;
    QColor lightest = Qt::black;
    for (int y = table.height() / 2; y < table.height(); ++y) {
        for (int x = 0; x < table.width(); ++x) {
            const QColor here = table.pixelColor(x, y);
            ++colours[here.rgb()];
            lightest = here.lightness() > lightest.lightness() ? here : lightest;
        }
    }
    const QColor ground = std::max_element(colours.begin(), colours.end(), [](auto &a, auto &b) {
                              return a.second < b.second;
                          })->first;
    EXPECT_LT(ground.lightness(), 80);
    EXPECT_GT(ground.blue(), ground.red() + 30);
    EXPECT_EQ(lightest, QColor(Qt::white));
    EXPECT_EQ(windows.windowOf(score)->surface(), Surface::parchment);
    const QColor text = ink(score.Etiquette[0].ForeColor, Surface::parchment);
    EXPECT_EQ(text, shade::ink);
}

TEST(Font, IsTheOneForPeopleWhoLearnToReadWhereItIsInstalled) {
    const QStringList installed = QFontDatabase::families();
    const QString wanted = installed.contains(QStringLiteral("Andika"))
                               ? QStringLiteral("Andika")
                               : QStringLiteral("DejaVu Sans");
    if (!installed.contains(wanted)) {
        GTEST_SKIP() << "neither of the two fonts is here";
    }
    for (const bool bold : {false, true}) {
        EXPECT_EQ(fontOf(20, bold).family(), wanted);
        EXPECT_EQ(QFontInfo(fontOf(20, bold)).family(), wanted);
    }
}

} // namespace
} // namespace grimoval::test
