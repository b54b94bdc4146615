// SPDX-License-Identifier: GPL-3.0-or-later
// What the mouse finds on the windows of the game: the tip of each control that has one, and the
// hand over all that can be pressed.
#include "qt/bench.h"
#include "support/program.h"

#include <QHelpEvent>
#include <QToolTip>

#include <set>

namespace grimoval::test {
namespace {

// The tip that a control has to show.
Texte tipOf(const Control &control) {
    if (const auto *label = dynamic_cast<const Label *>(&control)) {
        return label->ToolTipText;
    }
    if (const auto *picture = dynamic_cast<const Picture *>(&control)) {
        return picture->ToolTipText;
    }
    const auto *button = dynamic_cast<const PictureButton *>(&control);
    return button != nullptr && button->tooltip ? button->accessibleName : Texte();
}

struct UnderTheMouse : testing::Test {
    UnderTheMouse() { windows.setFactor(1); }

    Files files;
    TemporaryFolder folder;
    QtWindows windows{files, folder.path()};
    Program program{windows};
    FenetresDuJeu &w = program.windows;

    FormWindow *show(Form &form) {
        form.show();
        form.WindowState = 0;
        Bench::settle();
        return windows.windowOf(form);
    }
    QPoint middle(Control &control) {
        return windows.windowOf(control.form())->mirrorOf(&control)->widget()->geometry().center();
    }
    // The mouse moves over the window, as the window system tells it.
    void moveTo(Form &form, QPoint place) {
        QWindow *window = windows.windowOf(form)->windowHandle();
        QMouseEvent move(QEvent::MouseMove, place, window->mapToGlobal(place), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &move);
    }
    // What the pointer looks like over a control.
    Qt::CursorShape pointerOver(Control &control) {
        moveTo(control.form(), middle(control));
        const FormWindow *window = windows.windowOf(control.form());
        const QWidget *under = window->childAt(middle(control));
        // A widget that is greyed has no pointer of its own.
        while (under != window && !(under->isEnabled() && under->testAttribute(Qt::WA_SetCursor))) {
            under = under->parentWidget();
        }
        return under->cursor().shape();
    }
};

TEST_F(UnderTheMouse, EveryControlWithATipShowsIt) {
    std::set<std::string> told;
    program.g.reglages.NombreJoueur = 3;
    for (Form *form : std::initializer_list<Form *>{&w.menu, &w.choix, &w.nom, &w.score,
                                                    &w.question, &w.option, &w.about}) {
        FormWindow *window = show(*form);
        for (Control *control : form->controls()) {
            const QString tip = toQt(tipOf(*control));
            const Mirror *mirror = window->mirrorOf(control);
            if (tip.isEmpty() || mirror == nullptr) {
                continue;
            }
            told.insert(control->path());
            EXPECT_EQ(mirror->widget()->toolTip(), tip.toHtmlEscaped()) << control->path();
            if (!mirror->widget()->isVisible()) {
                continue;
            }
            QToolTip::hideText();
            const QPoint place = middle(*control);
            QWidget *under = window->childAt(place);
            EXPECT_EQ(under, mirror->widget()) << control->path();
            QHelpEvent help(QEvent::ToolTip, under->mapFrom(window, place),
                            window->mapToGlobal(place));
            QCoreApplication::sendEvent(under, &help);
            EXPECT_EQ(QToolTip::text(), tip.toHtmlEscaped()) << control->path();
        }
    }
    for (const char *path :
         {"FMenu.RapTit", "FMenu.Rappel(1)", "FMenu.Rappel(2)", "FMenu.VSDessin", "FMenu.Image1",
          "FCHoix.BordLimit", "FCHoix.TxtNbBad", "FMenu.CmdTjr(2)"}) {
        EXPECT_TRUE(told.contains(path)) << path;
    }
}

TEST_F(UnderTheMouse, ATipFollowsItsControl) {
    const FormWindow *window = show(w.choix);
    w.choix.DefReflec[0].Value = 45;
    EXPECT_EQ(window->mirrorOf(&w.choix.BordLimit)->widget()->toolTip(),
              QStringLiteral("45 secondes"));
}

TEST_F(UnderTheMouse, TheHandStaysOverAGreyedPictureButton) {
    show(w.menu);
    ASSERT_TRUE(w.menu.CmdJeux[0].Inactif);
    moveTo(w.menu, middle(w.menu.RapTit));
    EXPECT_EQ(windows.windowOf(w.menu)->cursor().shape(), Qt::ArrowCursor);
    for (PictureButton *button : {&w.menu.CmdTjr[2], &w.menu.CmdJeux[0], &w.menu.CmdTjr[0]}) {
        EXPECT_EQ(pointerOver(*button), Qt::PointingHandCursor) << button->path();
    }
    // It stays while the button changes under it.
    EXPECT_EQ(pointerOver(w.menu.CmdTjr[2]), Qt::PointingHandCursor);
    w.menu.CmdTjr[2].Inactif = true;
    EXPECT_EQ(pointerOver(w.menu.CmdTjr[2]), Qt::PointingHandCursor);
    moveTo(w.menu, middle(w.menu.RapTit));
    EXPECT_EQ(windows.windowOf(w.menu)->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(UnderTheMouse, TheHandIsOverEveryWordThatCanBePressed) {
    int words = 0;
    for (Form *form : std::initializer_list<Form *>{&w.option, &w.choix, &w.about}) {
        show(*form);
        for (Control *control : form->controls()) {
            const auto *label = dynamic_cast<const Label *>(control);
            if (label != nullptr && label->Click && label->isVisible()) {
                ++words;
                EXPECT_EQ(pointerOver(*control), Qt::PointingHandCursor) << control->path();
            }
        }
    }
    EXPECT_GE(words, 6);
}

TEST_F(UnderTheMouse, TheHandIsOverTheWordBesideADisabledBoxToo) {
    program.g.son.MidiPresent = 0;
    show(w.option);
    ASSERT_FALSE(w.option.ConfTSons[0].Enabled);
    EXPECT_EQ(pointerOver(w.option.Etiquette[0]), Qt::PointingHandCursor);
}

// ---- what a mode shows

TEST_F(UnderTheMouse, ModeThreeShowsAllOfPlayer2FromTheFirstShowingOn) {
    program.g.reglages.NombreJoueur = 3;
    const FormWindow *window = show(w.menu);
    const auto seen = [&](const Control &control) {
        return window->mirrorOf(&control)->widget()->isVisible();
    };
    EXPECT_TRUE(seen(w.menu.Bord[3]));
    EXPECT_TRUE(seen(w.menu.Rappel[2]));
    EXPECT_TRUE(seen(w.menu.ImgScore[1]));
    EXPECT_TRUE(seen(w.menu.CmdJeux[2]));
    EXPECT_FALSE(seen(w.menu.CmdJeux[1]));
    EXPECT_FALSE(seen(w.menu.FluxScore));
}

} // namespace
} // namespace grimoval::test
