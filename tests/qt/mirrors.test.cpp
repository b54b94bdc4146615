// SPDX-License-Identifier: GPL-3.0-or-later
// Each kind of control both ways: what the code sets is shown, what the person does arrives, and
// nothing comes back as an echo.
#include "qt/bench.h"

namespace grimoval::test {
namespace {

struct Mirrors : testing::Test {
    Bench bench;
    TestForm form{bench.screen};

    static QRect rectOf(QWidget *widget) { return widget->geometry(); }
    template <class View>
    void click(Control &control) {
        QTest::mouseClick(bench.view<View>(control), Qt::LeftButton);
    }
};

TEST_F(Mirrors, AControlStandsAtItsPlaceTimesTheFactor) {
    Label label(form, "Txt");
    label.place = {150, 300, 1500, 450};
    bench.windows.setFactor(2);
    bench.show(form);
    EXPECT_EQ(rectOf(bench.mirror(label)->widget()), QRect(20, 40, 200, 60));
    EXPECT_EQ(bench.window(form)->size(), QSize(800, 600));
}

TEST_F(Mirrors, ALabelShowsItsCaptionAndColourAndIsClicked) {
    Label label(form, "Txt");
    label.place = {0, 0, 3000, 450};
    int clicks = 0;
    label.Click = [&] { ++clicks; };
    bench.show(form);
    label.Caption = u"Élan\nvital";
    label.ForeColor = colours::red;
    label.FontSize = 14;
    auto *view = bench.view<LabelView>(label);
    EXPECT_EQ(view->written().text.toStdString(), "Élan\nvital");
    EXPECT_EQ(view->written().colour, colours::red);
    EXPECT_EQ(view->written().points, 14);
    click<LabelView>(label);
    EXPECT_EQ(clicks, 1);
    label.Visible = false;
    EXPECT_FALSE(view->isVisible());
}

TEST_F(Mirrors, APictureButtonIsClickedUnlessItIsGreyed) {
    PictureButton button(form, "Cmd");
    button.place = {0, 0, 1500, 1500};
    int clicks = 0;
    button.Click = [&] { ++clicks; };
    bench.show(form);
    click<FaceButton>(button);
    EXPECT_EQ(clicks, 1);
    button.Inactif = true;
    EXPECT_FALSE(bench.view<FaceButton>(button)->isEnabled());
    click<FaceButton>(button);
    EXPECT_EQ(clicks, 1);
    button.Inactif = false;
    click<FaceButton>(button);
    EXPECT_EQ(clicks, 2);
}

TEST_F(Mirrors, APressLeftOutsideTheButtonIsNoClick) {
    PictureButton button(form, "Cmd");
    button.place = {0, 0, 1500, 1500};
    int clicks = 0;
    button.Click = [&] { ++clicks; };
    bench.show(form);
    auto *view = bench.view<FaceButton>(button);
    QTest::mousePress(view, Qt::LeftButton);
    QTest::mouseRelease(view, Qt::LeftButton, {}, QPoint(400, 300));
    QTest::mouseClick(view, Qt::RightButton);
    EXPECT_EQ(clicks, 0);
}

TEST_F(Mirrors, TheMouseOverAControlAndOverTheWindowIsToldToTheForm) {
    PictureButton button(form, "Cmd");
    button.place = {0, 0, 1500, 1500};
    int over = 0;
    button.MouseMove = [&] { ++over; };
    bench.show(form);
    bench.settle();
    over = 0;
    form.hovers = 0;
    QMouseEvent onButton(QEvent::MouseMove, QPointF(5, 5), QPointF(5, 5), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(bench.view<FaceButton>(button), &onButton);
    EXPECT_EQ(over, 1);
    EXPECT_EQ(form.hovers, 0);
    QMouseEvent beside(QEvent::MouseMove, QPointF(390, 290), QPointF(390, 290), Qt::NoButton,
                       Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(bench.window(form), &beside);
    EXPECT_EQ(form.hovers, 1);
    form.MousePointer = 10;
    EXPECT_EQ(bench.window(form)->cursor().shape(), Qt::PointingHandCursor);
    form.MousePointer = 0;
    EXPECT_EQ(bench.window(form)->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(Mirrors, ALetterShowsTheFaceOfItsState) {
    LetterButton letter(form, "VsAlpha", 0);
    letter.place = {0, 0, 800, 800};
    letter.caption = u"A";
    letter.Picture = u"A.libre";
    letter.DownPicture = u"A.trouvee";
    letter.DisabledPicture = u"A.repos";
    int clicks = 0;
    letter.Click = [&] { ++clicks; };
    bench.show(form);
    auto *view = bench.view<LetterView>(letter);
    EXPECT_EQ(view->shownFace().toStdString(), "A.libre");
    QTest::mousePress(view, Qt::LeftButton);
    EXPECT_EQ(view->shownFace().toStdString(), "A.trouvee");
    QTest::mouseRelease(view, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    letter.Enabled = false;
    EXPECT_EQ(view->shownFace().toStdString(), "A.repos");
    letter.DisabledPicture = u"A.fausse";
    EXPECT_EQ(view->shownFace().toStdString(), "A.fausse");
    click<LetterView>(letter);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirrors, AStoreOfFacesAndAHiddenListHaveNoWidget) {
    LetterButton letter(form, "VsAlphabis", 0);
    letter.shownOnScreen = false;
    List list(form, "LstMot", 0);
    list.shownOnScreen = false;
    bench.show(form);
    EXPECT_EQ(bench.mirror(letter), nullptr);
    EXPECT_EQ(bench.mirror(list), nullptr);
    letter.Picture = u"A.libre";
    list.AddItem(u"MOT");
}

TEST_F(Mirrors, AGaugeShowsItsValueMaximumAndText) {
    Gauge gauge(form, "Flux");
    bench.show(form);
    gauge.Maximum = 20;
    gauge.Valeur = 7;
    gauge.TexteFlux = u"7 s";
    auto *view = bench.view<GaugeView>(gauge);
    EXPECT_EQ(view->value(), 7);
    EXPECT_EQ(view->maximum(), 20);
    EXPECT_EQ(view->shownText().toStdString(), "7 s");
    gauge.Valeur = 30; // beyond its maximum the bar is full
    EXPECT_EQ(view->value(), 20);
}

TEST_F(Mirrors, ACheckBoxShowsItsValueAndOneClickIsOneEvent) {
    CheckBox box(form, "Conf");
    box.place = {0, 0, 400, 400};
    int clicks = 0;
    box.Click = [&] { ++clicks; };
    bench.show(form);
    auto *view = bench.view<CheckView>(box);
    click<CheckView>(box);
    EXPECT_EQ(box.Value.get(), 1);
    EXPECT_TRUE(view->isChecked());
    EXPECT_EQ(clicks, 1);
    box.Value = 0;
    EXPECT_FALSE(view->isChecked());
    EXPECT_EQ(clicks, 2);
    box.Enabled = false;
    click<CheckView>(box);
    EXPECT_EQ(box.Value.get(), 0);
}

TEST_F(Mirrors, AScrollBarMovesBothWaysWithoutEcho) {
    ScrollBar bar(form, "Def");
    bar.place = {0, 0, 4000, 400};
    bar.Min = 5;
    bar.Max = 120;
    bar.Value.store(30);
    bar.smallChange = 5;
    bar.largeChange = 20;
    int changes = 0;
    bar.Change = [&] { ++changes; };
    bench.show(form);
    auto *view = bench.view<ScrollView>(bar);
    EXPECT_EQ(view->value(), 30);
    bar.Value = 60;
    EXPECT_EQ(view->value(), 60);
    EXPECT_EQ(changes, 1);
    view->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(bar.Value.get(), 65);
    view->triggerAction(QAbstractSlider::SliderPageStepSub);
    EXPECT_EQ(bar.Value.get(), 45);
    EXPECT_EQ(changes, 3);
    bar.Max = 50;
    EXPECT_EQ(view->maximum(), 50);
    EXPECT_EQ(changes, 3);
}

TEST_F(Mirrors, ATextFieldTakesWhatIsTypedAndShowsWhatBecomesOfIt) {
    TextField field(form, "Saisie", 0);
    field.place = {0, 0, 4000, 450};
    field.maxLength = 5;
    int changes = 0;
    field.Change = [&] {
        ++changes;
        field.Text = upper(field.Text.get());
    };
    bench.show(form);
    auto *view = bench.view<FieldView>(field);
    view->insert(QStringLiteral("éa"));
    EXPECT_EQ(toUtf8(field.Text.get()), "ÉA");
    EXPECT_EQ(view->text().toStdString(), "ÉA");
    EXPECT_EQ(changes, 2); // the typing, and the capitals
    view->insert(QStringLiteral("bcdefgh"));
    EXPECT_EQ(toUtf8(field.Text.get()), "ÉABCD");
    changes = 0;
    field.Text = u"Z";
    EXPECT_EQ(view->text().toStdString(), "Z");
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(view->hasSelectedText());
}

TEST_F(Mirrors, ATextTooLongForAPersonMayStillBeSetByTheCode) {
    TextField field(form, "Saisie", 0);
    field.place = {0, 0, 4000, 450};
    field.maxLength = 3;
    bench.show(form);
    field.Text = u"ABCDEF";
    EXPECT_EQ(toUtf8(field.Text.get()), "ABCDEF");
}

TEST_F(Mirrors, APictureHasItsCurtainInItsOwnUnits) {
    Picture picture(form, "VSDessin");
    picture.place = {0, 0, 3150, 3150};
    picture.scaleHeight = 200;
    Shape curtain(form, "Shape1");
    curtain.container = &picture;
    curtain.Visible = false;
    bench.show(form);
    auto *view = bench.view<PictureView>(picture);
    EXPECT_EQ(view->curtain().height(), 0);
    EXPECT_EQ(bench.mirror(curtain)->widget(), nullptr);
    curtain.Visible = true;
    curtain.Height = 100;
    EXPECT_DOUBLE_EQ(view->curtain().height(), view->inner().height() / 2);
    EXPECT_EQ(view->curtain().width(), view->inner().width());
    EXPECT_EQ(view->curtain().topLeft(), view->inner().topLeft());
    curtain.Height = 200;
    EXPECT_EQ(view->curtain(), view->inner());
    curtain.Height = 400; // no further than the frame
    EXPECT_EQ(view->curtain(), view->inner());
}

TEST_F(Mirrors, TheCurtainIsSeenToCoverThePicture) {
    QImage white(300, 300, QImage::Format_RGB32);
    white.fill(Qt::white);
    ASSERT_TRUE(white.save(QString::fromStdString(bench.folder.bytePath(u"blanc.png"))));
    Picture picture(form, "VSDessin");
    picture.place = {0, 0, 3000, 3000};
    picture.scaleHeight = 200;
    picture.PictureFile = bench.folder.path(u"BLANC.PNG"); // names are case-blind
    Shape curtain(form, "Shape1");
    curtain.container = &picture;
    curtain.Visible = false;
    bench.show(form);
    const auto whites = [&] {
        const QImage seen = bench.view<PictureView>(picture)->grab().toImage();
        int count = 0;
        for (int y = 0; y < seen.height(); ++y) {
            // White, or white in the shade of the cloth; no velvet and no gold.
            const QColor here = seen.pixelColor(seen.width() / 2, y);
            count += here.saturation() < 20 && here.lightness() > 90;
        }
        return count;
    };
    const int all = whites();
    EXPECT_GT(all, 170);
    curtain.Visible = true;
    curtain.Height = 100;
    EXPECT_NEAR(whites(), all / 2, 2);
    curtain.Height = 200;
    EXPECT_EQ(whites(), 0);
}

TEST_F(Mirrors, AShapeAloneIsAButtonInItsColour) {
    Shape knob(form, "CmdNbPlay", 0);
    knob.place = {0, 0, 450, 450};
    knob.BackColor = colours::green;
    int clicks = 0;
    knob.Click = [&] { ++clicks; };
    bench.show(form);
    click<KnobView>(knob);
    EXPECT_EQ(clicks, 1);
    const auto edge = [&] {
        const QImage seen = bench.view<KnobView>(knob)->grab().toImage();
        return seen.pixelColor(seen.width() / 2, seen.height() * 3 / 4);
    };
    EXPECT_GT(edge().green(), edge().red());
    knob.BackColor = colours::red;
    EXPECT_GT(edge().red(), edge().green());
}

TEST_F(Mirrors, ATableHasItsCellsAndMergesEqualNeighboursInMergedRowsAlone) {
    Table table(form, "LstScore");
    table.place = {0, 0, 6000, 3000};
    bench.show(form);
    table.columnWidths = {3000, 1500, 1500};
    table.AddItem(u"Nom :\tAnne\tAnne");
    table.AddItem(u"Mots :\t12\t12");
    table.mergedRows = {false, true};
    table.AddItem(u"Score :\t5\t7");
    bench.settle();
    auto *view = bench.view<TableView>(table);
    ASSERT_EQ(view->rowCount(), 3);
    ASSERT_EQ(view->columnCount(), 3);
    EXPECT_EQ(view->item(2, 1)->text().toStdString(), "5");
    EXPECT_EQ(view->columnSpan(0, 1), 1);
    EXPECT_EQ(view->columnSpan(1, 1), 2);
    EXPECT_EQ(view->columnSpan(2, 1), 1);
    EXPECT_NEAR(view->columnWidth(0), 2 * view->columnWidth(1), 2);
    table.Clear();
    EXPECT_EQ(view->rowCount(), 0);
}

TEST_F(Mirrors, WhatLiesInAHiddenContainerIsHiddenWithIt) {
    Label panel(form, "Bord", 3), outer(form, "Bord", 4);
    Label name(form, "Rappel", 2);
    name.place = {0, 0, 1500, 300};
    name.container = &panel;
    panel.container = &outer;
    panel.Visible = false;
    bench.show(form);
    QWidget *view = bench.mirror(name)->widget();
    EXPECT_FALSE(view->isVisible());
    panel.Visible = true;
    EXPECT_TRUE(view->isVisible());
    outer.Visible = false;
    EXPECT_FALSE(view->isVisible());
}

TEST_F(Mirrors, AReloadedWindowShowsTheDesignAgain) {
    Label label(form, "Txt");
    label.Caption = u"dessin";
    bench.show(form);
    label.Caption = u"autre";
    form.unload();
    bench.settle();
    bench.show(form);
    EXPECT_EQ(bench.view<LabelView>(label)->written().text.toStdString(), "dessin");
}

} // namespace
} // namespace grimoval::test
