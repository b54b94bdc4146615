// SPDX-License-Identifier: GPL-3.0-or-later
// The message box, and what lies under it.
#include "qt/bench.h"

#include <QDialog>

#include <optional>

namespace grimoval::test {
namespace {

struct Boxes : testing::Test {
    Bench bench;
};

TEST_F(Boxes, AMessageReturnsWhenItIsAnsweredByEnterEscapeOrItsButton) {
    for (const int way : {int(Qt::Key_Return), int(Qt::Key_Escape), 0}) {
        TestForm form(bench.screen);
        form.show();
        bool wasUp = false;
        std::string title;
        Bench::later([&] {
            QDialog *box = bench.windows.box();
            ASSERT_NE(box, nullptr);
            wasUp = box->isVisible();
            title = box->windowTitle().toStdString();
            if (way != 0) {
                QTest::keyClick(box, Qt::Key(way));
            } else {
                QTest::mouseClick(box->findChild<QWidget *>(QStringLiteral("OK")), Qt::LeftButton);
            }
        });
        bench.screen.message(u"Choisis un titre.", MessageIcon::exclamation);
        EXPECT_TRUE(wasUp);
        EXPECT_EQ(title, "Le Grimoval");
        EXPECT_EQ(bench.windows.box(), nullptr);
        EXPECT_EQ(form.paints, 2); // the box stood over it
        EXPECT_EQ(form.activations, 1);
    }
}

TEST_F(Boxes, AKeyHeldSinceBeforeTheBoxDoesNotAnswerIt) {
    bool stillUp = false;
    Bench::later([&] {
        QDialog *box = bench.windows.box();
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), true);
        QCoreApplication::sendEvent(box, &held);
        stillUp = box->isVisible();
        box->accept();
    });
    bench.screen.message(u"Attention", MessageIcon::information, u"Titre");
    EXPECT_TRUE(stillUp);
}

TEST_F(Boxes, NothingUnderABoxTakesAClick) {
    TestForm form(bench.screen);
    PictureButton button(form, "Cmd");
    button.place = {0, 0, 1500, 1500};
    int clicks = 0;
    button.Click = [&] { ++clicks; };
    form.show();
    Bench::later([&] {
        bench.view<FaceButton>(button)->onPress();
        bench.windows.box()->accept();
    });
    bench.screen.message(u"Attention", MessageIcon::information);
    EXPECT_EQ(clicks, 0);
    bench.view<FaceButton>(button)->onPress();
    EXPECT_EQ(clicks, 1);
}

} // namespace
} // namespace grimoval::test
