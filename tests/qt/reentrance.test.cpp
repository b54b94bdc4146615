// SPDX-License-Identifier: GPL-3.0-or-later
// What a person does in the middle of a handler waits until it has returned, or is forgotten when a
// window has come up since.
#include "qt/impatient.h"
#include "support/rules.h"

#include <QAccessible>

#include <optional>
#include <sstream>

namespace grimoval::test {
namespace {

// ---- as it was seen

struct ImpatientHands : testing::Test {
    Impatient game{{.words = {u"CHAT", u"LAPIN", u"OURS"}, .errors = 6}};
    FMenu &menu = game.menu;

    // While the next handler that lets pending events in does so.
    void meanwhile(std::function<void()> action) {
        game.windows.meanwhile = [this, action] {
            game.windows.meanwhile = nullptr;
            action();
        };
    }
    void click(Control &control) {
        game.click(control);
        Impatient::settle();
    }
    void type(const Texte &letters) {
        for (const char16_t letter : letters) {
            game.letter(letter);
        }
        Impatient::settle();
    }
};

TEST_F(ImpatientHands, ANewGameAskedForWhileTheLastIsStoppedBeginsNone) {
    click(menu.CmdTjr[2]);
    click(menu.CmdJeux[1]);
    meanwhile([this] { game.click(menu.CmdTjr[2]); });
    click(menu.CmdTjr[0]);
    EXPECT_EQ(toUtf8(menu.AffMot[0].Caption.get()), "Pour commencer : appuie sur le bouton vert");
    EXPECT_FALSE(menu.VsAlpha[0].Enabled);
    EXPECT_FALSE(menu.PartieEnCours);
    EXPECT_EQ(game.records, (std::vector<std::vector<int>>{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0}}));
    // The next game goes to the end of its word without a failure.
    click(menu.CmdTjr[2]);
    type(u"CHATLAPINOURS");
    EXPECT_TRUE(game.ends.empty());
    EXPECT_EQ(game.g.scores.MotsTrouves[1], 1);
}

TEST_F(ImpatientHands, ADoubleClickOnTheAnswerBooksOneWordGivenUp) {
    click(menu.CmdTjr[2]);
    type(u"Z");
    meanwhile([this] { game.click(menu.CmdJeux[1]); });
    click(menu.CmdJeux[1]);
    EXPECT_EQ(game.g.scores.Abandons[1], 1);
    EXPECT_EQ(game.g.scores.MauvaisesLettres[1], 1);
}

TEST_F(ImpatientHands, ALetterAfterTheAnswerFindsAndHidesNothing) {
    click(menu.CmdTjr[2]);
    ASSERT_EQ(toUtf8(menu.MotCherche[1]), "CHAT");
    type(u"CHA");
    meanwhile([this] { game.letter(u't'); });
    click(menu.CmdJeux[1]);
    EXPECT_EQ(toUtf8(menu.AffMot[0].Caption.get()), "CHAT");
    EXPECT_EQ(menu.AffMot[0].ForeColor.get(), colours::red);
    EXPECT_EQ(game.g.scores.MotsTrouves[1], 0);
    EXPECT_EQ(game.g.scores.Score[1], 3);
    EXPECT_EQ(game.g.scores.Abandons[1], 1);
}

TEST_F(ImpatientHands, ALetterTypedWhileAGameBeginsIsOneOfItsFirstWord) {
    meanwhile([this] { game.letter(u'c'); });
    click(menu.CmdTjr[2]);
    EXPECT_EQ(toUtf8(menu.AffMot[0].Caption.get()), "C###");
}

TEST_F(ImpatientHands, AClickOnALetterWhileAGameBeginsIsOneOfItsFirstWord) {
    meanwhile([this] { game.click(menu.VsAlpha[2]); });
    click(menu.CmdTjr[2]);
    EXPECT_EQ(toUtf8(menu.AffMot[0].Caption.get()), "C###");
}

TEST_F(ImpatientHands, APressByTheAccessibilityBusWaitsToo) {
    click(menu.CmdTjr[2]);
    QWidget *answer = game.windows.windowOf(menu)->mirrorOf(&menu.CmdJeux[1])->widget();
    meanwhile([answer] {
        QAccessible::queryAccessibleInterface(answer)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
    });
    click(menu.CmdJeux[1]);
    EXPECT_EQ(game.g.scores.Abandons[1], 1);
}

TEST_F(ImpatientHands, ACloseRequestInTheMiddleOfAHandlerAsksWhenItHasReturned) {
    click(menu.CmdTjr[2]);
    int abandons = -1;
    game.windows.answer = [&](Form *form) {
        abandons = game.g.scores.Abandons[1];
        game.leave(form);
    };
    meanwhile([this] { EXPECT_FALSE(game.window(menu)->close()); });
    click(menu.CmdJeux[1]);
    EXPECT_EQ(abandons, 1);
    EXPECT_TRUE(menu.isShown());
}

TEST_F(ImpatientHands, TheConfirmedQuitIsOne) {
    click(menu.CmdTjr[2]);
    game.answersYes = true;
    int questions = 0;
    game.windows.answer = [&](Form *form) {
        questions += form == &game.program.windows.question;
        game.leave(form);
    };
    meanwhile([this] {
        game.click(menu.CmdTjr[3]);
        game.click(menu.CmdJeux[1]);
    });
    click(menu.CmdTjr[3]);
    EXPECT_FALSE(menu.isLoaded());
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(game.records, (std::vector<std::vector<int>>{{1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}}));
}

// ---- the rule itself

struct TurnsTest : testing::Test {
    Bench bench;
    TestForm form{bench.screen};
    PictureButton button{form, "Cmd", 0}, other{form, "Cmd", 1};
    TextField field{form, "Saisie", 0};
    std::vector<std::string> told;

    TurnsTest() {
        button.place = {0, 0, 1500, 1500};
        other.place = {2000, 0, 1500, 1500};
        field.place = {0, 2000, 4000, 450};
        form.refuses = true;
        form.onKeyPress = [this](Int16 &key) { told.emplace_back(1, static_cast<char>(int{key})); };
        other.Click = [this] { told.emplace_back("other"); };
    }
    void clickOn(Control &control) {
        QTest::mouseClick(bench.window(control.form())->windowHandle(), Qt::LeftButton, {},
                          bench.mirror(control)->widget()->geometry().center());
    }
    void typeInto(const QString &text) {
        for (const QChar letter : text) {
            QTest::keyClick(bench.window(form)->windowHandle(), letter.toLatin1());
        }
    }
};

TEST_F(TurnsTest, ActionsComeInTheirOrderWhenTheHandlerHasReturned) {
    bench.show(form);
    form.setFocus(field);
    int timers = 0;
    button.Click = [&] {
        Bench::later([&] {
            ++timers;
            typeInto(QStringLiteral("a"));
            clickOn(other);
            typeInto(QStringLiteral("b"));
            bench.window(form)->windowHandle()->close();
            QInputMethodEvent composed;
            composed.setCommitString(QStringLiteral("c"));
            QCoreApplication::sendEvent(bench.view<FieldView>(field), &composed);
        });
        bench.screen.processEvents();
        told.emplace_back("returns");
        EXPECT_EQ(timers, 1);
        EXPECT_TRUE(form.asked.empty());
    };
    clickOn(button);
    bench.settle();
    EXPECT_EQ(told, (std::vector<std::string>{"returns", "a", "other", "b", "c"}));
    EXPECT_EQ(form.asked.size(), 1U);
    EXPECT_EQ(toUtf8(field.Text.get()), "abc");
}

TEST_F(TurnsTest, AWindowOrABoxThatComesUpSinceEndsTheirWaiting) {
    TestForm above(bench.screen, "Dessus");
    bench.show(form);
    for (const bool box : {true, false}) {
        button.Click = [&] {
            Bench::later([&] {
                clickOn(other);
                typeInto(QStringLiteral("a"));
                bench.window(form)->windowHandle()->close();
            });
            bench.screen.processEvents();
            if (box) {
                Bench::later([&] { bench.windows.box()->accept(); });
                bench.screen.message(u"?", MessageIcon::information);
            } else {
                Bench::later([&] { above.unload(); });
                above.showModal();
            }
            told.emplace_back("returns");
        };
        told.clear();
        clickOn(button);
        bench.settle();
        EXPECT_EQ(told, std::vector<std::string>{"returns"});
        EXPECT_TRUE(form.asked.empty());
    }
}

// Two clicks that were waiting together: the first closes the window, the second is for the one
// below it.
TEST_F(TurnsTest, WhatFollowsTheEndOfAModalWindowWaitsForTheHandlerBelowIt) {
    TestForm above(bench.screen, "Dessus");
    PictureButton close(above, "Cmd");
    close.place = {0, 0, 1500, 1500};
    close.Click = [&] { above.unload(); };
    bench.show(form);
    button.Click = [&] {
        Bench::later([&] {
            clickOn(close);
            clickOn(other);
            typeInto(QStringLiteral("a"));
        });
        above.showModal();
        told.emplace_back("returns");
    };
    clickOn(button);
    bench.settle();
    EXPECT_EQ(told, (std::vector<std::string>{"returns", "other", "a"}));
}

TEST_F(TurnsTest, AModalWindowTakesActionsWhileTheHandlerBelowItWaits) {
    TestForm above(bench.screen, "Dessus");
    PictureButton close(above, "Cmd"), slow(above, "Cmd", 1);
    close.place = {0, 0, 1500, 1500};
    slow.place = {2000, 0, 1500, 1500};
    close.Click = [&] { above.unload(); };
    slow.Click = [&] {
        Bench::later([&] { clickOn(close); });
        bench.screen.processEvents();
        told.emplace_back("slow");
        EXPECT_TRUE(above.isShown());
    };
    bench.show(form);
    button.Click = [&] {
        Bench::later([&] { clickOn(slow); });
        above.showModal();
        told.emplace_back("returns");
    };
    clickOn(button);
    EXPECT_EQ(told, (std::vector<std::string>{"slow", "returns"}));
    EXPECT_FALSE(above.isLoaded());
}

TEST_F(TurnsTest, TheStartOfTheProgramIsAHandlerToo) {
    form.backdrop = true;
    form.show();
    Bench::later([&] { bench.window(form)->windowHandle()->close(); });
    bench.screen.processEvents();
    EXPECT_TRUE(form.asked.empty());
    EXPECT_TRUE(form.isShown());
}

TEST_F(TurnsTest, TheMouseIsFollowedMeanwhile) {
    bench.show(form);
    QMouseEvent move(QEvent::MouseMove, QPointF(390, 290), QPointF(390, 290), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    button.Click = [&] {
        form.hovers = 0;
        QCoreApplication::sendEvent(bench.window(form), &move);
        EXPECT_EQ(form.hovers, 1);
    };
    clickOn(button);
}

// ---- the law

std::string seen(Impatient &game) {
    FMenu &menu = game.menu;
    const ScoresPartie &s = game.g.scores;
    std::ostringstream text;
    text << menu.AffMot[0].Caption.shown() << ' ' << menu.AffMot[0].ForeColor.shown() << ' '
         << menu.Rappel[1].Caption.shown() << ' ' << menu.Rappel[2].Caption.shown() << ' '
         << menu.LstMot[1].Items.shown() << ' ' << menu.Shape1.Height << ' '
         << menu.FluReflec.Valeur << ' ' << s.NbMotsProposes << ' ' << menu.PartieEnCours;
    for (const std::size_t p : {1u, 2u}) {
        text << ' ' << s.Score[p] << ' ' << s.MotsTrouves[p] << ' ' << s.MauvaisesLettres[p] << ' '
             << s.BonnesLettres[p] << ' ' << s.Abandons[p] << ' ' << menu.ErreursMot[p];
    }
    return text.str();
}

std::string expected(const Rules &rules) {
    std::ostringstream text;
    text << shownValue(rules.display) << ' ' << shownValue(rules.colour) << ' '
         << shownValue(rules.label[1]) << ' ' << shownValue(rules.label[2]) << ' '
         << shownValue(rules.left) << ' ' << rules.curtain << ' ' << rules.gauge << ' '
         << rules.proposed << ' ' << rules.gameRuns;
    for (const std::size_t p : {1u, 2u}) {
        text << ' ' << rules.score[p] << ' ' << rules.found[p] << ' ' << rules.bad[p] << ' '
             << rules.good[p] << ' ' << rules.givenUp[p] << ' ' << rules.errors[p];
    }
    return text.str();
}

bool isOfAPerson(const Action &action) {
    return action.kind <= Action::begin && action.kind != Action::seconds;
}

// At every place where a handler lets pending events in, the next actions are there already.
TEST(EveryRecord, AgreesWithTheRulesUnderImpatientHands) {
    int impatient = 0, records = 0;
    checkGames(60, anyGame(), [&](const RandomGame &random) {
        Impatient game(random.start);
        game.program.random.numbers.assign(random.draws.begin(), random.draws.end());
        std::vector<Action> actions = {{Action::begin}};
        actions.insert(actions.end(), random.actions.begin(), random.actions.end());
        std::size_t next = 0;
        std::optional<Rules> rules;
        while (next < actions.size()) {
            const Action action = actions[next++];
            std::vector<Action> early;
            game.windows.meanwhile = [&] {
                while (early.size() < 3 && next < actions.size() && isOfAPerson(actions[next])) {
                    early.push_back(actions[next++]);
                    game.post(early.back());
                }
            };
            game.post(action);
            Impatient::settle();
            game.windows.meanwhile = nullptr;
            Impatient::settle();
            // A window that came up has ended the waiting.
            const auto act = [&](const Action &each) {
                const std::size_t before = rules ? rules->records.size() : 0;
                if (rules) {
                    rules->act(each);
                } else {
                    rules.emplace(random.start, random.draws);
                }
                return rules->records.size() == before;
            };
            bool goesOn = act(action);
            for (const Action &each : early) {
                ++impatient;
                goesOn = goesOn && act(each);
            }
            RC_ASSERT(game.ends.empty());
            RC_ASSERT(game.records == rules->records);
            RC_ASSERT(seen(game) == expected(*rules));
        }
        records += static_cast<int>(game.records.size());
    });
    EXPECT_GT(impatient, 100);
    EXPECT_GT(records, 20);
}

} // namespace
} // namespace grimoval::test
