// SPDX-License-Identifier: GPL-3.0-or-later
// The tool that puts the things of a scene in their places.
#include "tools/scene/scene.h"
#include "tools/scene/sign.h"

#include <QImage>
#include <QXmlStreamReader>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace grimoval::test {
namespace {

struct Placed {
    QImage image;
    QRectF box;
};

QByteArray scene(const std::string &things, const std::string &attributes = {}) {
    return QByteArray::fromStdString("<svg viewBox=\"0 0 1200 900\" " + attributes + ">" + things +
                                     "</svg>");
}

// The pictures in a scene that is made, in their order.
std::vector<Placed> pictures(const QByteArray &made) {
    std::vector<Placed> found;
    QXmlStreamReader in(made);
    while (!in.atEnd()) {
        if (in.readNext() != QXmlStreamReader::StartElement ||
            in.name() != QLatin1String("image")) {
            continue;
        }
        const auto number = [&](const char *name) {
            return in.attributes().value(QLatin1String(name)).toDouble();
        };
        const QString address = in.attributes().value(QLatin1String("href")).toString();
        const QByteArray bytes = address.mid(address.indexOf(u',') + 1).toLatin1();
        found.push_back({QImage::fromData(QByteArray::fromBase64(bytes), "PNG"),
                         {number("x"), number("y"), number("width"), number("height")}});
    }
    EXPECT_FALSE(in.hasError()) << in.errorString().toStdString();
    return found;
}

std::string refusal(const QByteArray &source) {
    try {
        scene::placed(source);
    } catch (const scene::Error &error) {
        return error.what();
    }
    return {};
}

TEST(Scene, AThingStandsOnItsFootAndIsAsTallAsItIsSaid) {
    const auto found = pictures(
        scene::placed(scene("<thing sign=\"🐄\" foot=\"420 760\" tall=\"190\" shadow=\"no\"/>")));
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].box.bottom(), 760);
    EXPECT_EQ(found[0].box.height(), 190);
    EXPECT_NEAR(found[0].box.center().x(), 420, 1);
    EXPECT_EQ(found[0].image.size(), found[0].box.size().toSize());
    // To its foot: the lowest line has something in it.
    bool touches = false;
    for (int x = 0; x < found[0].image.width(); ++x) {
        touches = touches || qAlpha(found[0].image.pixel(x, found[0].image.height() - 1)) > 100;
    }
    EXPECT_TRUE(touches);
}

TEST(Scene, AStandingThingHasItsShadowUnderItAndOneInTheAirHasNone) {
    EXPECT_EQ(
        pictures(scene::placed(scene("<thing sign=\"🐄\" foot=\"420 760\" tall=\"90\"/>"))).size(),
        2u);
    EXPECT_EQ(
        pictures(scene::placed(scene("<thing sign=\"🐄\" at=\"420 760\" tall=\"90\"/>"))).size(),
        1u);
}

TEST(Scene, AFlippedThingIsTheMirrorImage) {
    const std::string look = R"(light="0 -1 #ffffff 0.2")";
    const auto plain =
        pictures(scene::placed(scene("<thing sign=\"🐄\" at=\"300 300\" tall=\"128\"/>", look)));
    const auto flipped = pictures(
        scene::placed(scene("<thing sign=\"🐄\" at=\"300 300\" tall=\"128\" flip=\"yes\"/>", look)));
    const QImage one = plain.at(0).image.mirrored(true, false), other = flipped.at(0).image;
    ASSERT_EQ(one.size(), other.size());
    int unlike = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            unlike += std::abs(qGreen(one.pixel(x, y)) - qGreen(other.pixel(x, y))) > 24;
        }
    }
    EXPECT_LT(unlike, one.width() * one.height() / 100);
    EXPECT_NE(plain.at(0).image, other);
}

TEST(Scene, ATintOfAGroupColoursWhatIsInIt) {
    const auto found = pictures(
        scene::placed(scene("<g tint=\"#0000ff 1\" shade=\"#000000 0\" light=\"0 -1 #ffffff 0\">"
                            "<thing sign=\"🐄\" at=\"300 300\" tall=\"60\"/></g><thing sign=\"🐄\" "
                            "at=\"9 9\" tall=\"60\"/>")));
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].image.pixel(30, 20), qRgb(0, 0, 255));
    EXPECT_NE(found[1].image.pixel(30, 20), qRgb(0, 0, 255));
}

TEST(Scene, TheSameSourceGivesTheSameBytesAndAnotherSeedAnotherScene) {
    const auto spread = [](const char *seed) {
        return scene::placed(
            scene(std::string("<scatter sign=\"🌼 🌷\" box=\"0 500 900 200\" count=\"12\" "
                              "sizes=\"20 40\" turn=\"20\" seed=\"") +
                  seed + "\"/>"));
    };
    EXPECT_EQ(spread("3"), spread("3"));
    EXPECT_NE(spread("3"), spread("4"));
    EXPECT_EQ(pictures(spread("3")).size(), 24u);
}

TEST(Scene, WhatIsWrongIsToldWithItsLine) {
    EXPECT_EQ(refusal("<svg>\n<thing sign=\"mot\" foot=\"1 1\" tall=\"9\"/></svg>"),
              "line 2: the font has no single drawing for mot");
    for (const char *things : {
             R"(<thing foot="1 1" tall="9"/>)",
             R"(<thing sign="🐄" foot="1 1"/>)",
             R"(<thing sign="🐄" foot="1" tall="9"/>)",
             R"(<thing sign="🐄" foot="1 un" tall="9"/>)",
             R"(<thing sign="🐄" foot="1 nan" tall="9"/>)",
             R"(<thing sign="🐄" foot="1 1" tall="9000"/>)",
             R"(<thing sign="🐄" foot="1 1" tall="-9"/>)",
             R"(<thing sign="🐄" foot="1 1" tall="1e300"/>)",
             R"(<thing sign="🐄" foot="1 1" tall="9" tint="brume 1"/>)",
             R"(<thing sign="🐄" foot="1 1" tall="9" shadow="1 2"/>)",
             R"(<scatter sign="" box="0 0 9 9" sizes="1 1"/>)",
             R"(<scatter of="#a" box="0 0 9 9" sizes="1 1" count="9999"/>)",
             R"(<scatter of="#a" box="0 0 9" sizes="1 1"/>)",
             R"(<g>)",
         }) {
        EXPECT_TRUE(refusal(scene(things)).starts_with("line 1: ")) << things;
    }
}

} // namespace
} // namespace grimoval::test
