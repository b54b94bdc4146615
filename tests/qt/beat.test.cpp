// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/bench.h"

namespace grimoval::test {
namespace {

struct Clocked {
    Beat::Milliseconds now = 5000;
    int beats = 0;
    std::function<void()> onBeat;
    Beat beat{[this] {
        ++beats;
        if (onBeat) {
            onBeat();
        }
    }};
    Clocked() {
        beat.clock = [this] { return now; };
    }
    int at(Beat::Milliseconds moment) {
        now = 5000 + moment;
        beat.check();
        return beats;
    }
};

TEST(Beat, ComesOneIntervalAfterTheStartAndNotBefore) {
    Clocked c;
    c.beat.start(1000);
    EXPECT_EQ(c.at(999), 0);
    EXPECT_EQ(c.at(1000), 1);
    EXPECT_EQ(c.at(1001), 1);
}

TEST(Beat, DelaysDoNotAddUp) {
    Clocked c;
    c.beat.start(1000);
    for (int i = 1; i <= 50; ++i) {
        EXPECT_EQ(c.at(i * 1000 + 40), i); // each one is late by 40 ms
        EXPECT_EQ(c.beat.remaining(), 960);
    }
}

TEST(Beat, ALongDelayIsOneBeatAndTheCountStartsAgainFromIt) {
    Clocked c;
    c.beat.start(1000);
    EXPECT_EQ(c.at(7300), 1);
    EXPECT_EQ(c.beat.remaining(), 1000);
    EXPECT_EQ(c.at(8299), 1);
    EXPECT_EQ(c.at(8300), 2);
}

TEST(Beat, MayBeStoppedOrStartedAnewByItsOwnAction) {
    Clocked c;
    c.onBeat = [&] { c.beat.stop(); };
    c.beat.start(1000);
    EXPECT_EQ(c.at(1000), 1);
    EXPECT_FALSE(c.beat.isRunning());
    c.onBeat = [&] { c.beat.start(300); };
    c.beat.start(1000);
    EXPECT_EQ(c.at(2000), 2);
    EXPECT_EQ(c.beat.remaining(), 300);
}

TEST(Beat, GoesOffByItselfInRealTime) {
    int beats = 0;
    Beat beat([&] { ++beats; });
    beat.start(20);
    EXPECT_TRUE(QTest::qWaitFor([&] { return beats >= 3; }, 2000));
}

TEST(Gauge, FillsOneUnitASecondWhileItRunsAndStopsAtItsMaximum) {
    Bench bench;
    TestForm form(bench.screen);
    Gauge gauge(form, "Flux");
    gauge.Maximum = 2;
    int ends = 0;
    gauge.Fin = [&] { ++ends; };
    form.show();
    Beat &second = dynamic_cast<GaugeMirror *>(bench.mirror(gauge))->second();
    Beat::Milliseconds now = 0;
    second.clock = [&] { return now; };
    EXPECT_FALSE(second.isRunning());
    gauge.Lancer();
    const auto at = [&](Beat::Milliseconds moment) {
        now = moment;
        second.check();
        return gauge.Valeur.get();
    };
    EXPECT_EQ(at(999), 0);
    EXPECT_EQ(at(1000), 1);
    EXPECT_EQ(bench.view<GaugeView>(gauge)->value(), 1);
    EXPECT_EQ(at(2000), 2);
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(second.isRunning());
}

TEST(Gauge, EachStartBeginsANewSecond) {
    Bench bench;
    TestForm form(bench.screen);
    Gauge gauge(form, "Flux");
    form.show();
    Beat &second = dynamic_cast<GaugeMirror *>(bench.mirror(gauge))->second();
    Beat::Milliseconds now = 0;
    second.clock = [&] { return now; };
    gauge.Lancer();
    now = 900;
    gauge.Arreter();
    gauge.Lancer();
    EXPECT_EQ(second.remaining(), 1000);
    now = 950;
    gauge.Valeur = 7; // neither this nor the text begins one
    gauge.TexteFlux = u"7";
    EXPECT_EQ(second.remaining(), 950);
}

TEST(Gauge, RunsInRealTime) {
    Bench bench;
    TestForm form(bench.screen);
    Gauge gauge(form, "Flux");
    form.show();
    const Beat::Milliseconds start = Beat::monotonic();
    gauge.Lancer();
    ASSERT_TRUE(QTest::qWaitFor([&] { return gauge.Valeur.get() == 1; }, 5000));
    EXPECT_GE(Beat::monotonic() - start, 1000);
}

TEST(Timer, TicksWhileItIsEnabledAndItsWindowIsLoadedShownOrNot) {
    Bench bench;
    TestForm form(bench.screen);
    Timer timer(form, "Minut");
    int ticks = 0;
    timer.Tick = [&] { ++ticks; };
    timer.Interval = 15;
    form.load();
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 2; }, 2000));
    timer.Enabled = false;
    const int before = ticks;
    QTest::qWait(60);
    EXPECT_EQ(ticks, before);
    timer.Enabled = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > before; }, 2000));
    form.unload();
    const int atEnd = ticks;
    QTest::qWait(60);
    EXPECT_EQ(ticks, atEnd);
}

TEST(Timer, GoesOnUnderAModalWindow) {
    Bench bench;
    TestForm below(bench.screen, "Dessous"), above(bench.screen, "Dessus");
    Timer timer(below, "Minut");
    int ticks = 0;
    timer.Tick = [&] {
        if (++ticks == 3) {
            above.unload();
        }
    };
    timer.Interval = 15;
    below.show();
    above.showModal();
    EXPECT_EQ(ticks, 3);
}

} // namespace
} // namespace grimoval::test
