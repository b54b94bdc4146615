// SPDX-License-Identifier: GPL-3.0-or-later
// Each property of each control: another value is told once, an equal one is silent.
#include "every_control.h"
#include "support/failures.h"
#include "support/world.h"

#include <functional>
#include <gtest/gtest.h>
#include <set>

namespace grimoval {
namespace {

using test::Events;
using test::EveryControl;

struct Row {
    std::function<void(EveryControl &)> assign;
    std::string told;
};

const std::vector<Row> &rows() {
    using W = EveryControl;
    static const std::vector<Row> all = {
        {[](W &w) { w.Caption = u"Jeu"; }, R"(FEssai.Caption = "Jeu")"},
        {[](W &w) { w.Left = 150; }, "FEssai.Left = 150"},
        {[](W &w) { w.Top = -15; }, "FEssai.Top = -15"},
        {[](W &w) { w.MousePointer = 11; }, "FEssai.MousePointer = 11"},
        {[](W &w) { w.WindowState = 2; }, "FEssai.WindowState = 2"},
        {[](W &w) { w.BackColor = colours::blue; }, "FEssai.BackColor = #0000FF"},
        {[](W &w) { w.label.Caption = u"A##"; }, R"(FEssai.Etiquette.Caption = "A##")"},
        {[](W &w) { w.label.ForeColor = colours::red; }, "FEssai.Etiquette.ForeColor = #FF0000"},
        {[](W &w) { w.label.FontSize = 18; }, "FEssai.Etiquette.FontSize = 18"},
        {[](W &w) { w.label.Visible = false; }, "FEssai.Etiquette.Visible = Faux"},
        {[](W &w) { w.label.Tag = u"t"; }, R"(FEssai.Etiquette.Tag = "t")"},
        {[](W &w) { w.label.ToolTipText = u"i"; }, R"(FEssai.Etiquette.ToolTipText = "i")"},
        {[](W &w) { w.button.Face = u"/f.tga"; }, R"(FEssai.Bouton.Face = "/f.tga")"},
        {[](W &w) { w.button.Inactif = true; }, "FEssai.Bouton.Inactif = Vrai"},
        {[](W &w) { w.button.Visible = false; }, "FEssai.Bouton.Visible = Faux"},
        {[](W &w) { w.letter.Enabled = false; }, "FEssai.Lettre(7).Enabled = Faux"},
        {[](W &w) { w.letter.Picture = u"A.libre"; }, R"(FEssai.Lettre(7).Picture = "A.libre")"},
        {[](W &w) { w.letter.DownPicture = u"d"; }, R"(FEssai.Lettre(7).DownPicture = "d")"},
        {[](W &w) { w.letter.DisabledPicture = u"x"; },
         R"(FEssai.Lettre(7).DisabledPicture = "x")"},
        {[](W &w) { w.gauge.Valeur = 3; }, "FEssai.Jauge.Valeur = 3"},
        {[](W &w) { w.gauge.Maximum = 20; }, "FEssai.Jauge.Maximum = 20"},
        {[](W &w) { w.gauge.TexteFlux = u"15 s"; }, R"(FEssai.Jauge.TexteFlux = "15 s")"},
        {[](W &w) { w.gauge.CouleurTexte = colours::white; },
         "FEssai.Jauge.CouleurTexte = #FFFFFF"},
        {[](W &w) { w.gauge.EnMarche = true; }, "FEssai.Jauge.EnMarche = Vrai"},
        {[](W &w) { w.gauge.Visible = false; }, "FEssai.Jauge.Visible = Faux"},
        {[](W &w) {
             w.list.Items = std::vector<Texte>{u"a", u"b c"};
         },
         R"(FEssai.Liste.Items = "a" "b c")"},
        {[](W &w) { w.list.Enabled = false; }, "FEssai.Liste.Enabled = Faux"},
        {[](W &w) { w.check.Value = 1; }, "FEssai.Case.Value = 1"},
        {[](W &w) { w.check.Enabled = false; }, "FEssai.Case.Enabled = Faux"},
        {[](W &w) { w.bar.Value = 30; }, "FEssai.Barre.Value = 30"},
        {[](W &w) { w.bar.Min = -5; }, "FEssai.Barre.Min = -5"},
        {[](W &w) { w.bar.Max = 120; }, "FEssai.Barre.Max = 120"},
        {[](W &w) { w.bar.Visible = false; }, "FEssai.Barre.Visible = Faux"},
        {[](W &w) { w.field.Text = u"Zoé"; }, R"(FEssai.Champ.Text = "Zoé")"},
        {[](W &w) { w.picture.PictureFile = u"/a.bmp"; }, R"(FEssai.Image.Picture = "/a.bmp")"},
        {[](W &w) { w.picture.Visible = false; }, "FEssai.Image.Visible = Faux"},
        {[](W &w) { w.picture.Tag = u"t"; }, R"(FEssai.Image.Tag = "t")"},
        {[](W &w) { w.picture.ToolTipText = u"i"; }, R"(FEssai.Image.ToolTipText = "i")"},
        {[](W &w) { w.shape.Height = 200; }, "FEssai.Forme.Height = 200"},
        {[](W &w) { w.shape.Visible = false; }, "FEssai.Forme.Visible = Faux"},
        {[](W &w) { w.shape.BackColor = colours::green; }, "FEssai.Forme.BackColor = #00FF00"},
        {[](W &w) { w.shape.ForeColor = Colour{0x0A0B0C}; }, "FEssai.Forme.ForeColor = #0A0B0C"},
        {[](W &w) { w.table.Rows = Rows{{u"a"}}; }, R"(FEssai.Tableau.Cell(0, 0) = "a")"},
        {[](W &w) { w.timer.Interval = 1000; }, "FEssai.Minuterie.Interval = 1000"},
        {[](W &w) { w.timer.Enabled = false; }, "FEssai.Minuterie.Enabled = Faux"},
    };
    return all;
}

TEST(Properties, AnotherValueIsToldOnceAndAnEqualOneIsSilent) {
    for (const Row &row : rows()) {
        test::World world;
        EveryControl window(world.screen);
        window.load();
        world.windows.take();
        row.assign(window);
        EXPECT_EQ(world.windows.take(), Events{row.told});
        row.assign(window);
        EXPECT_EQ(world.windows.take(), Events{}) << row.told;
    }
}

TEST(Properties, OfAWindowThatIsNotLoadedAreSetInSilence) {
    for (const Row &row : rows()) {
        test::World world;
        EveryControl window(world.screen);
        row.assign(window);
        EXPECT_EQ(world.windows.take(), Events{}) << row.told;
    }
}

std::vector<PropertyBase *> everyProperty(const Form &window) {
    std::vector<PropertyBase *> all = window.properties();
    for (const Control *control : window.controls()) {
        all.insert(all.end(), control->properties().begin(), control->properties().end());
    }
    return all;
}

TEST(Properties, TheTableOfThisTestLeavesNoneOutButTheSelection) {
    test::World world;
    const EveryControl window(world.screen);
    std::set<std::string> tested = {"FEssai.Liste.ListIndex"}; // needs entries: below
    for (const Row &row : rows()) {
        const std::string name = row.told.substr(0, row.told.find(" = "));
        tested.insert(name.substr(0, name.find("(0, 0)")));
    }
    std::set<std::string> all;
    for (const PropertyBase *property : everyProperty(window)) {
        all.insert(property->owner().path() + "." + property->name());
    }
    EXPECT_EQ(tested, all);
}

TEST(Properties, TheSelectionIsToldOnce) {
    test::World world;
    EveryControl window(world.screen);
    window.load();
    window.list.Items = std::vector<Texte>{u"a", u"b"};
    world.windows.take();
    window.list.ListIndex = 1;
    window.list.ListIndex = 1;
    EXPECT_EQ(world.windows.take(), Events{"FEssai.Liste.ListIndex = 1"});
}

TEST(Properties, EntriesThatComeAndGoAreToldEachTime) {
    test::World world;
    EveryControl window(world.screen);
    window.load();
    window.list.AddItem(u"a");
    window.list.AddItem(u"b");
    window.list.RemoveItem(0);
    window.list.Clear();
    window.list.Clear();
    window.table.AddItem(u"1\t2");
    EXPECT_EQ(world.windows.take(),
              (Events{R"(FEssai.Liste.Items = "a")", R"(FEssai.Liste.Items = "a" "b")",
                      R"(FEssai.Liste.Items = "b")", "FEssai.Liste.Items = ",
                      R"(FEssai.Tableau.Cell(0, 0) = "1")", R"(FEssai.Tableau.Cell(0, 1) = "2")"}));
}

TEST(Properties, ATableIsToldCellByCell) {
    test::World world;
    EveryControl window(world.screen);
    window.load();
    window.table.Rows = Rows{{u"a", u""}, {}, {u"b"}};
    EXPECT_EQ(world.windows.take(),
              (Events{R"(FEssai.Tableau.Cell(0, 0) = "a")", R"(FEssai.Tableau.Cell(0, 1) = "")",
                      R"(FEssai.Tableau.Cell(2, 0) = "b")"}));
}

TEST(Properties, AllGoBackToTheDesignWhenTheWindowIsLoadedAgainInSilence) {
    test::World world;
    EveryControl window(world.screen);
    window.label.Caption = u"dessin";
    window.bar.Max = 50;
    window.list.Items = std::vector<Texte>{u"a", u"b"};
    std::vector<std::string> design;
    for (const PropertyBase *property : everyProperty(window)) {
        design.push_back(property->shown());
    }
    window.load();
    for (const Row &row : rows()) {
        row.assign(window);
    }
    window.list.ListIndex = 1;
    int events = 0;
    window.list.Click = window.check.Click = window.bar.Change =
        window.field.Change = [&] { ++events; };
    window.unload();
    world.windows.take();
    window.load();
    std::vector<std::string> again;
    for (const PropertyBase *property : everyProperty(window)) {
        again.push_back(property->shown());
    }
    EXPECT_EQ(again, design);
    EXPECT_EQ(world.windows.take(), Events{});
    EXPECT_EQ(events, 0);
}

TEST(Properties, AreCopiedByValueAndCompared) {
    test::World world;
    EveryControl window(world.screen);
    window.bar.Value = 30;
    window.bar.Min = window.bar.Value;
    EXPECT_EQ(window.bar.Min.get(), 30);
    EXPECT_TRUE(window.bar.Min == 30);
    EXPECT_FALSE(window.bar.Min == 31);
}

TEST(Properties, TheScreensPointerIsToldToo) {
    test::World world;
    world.screen.MousePointer = 11;
    world.screen.MousePointer = 11;
    world.screen.MousePointer = 0;
    EXPECT_EQ(world.windows.take(), (Events{"pointeur 11", "pointeur 0"}));
}

TEST(ShownValue, QuotesTextsAndEscapesWhatWouldBreakALine) {
    EXPECT_EQ(shownValue(Texte(u"")), R"("")");
    EXPECT_EQ(shownValue(Texte(u"a\"b\\c\nd\re\tf")), R"("a\"b\\c\nd\re\tf")");
    EXPECT_EQ(shownValue(Texte(u"œuf")), "\"œuf\"");
}

TEST(ShownValue, ShowsBooleansColoursNumbersAndLists) {
    EXPECT_EQ(shownValue(true), "Vrai");
    EXPECT_EQ(shownValue(false), "Faux");
    EXPECT_EQ(shownValue(Colour{0x00A1F0}), "#00A1F0");
    EXPECT_EQ(shownValue(-32768), "-32768");
    EXPECT_EQ(shownValue(std::vector<Texte>{}), "");
    EXPECT_EQ(shownValue(std::vector<Texte>{u"a", u"b c"}), R"("a" "b c")");
    EXPECT_EQ(shownValue(Rows{}), "");
    EXPECT_EQ(shownValue(Rows{{u"a", u""}, {u"b"}}), R"("a" "" | "b")");
}

} // namespace
} // namespace grimoval
