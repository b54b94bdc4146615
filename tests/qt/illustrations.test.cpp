// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures that the game comes with, as the build has made them.
#include <QDir>
#include <QFile>
#include <QImage>
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <vector>

namespace grimoval::test {
namespace {

struct Kind {
    const char *drawings, *pattern, *suffix;
    QSize size;
    qsizetype least;
};

const Kind kinds[] = {{"themes", "*.JPG", ".JPG", {1200, 900}, 32},
                      {"defaut", "IMG??.BMP", ".BMP", {800, 600}, 6}};

QStringList stems(const QString &folder, const QString &pattern) {
    QStringList names;
    // The pictures of the windows end in small letters.
    for (const QFileInfo &file :
         QDir(folder).entryInfoList({pattern}, QDir::Files | QDir::CaseSensitive, QDir::Name)) {
        names += file.completeBaseName();
    }
    return names;
}

QString drawings(const Kind &kind) {
    return QStringLiteral(GRIMOVAL_DRAWINGS "/") + QLatin1String(kind.drawings);
}

QImage picture(const Kind &kind, const QString &stem) {
    return QImage(QStringLiteral(GRIMOVAL_IMAGES "/") + stem + QLatin1String(kind.suffix));
}

TEST(Illustrations, EachDrawingHasItsPictureOfTheRightSizeAndThereIsNoOther) {
    for (const Kind &kind : kinds) {
        const QStringList drawn = stems(drawings(kind), QStringLiteral("*.svg"));
        EXPECT_GE(drawn.size(), kind.least) << kind.drawings;
        EXPECT_EQ(stems(QStringLiteral(GRIMOVAL_IMAGES), QLatin1String(kind.pattern)), drawn);
        for (const QString &stem : drawn) {
            EXPECT_EQ(picture(kind, stem).size(), kind.size) << stem.toStdString();
        }
    }
}

TEST(Illustrations, NoneIsMostlyOfOneColour) {
    for (const Kind &kind : kinds) {
        for (const QString &stem : stems(drawings(kind), QStringLiteral("*.svg"))) {
            const QImage small =
                picture(kind, stem).scaled(270, 200).convertToFormat(QImage::Format_RGB32);
            std::map<QRgb, int> colours; // in steps of a sixteenth
            for (int y = 0; y < small.height(); ++y) {
                for (int x = 0; x < small.width(); ++x) {
                    ++colours[small.pixel(x, y) & 0xfff0f0f0];
                }
            }
            const auto most =
                std::max_element(colours.begin(), colours.end(),
                                 [](auto &a, auto &b) { return a.second < b.second; });
            EXPECT_LT(most->second, small.width() * small.height() / 5) << stem.toStdString();
            EXPECT_GT(colours.size(), 150u) << stem.toStdString();
        }
    }
}

TEST(Illustrations, NoTwoLookAlike) {
    std::vector<std::pair<QString, QImage>> seen;
    for (const Kind &kind : kinds) {
        for (const QString &stem : stems(drawings(kind), QStringLiteral("*.svg"))) {
            const QImage small =
                picture(kind, stem)
                    .scaled(16, 12, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                    .convertToFormat(QImage::Format_Grayscale8);
            for (const auto &[other, image] : seen) {
                int difference = 0;
                for (int y = 0; y < small.height(); ++y) {
                    for (int x = 0; x < small.width(); ++x) {
                        difference += std::abs(qGray(small.pixel(x, y)) - qGray(image.pixel(x, y)));
                    }
                }
                EXPECT_GT(difference, 6 * 16 * 12)
                    << stem.toStdString() << " " << other.toStdString();
            }
            seen.emplace_back(stem, small);
        }
    }
}

// In each of them the children may look for it.
TEST(Illustrations, AnOwlIsInEveryOne) {
    for (const Kind &kind : kinds) {
        for (const QString &stem : stems(drawings(kind), QStringLiteral("*.svg"))) {
            QFile file(drawings(kind) + u'/' + stem + QStringLiteral(".svg"));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            EXPECT_TRUE(file.readAll().contains("sign=\"🦉\"")) << stem.toStdString();
        }
    }
}

} // namespace
} // namespace grimoval::test
