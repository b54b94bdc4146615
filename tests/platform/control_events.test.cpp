// SPDX-License-Identifier: GPL-3.0-or-later
// Which assignments from the code raise events: a check box's value, when it changes; a scroll
// bar's, always; a list's selection; a field's text. And no other.
#include "every_control.h"
#include "support/failures.h"
#include "support/world.h"

#include <gtest/gtest.h>

namespace grimoval {
namespace {

using test::failureNumber;

struct ControlEventsTest : testing::Test {
    test::World world;
    test::EveryControl window{world.screen};
    int events = 0;
    const std::function<void()> count = [this] { ++events; };

    ControlEventsTest() { window.show(); }
    int take() { return std::exchange(events, 0); }
};

TEST_F(ControlEventsTest, ACheckBoxClicksWhenItsValueChanges) {
    window.check.Click = count;
    window.check.Value = 1;
    EXPECT_EQ(take(), 1);
    window.check.Value = 1;
    EXPECT_EQ(take(), 0);
    window.check.Value = 0;
    EXPECT_EQ(take(), 1);
}

TEST_F(ControlEventsTest, ACheckBoxHoldsOneForAnyOtherValueThanZero) {
    window.check.Click = count;
    window.check.Value = -1;
    EXPECT_EQ(window.check.Value.get(), 1);
    window.check.Value = 2;
    EXPECT_EQ(window.check.Value.get(), 1);
    EXPECT_EQ(take(), 1) << "1, then 1 again";
}

TEST_F(ControlEventsTest, AScrollBarChangesAtEveryAssignment) {
    window.bar.Change = count;
    window.bar.Value = 30;
    window.bar.Value = 30;
    window.bar.Value = 0;
    EXPECT_EQ(take(), 3);
    window.bar.Min = -10;
    window.bar.Max = 200;
    EXPECT_EQ(take(), 0);
}

TEST_F(ControlEventsTest, AScrollBarRefusesAValueOutsideItsBoundsWithFailure380) {
    window.bar.Min = 5;
    window.bar.Max = 120;
    window.bar.Change = count;
    window.bar.Value = 5;
    window.bar.Value = 120;
    EXPECT_EQ(take(), 2);
    for (const int value : {4, 121, -32768}) {
        EXPECT_EQ(failureNumber([&] { window.bar.Value = value; }), failure::invalidPropertyValue);
    }
    EXPECT_EQ(window.bar.Value.get(), 120);
    EXPECT_EQ(take(), 0);
}

TEST_F(ControlEventsTest, AListClicksWhenItsSelectionIsAssigned) {
    window.list.Items = std::vector<Texte>{u"a", u"b"};
    window.list.Click = count;
    window.list.ListIndex = 1;
    EXPECT_EQ(take(), 1);
    window.list.ListIndex = 1;
    EXPECT_EQ(take(), 1);
    window.list.ListIndex = -1;
    EXPECT_EQ(take(), 1);
}

TEST_F(ControlEventsTest, AListRefusesASelectionWithoutAnEntryWithFailure380) {
    window.list.Items = std::vector<Texte>{u"a", u"b"};
    window.list.Click = count;
    EXPECT_EQ(failureNumber([&] { window.list.ListIndex = 2; }), failure::invalidPropertyValue);
    EXPECT_EQ(failureNumber([&] { window.list.ListIndex = -2; }), failure::invalidPropertyValue);
    EXPECT_EQ(window.list.ListIndex.get(), -1);
    EXPECT_EQ(take(), 0);
}

TEST_F(ControlEventsTest, AFieldChangesWhenItsTextBecomesAnotherOne) {
    window.field.Change = count;
    window.field.Text = u"Zoé";
    EXPECT_EQ(take(), 1);
    window.field.Text = u"Zoé";
    EXPECT_EQ(take(), 0);
    window.field.Text = u"";
    EXPECT_EQ(take(), 1);
}

TEST_F(ControlEventsTest, NoOtherAssignmentRaisesAnEvent) {
    window.label.Click = window.button.Click = window.letter.Click = count;
    window.picture.Click = window.shape.Click = window.list.DblClick = count;
    window.gauge.Progression = window.gauge.Fin = window.timer.Tick = count;
    window.list.Click = window.check.Click = window.bar.Change = count;
    window.label.Caption = u"x";
    window.label.Visible = false;
    window.button.Face = u"x";
    window.button.Inactif = true;
    window.letter.Picture = u"x";
    window.letter.Enabled = false;
    window.gauge.Valeur = 100;
    window.gauge.Maximum = 10;
    window.gauge.EnMarche = true;
    window.gauge.Arreter();
    window.list.AddItem(u"a");
    window.list.AddItem(u"b");
    window.list.RemoveItem(0);
    window.list.Clear();
    window.list.Enabled = false;
    window.check.Enabled = false;
    window.bar.Visible = false;
    window.picture.PictureFile = u"x";
    window.picture.Tag = u"x";
    window.shape.Height = 9;
    window.timer.Interval = 10;
    EXPECT_EQ(take(), 0);
}

TEST_F(ControlEventsTest, TheEventComesAfterTheValueIsStored) {
    int seen = -1;
    window.bar.Change = [&] { seen = window.bar.Value; };
    window.bar.Value = 42;
    EXPECT_EQ(seen, 42);
    window.check.Click = [&] { seen = window.check.Value; };
    window.check.Value = 1;
    EXPECT_EQ(seen, 1);
}

TEST_F(ControlEventsTest, AnEventMayAssignTheSameControlAgain) {
    window.field.Change = [&] {
        ++events;
        window.field.Text = upper(window.field.Text.get());
    };
    window.field.Text = u"zoé";
    EXPECT_EQ(window.field.Text.get(), u"ZOÉ");
    EXPECT_EQ(take(), 2);
}

TEST_F(ControlEventsTest, AListAddsAndRemovesInOrder) {
    for (const Texte item : {u"c", u"a", u"b"}) {
        window.list.AddItem(item);
    }
    window.list.RemoveItem(1);
    EXPECT_EQ(window.list.ListCount(), 2);
    EXPECT_EQ(window.list.item(0), u"c");
    EXPECT_EQ(window.list.item(1), u"b");
    EXPECT_EQ(failureNumber([&] { window.list.item(2); }), failure::invalidPropertyValue);
    EXPECT_EQ(failureNumber([&] { window.list.item(-1); }), failure::invalidPropertyValue);
    EXPECT_EQ(failureNumber([&] { window.list.RemoveItem(2); }), failure::invalidPropertyValue);
    EXPECT_EQ(failureNumber([&] { window.list.RemoveItem(-1); }), failure::invalidPropertyValue);
    EXPECT_EQ(window.list.ListCount(), 2);
}

TEST_F(ControlEventsTest, AListThatLosesItsLastSelectedEntryHasNoSelection) {
    window.list.Items = std::vector<Texte>{u"a", u"b"};
    window.list.ListIndex = 1;
    window.list.RemoveItem(1);
    EXPECT_EQ(window.list.ListIndex.get(), -1);
    window.list.ListIndex = 0;
    window.list.Clear();
    EXPECT_EQ(window.list.ListIndex.get(), -1);
    EXPECT_EQ(window.list.ListCount(), 0);
}

TEST_F(ControlEventsTest, ATableTakesItsCellsFromTabs) {
    window.table.AddItem(u"a\tb\t\tc");
    window.table.AddItem(u"");
    EXPECT_EQ(window.table.cell(0, 1), u"b");
    EXPECT_EQ(window.table.cell(0, 2), u"");
    EXPECT_EQ(window.table.cell(0, 3), u"c");
    EXPECT_EQ(window.table.cell(0, 4), u"") << "a row's end is blank";
    EXPECT_EQ(window.table.cell(1, 0), u"");
    EXPECT_EQ(failureNumber([&] { window.table.cell(2, 0); }), failure::invalidPropertyValue);
    EXPECT_EQ(failureNumber([&] { window.table.cell(-1, 0); }), failure::invalidPropertyValue);
    EXPECT_EQ(failureNumber([&] { window.table.cell(0, -1); }), failure::invalidPropertyValue);
    window.table.Clear();
    EXPECT_TRUE(window.table.Rows.get().empty());
}

} // namespace
} // namespace grimoval
