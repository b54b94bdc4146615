// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader, or a test from outside, finds on the accessibility bus.
#include "qt/bench.h"

#include <QAccessible>
#include <QDialog>

namespace grimoval::test {
namespace {

struct Bus : testing::Test {
    Bench bench;
    TestForm form{bench.screen};

    QAccessibleInterface *of(Control &control) {
        return QAccessible::queryAccessibleInterface(bench.mirror(control)->widget());
    }
    std::string name(Control &control) {
        return of(control)->text(QAccessible::Name).toStdString();
    }
    std::string description(Control &control) {
        return of(control)->text(QAccessible::Description).toStdString();
    }
};

TEST_F(Bus, APictureButtonIsAPushButtonSensitiveWhenItTakesClicks) {
    PictureButton button(form, "Cmd");
    button.accessibleName = u"Nouvelle partie";
    button.place = {0, 0, 1500, 1500};
    bench.show(form);
    EXPECT_EQ(of(button)->role(), QAccessible::PushButton);
    EXPECT_EQ(name(button), "Nouvelle partie");
    EXPECT_FALSE(of(button)->state().disabled);
    EXPECT_TRUE(of(button)->state().focusable);
    EXPECT_TRUE(of(button)->state().focused);
    button.Inactif = true;
    EXPECT_TRUE(of(button)->state().disabled);
    button.Inactif = false;
    EXPECT_FALSE(of(button)->state().disabled);
}

TEST_F(Bus, PressClicksAfterTheCallHasReturnedEvenIfAModalWindowOpens) {
    TestForm above(bench.screen, "Dessus");
    PictureButton button(form, "Cmd");
    button.place = {0, 0, 1500, 1500};
    bool opened = false, returned = false;
    button.Click = [&] {
        opened = true;
        Bench::later([&] { above.unload(); });
        above.showModal();
        returned = true;
    };
    bench.show(form);
    QAccessibleActionInterface *action = of(button)->actionInterface();
    ASSERT_NE(action, nullptr);
    ASSERT_TRUE(action->actionNames().contains(QAccessibleActionInterface::pressAction()));
    action->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(opened);
    bench.settle();
    EXPECT_TRUE(opened);
    EXPECT_TRUE(returned);
}

TEST_F(Bus, PressOnAGreyedButtonOrUnderAModalWindowDoesNothing) {
    TestForm above(bench.screen, "Dessus");
    PictureButton button(form, "Cmd");
    button.place = {0, 0, 1500, 1500};
    int clicks = 0;
    button.Click = [&] { ++clicks; };
    bench.show(form);
    button.Inactif = true;
    of(button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    bench.settle();
    button.Inactif = false;
    EXPECT_EQ(clicks, 0);
    Bench::later([&] {
        of(button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        Bench::settle();
        above.unload();
    });
    above.showModal();
    EXPECT_EQ(clicks, 0);
}

TEST_F(Bus, NothingUnderAModalWindowOrABoxIsSensitive) {
    TestForm above(bench.screen, "Dessus");
    PictureButton button(form, "Cmd");
    button.place = {0, 0, 1500, 1500};
    button.Click = [] {};
    bench.show(form);
    const auto isSensitive = [&] {
        const QStringList actions = of(button)->actionInterface()->actionNames();
        EXPECT_EQ(actions.contains(QAccessibleActionInterface::pressAction()),
                  !of(button)->state().disabled);
        return !of(button)->state().disabled;
    };
    EXPECT_TRUE(isSensitive());
    Bench::later([&] {
        EXPECT_FALSE(isSensitive());
        above.unload();
    });
    above.showModal();
    EXPECT_TRUE(isSensitive());
    Bench::later([&] {
        EXPECT_FALSE(isSensitive());
        bench.windows.box()->accept();
    });
    bench.screen.message(u"Attention", MessageIcon::information);
    EXPECT_TRUE(isSensitive());
}

TEST_F(Bus, AWindowIsAFrameOrADialogNamedByItsCaption) {
    TestForm above(bench.screen, "Dessus");
    form.Caption = u"Le titre";
    bench.show(form);
    const auto frame = QAccessible::queryAccessibleInterface(bench.window(form));
    EXPECT_EQ(frame->role(), QAccessible::Window);
    EXPECT_EQ(frame->text(QAccessible::Name).toStdString(), "Le titre");
    Bench::later([&] {
        EXPECT_EQ(QAccessible::queryAccessibleInterface(bench.window(above))->role(),
                  QAccessible::Dialog);
        above.unload();
    });
    above.showModal();
}

TEST_F(Bus, ALetterTellsItselfAndItsState) {
    LetterButton letter(form, "VsAlpha", 0);
    letter.caption = u"E";
    letter.place = {0, 0, 800, 800};
    letter.Picture = u"E.libre";
    letter.DisabledPicture = u"E.repos";
    bench.show(form);
    EXPECT_EQ(of(letter)->role(), QAccessible::PushButton);
    EXPECT_EQ(name(letter), "E");
    EXPECT_EQ(description(letter), "disponible");
    letter.Enabled = false;
    EXPECT_EQ(description(letter), "au repos");
    letter.DisabledPicture = u"E.trouvee";
    EXPECT_EQ(description(letter), "trouvée");
    letter.DisabledPicture = u"E.fausse";
    EXPECT_EQ(description(letter), "fausse");
}

TEST_F(Bus, ALabelsNameIsTheTextThatItShowsMasksIncluded) {
    Label word(form, "AffMot", 0);
    word.look = Label::Look::word;
    word.FontSize = 15;
    word.accessibleDescription = u"Mot à trouver";
    bench.show(form);
    word.Caption = u"A##'É (FRUIT)";
    EXPECT_EQ(of(word)->role(), QAccessible::StaticText);
    EXPECT_EQ(name(word), "A##'É (FRUIT)");
    EXPECT_EQ(description(word), "Mot à trouver");
}

TEST_F(Bus, AGaugeIsAProgressBarWithItsValueMaximumAndText) {
    Gauge gauge(form, "FluReflec");
    gauge.accessibleName = u"Temps de réflexion";
    bench.show(form);
    gauge.Maximum = 20;
    gauge.Valeur = 7;
    gauge.TexteFlux = u"7";
    EXPECT_EQ(of(gauge)->role(), QAccessible::ProgressBar);
    EXPECT_EQ(name(gauge), "Temps de réflexion");
    EXPECT_EQ(description(gauge), "7");
    ASSERT_NE(of(gauge)->valueInterface(), nullptr);
    EXPECT_EQ(of(gauge)->valueInterface()->currentValue().toInt(), 7);
    EXPECT_EQ(of(gauge)->valueInterface()->maximumValue().toInt(), 20);
}

TEST_F(Bus, TheThemePictureTellsItsCurtain) {
    Picture picture(form, "VSDessin");
    picture.accessibleName = u"Image du thème";
    picture.scaleHeight = 200;
    Shape curtain(form, "Shape1");
    curtain.container = &picture;
    curtain.Visible = false;
    bench.show(form);
    EXPECT_EQ(of(picture)->role(), QAccessible::Graphic);
    EXPECT_EQ(name(picture), "Image du thème");
    EXPECT_EQ(description(picture), "sans voile");
    curtain.Visible = true;
    EXPECT_EQ(description(picture), "voile 1/200");
    curtain.Height = 166;
    EXPECT_EQ(description(picture), "voile 166/200");
    curtain.Visible = false;
    EXPECT_EQ(description(picture), "sans voile");
}

TEST_F(Bus, WhatStandsBesideAControlNamesItAndGoesOnDoingSo) {
    Label label(form, "Etiquette");
    label.Caption = u"Nom :";
    TextField field(form, "Saisie", 0);
    CheckBox box(form, "Conf");
    ScrollBar bar(form, "Def");
    List list(form, "Lst");
    for (Control *control : std::initializer_list<Control *>{&field, &box, &bar, &list}) {
        control->labelledBy = &label;
        control->place = {0, 0, 3000, 450};
    }
    bench.show(form);
    EXPECT_EQ(of(field)->role(), QAccessible::EditableText);
    EXPECT_EQ(of(box)->role(), QAccessible::CheckBox);
    EXPECT_EQ(of(bar)->role(), QAccessible::ScrollBar);
    EXPECT_EQ(of(list)->role(), QAccessible::List);
    for (Control *control : std::initializer_list<Control *>{&field, &box, &bar, &list}) {
        EXPECT_EQ(name(*control), "Nom :");
    }
    label.Caption = u"Prénom :";
    for (Control *control : std::initializer_list<Control *>{&field, &box, &bar, &list}) {
        EXPECT_EQ(name(*control), "Prénom :");
    }
}

TEST_F(Bus, WithoutALabelAControlKeepsItsOwnName) {
    List list(form, "Lst");
    list.accessibleName = u"Thèmes";
    bench.show(form);
    EXPECT_EQ(name(list), "Thèmes");
}

TEST_F(Bus, ACheckBoxTellsItsStateAndIsToggled) {
    CheckBox box(form, "Conf");
    box.place = {0, 0, 450, 450};
    bench.show(form);
    EXPECT_TRUE(of(box)->state().checkable);
    EXPECT_FALSE(of(box)->state().checked);
    of(box)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    bench.settle();
    EXPECT_EQ(box.Value.get(), 1);
    EXPECT_TRUE(of(box)->state().checked);
}

TEST_F(Bus, TheItemsOfAListAreTheirShownColumnsAlone) {
    List list(form, "Lst");
    list.place = {0, 0, 3000, 3000};
    list.shownColumns = 10;
    list.AddItem(u"LA FERME  FERME.DBS FERME");
    bench.show(form);
    QAccessibleInterface *item = of(list)->child(0);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->text(QAccessible::Name).toStdString(), "LA FERME");
}

TEST_F(Bus, ATextFieldTellsItsTextAndAScrollBarItsValue) {
    TextField field(form, "Saisie", 0);
    ScrollBar bar(form, "Def");
    bar.Max = 120;
    bench.show(form);
    field.Text = u"Zoé";
    bar.Value = 45;
    EXPECT_EQ(of(field)->text(QAccessible::Value).toStdString(), "Zoé");
    EXPECT_EQ(of(bar)->valueInterface()->currentValue().toInt(), 45);
    of(bar)->valueInterface()->setCurrentValue(60); // as a screen reader would
    EXPECT_EQ(bar.Value.get(), 60);
}

TEST_F(Bus, ATableIsReadCellByCell) {
    Table table(form, "LstScore");
    table.place = {0, 0, 6000, 3000};
    table.AddItem(u"Score :\t12\t7");
    bench.show(form);
    QAccessibleTableInterface *cells = of(table)->tableInterface();
    ASSERT_NE(cells, nullptr);
    EXPECT_EQ(cells->rowCount(), 1);
    EXPECT_EQ(cells->columnCount(), 3);
    EXPECT_EQ(cells->cellAt(0, 1)->text(QAccessible::Name).toStdString(), "12");
}

TEST_F(Bus, AClickablePictureIsAPushButton) {
    Picture picture(form, "Image1");
    picture.accessibleName = u"Catalogue";
    picture.place = {0, 0, 900, 900};
    int clicks = 0;
    picture.Click = [&] { ++clicks; };
    bench.show(form);
    EXPECT_EQ(of(picture)->role(), QAccessible::PushButton);
    of(picture)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    bench.settle();
    EXPECT_EQ(clicks, 1);
}

TEST_F(Bus, AColouredKnobTellsTheTextBesideItAndItsColour) {
    Label label(form, "TxtPlay", 0);
    label.Caption = u"1 Joueur";
    Shape knob(form, "CmdNbPlay", 0);
    knob.labelledBy = &label;
    knob.BackColor = colours::green;
    knob.Click = [] {};
    knob.place = {0, 0, 450, 450};
    bench.show(form);
    EXPECT_EQ(name(knob), "1 Joueur");
    EXPECT_EQ(description(knob), "vert");
    knob.BackColor = colours::red;
    EXPECT_EQ(description(knob), "rouge");
}

struct Speech : Bus {
    // What the notification has come to say since.
    std::string next() {
        bench.settle();
        bench.settle();
        QWidget &speaker = bench.window(form)->speaker();
        const std::string said = speaker.accessibleName().toStdString();
        speaker.setAccessibleName({});
        return said;
    }
};

TEST_F(Speech, IsANotificationThatComesIntoViewAndGoes) {
    bench.show(form);
    Speaker &speaker = bench.window(form)->speaker();
    QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(&speaker);
    EXPECT_EQ(seen->role(), QAccessible::Notification);
    EXPECT_TRUE(seen->state().invisible);
    speaker.say(Speaker::turn, QStringLiteral("PAUL M. A toi"));
    speaker.say(Speaker::letter, QStringLiteral("K fausse"));
    bench.settle();
    EXPECT_FALSE(seen->state().invisible);
    EXPECT_EQ(next(), "K fausse. PAUL M. A toi");
    EXPECT_TRUE(QTest::qWaitFor([&] { return seen->state().invisible; }, 5000));
}

TEST_F(Speech, TellsTheWordWhatEachLetterDidWhoseTurnItIsAndTheEnd) {
    Label word(form, "AffMot", 0), player(form, "Rappel", 1);
    word.look = Label::Look::word;
    player.look = Label::Look::player;
    player.ToolTipText = u"A toi";
    LetterButton letter(form, "VsAlpha", 4), wrong(form, "VsAlpha", 10);
    letter.caption = u"E";
    letter.Picture = u"E.libre";
    letter.DisabledPicture = u"E.trouvee";
    wrong.caption = u"K";
    wrong.Picture = u"K.libre";
    wrong.DisabledPicture = u"K.fausse";
    bench.show(form);
    next();
    word.FontSize = 12;
    word.Caption = u"Pour commencer";
    EXPECT_EQ(next(), "Pour commencer");
    word.FontSize = 15;
    word.ForeColor = colours::blue;
    word.Caption = u"É#-## (ICI)";
    player.Caption = u"MARIE D. A toi";
    EXPECT_EQ(next(), "É, 1 lettre cachée, tiret, 2 lettres cachées, (ICI). MARIE D. A toi");
    letter.Enabled = false;
    word.Caption = u"ÉE-## (ICI)";
    EXPECT_EQ(next(), "E trouvée. É, E, tiret, 2 lettres cachées, (ICI)");
    wrong.Enabled = false;
    EXPECT_EQ(next(), "K fausse");
    word.Caption = u"ÉE-AB (ICI)";
    word.ForeColor = colours::green;
    EXPECT_EQ(next(), "Mot trouvé : ÉE-AB (ICI)");
    word.ForeColor = colours::red;
    EXPECT_EQ(next(), "Réponse : ÉE-AB (ICI)");
    player.Caption = u"MARIE D.";
    EXPECT_EQ(next(), "") << "the others turn speaks for itself";
    EXPECT_EQ(next(), "") << "nothing is said twice";
}

TEST_F(Speech, IsSilentAboutLettersThatGoToRestAndWindowsThatAreNotSeen) {
    LetterButton letter(form, "VsAlpha", 4);
    letter.caption = u"E";
    letter.Picture = u"E.libre";
    letter.DisabledPicture = u"E.repos";
    Label word(form, "AffMot", 0);
    word.look = Label::Look::word;
    form.load();
    word.Caption = u"AVANT";
    EXPECT_EQ(next(), "");
    bench.show(form);
    next();
    letter.Enabled = false;
    letter.Enabled = true;
    EXPECT_EQ(next(), "");
}

} // namespace
} // namespace grimoval::test
