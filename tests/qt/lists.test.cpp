// SPDX-License-Identifier: GPL-3.0-or-later
// The mirror of a list: its columns, its choices, its many entries.
#include "qt/bench.h"

#include <QApplication>
#include <QElapsedTimer>

namespace grimoval::test {
namespace {

struct Lists : testing::Test {
    Bench bench;
    TestForm form{bench.screen};
};

TEST_F(Lists, AListShowsItsFirstColumnsAndEachChoiceIsOneClick) {
    List list(form, "Lst");
    list.place = {0, 0, 4000, 3000};
    list.shownColumns = 6;
    list.AddItem(u"FERME   FERME.DBS");
    list.AddItem(u"ESPACE  ESPACE.DBS");
    int clicks = 0, doubles = 0;
    list.Click = [&] { ++clicks; };
    list.DblClick = [&] { ++doubles; };
    bench.show(form);
    auto *view = bench.view<ListView>(list);
    EXPECT_EQ(view->model()->index(0, 0).data().toString().toStdString(), "FERME");
    EXPECT_EQ(view->model()->index(1, 0).data().toString().toStdString(), "ESPACE");

    const QPoint second = view->visualRect(view->model()->index(1, 0)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(list.ListIndex.get(), 1);
    EXPECT_EQ(clicks, 1);
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, second); // the same again
    EXPECT_EQ(clicks, 2);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(doubles, 1);

    clicks = 0;
    list.ListIndex = 0; // the event is the assignment's own, once
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(view->selected(), 0);
    list.ListIndex = -1;
    EXPECT_EQ(view->selected(), -1);
    EXPECT_EQ(clicks, 2);
}

TEST_F(Lists, AnEmptyPlaceOfTheListChoosesNothing) {
    List list(form, "Lst");
    list.place = {0, 0, 4000, 3000};
    list.AddItem(u"SEUL");
    int events = 0;
    list.Click = list.DblClick = [&] { ++events; };
    bench.show(form);
    auto *view = bench.view<ListView>(list);
    const QPoint below(20, view->viewport()->height() - 5);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, below);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, below);
    EXPECT_EQ(events, 0);
    EXPECT_EQ(list.ListIndex.get(), -1);
}

TEST_F(Lists, TheFocusAloneChoosesNoItem) {
    List list(form, "Lst");
    list.place = {0, 0, 4000, 3000};
    list.AddItem(u"UN");
    list.AddItem(u"DEUX");
    int clicks = 0;
    list.Click = [&] { ++clicks; };
    bench.show(form);
    bench.settle();
    EXPECT_EQ(clicks, 0);
    bench.press(form, Qt::Key_Down); // the first arrow chooses the first item
    EXPECT_EQ(list.ListIndex.get(), 0);
    bench.press(form, Qt::Key_Down);
    EXPECT_EQ(list.ListIndex.get(), 1);
    EXPECT_EQ(clicks, 2);
}

TEST_F(Lists, TheListFollowsWhatTheClickMakesOfIt) {
    List list(form, "Lst");
    list.place = {0, 0, 4000, 3000};
    for (const char16_t *item : {u"UN", u"DEUX", u"TROIS"}) {
        list.AddItem(item);
    }
    list.Click = [&] {
        if (list.ListIndex == 2) {
            list.ListIndex = 0;
        }
    };
    bench.show(form);
    auto *view = bench.view<ListView>(list);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      view->visualRect(view->model()->index(2, 0)).center());
    bench.settle();
    EXPECT_EQ(list.ListIndex.get(), 0);
    EXPECT_EQ(view->selected(), 0);
}

TEST_F(Lists, AListOfTwoThousandEntriesIsCopiedOnceAndQuickly) {
    List list(form, "Lst");
    list.place = {0, 0, 4000, 3000};
    bench.show(form);
    QElapsedTimer time;
    time.start();
    for (int i = 0; i < 2000; ++i) {
        list.AddItem(u"THEME " + decimal(i));
    }
    bench.settle();
    EXPECT_EQ(bench.view<ListView>(list)->model()->rowCount(), 2000);
    EXPECT_LT(time.elapsed(), 1000);
    list.RemoveItem(0);
    list.ListIndex = 1998; // brings the list up to date first
    EXPECT_EQ(bench.view<ListView>(list)->selected(), 1998);
}

} // namespace
} // namespace grimoval::test
