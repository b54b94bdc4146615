// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/pictures.h"
#include "platform/qt/tga.h"

#include "qt/bench.h"

#include <QElapsedTimer>

#include <filesystem>

#include <sys/stat.h>

namespace grimoval::test {
namespace {

struct PicturesTest : testing::Test {
    TemporaryFolder folder;
    Files files;
    Pictures pictures{files, folder.path()};

    void save(const Texte &name, QSize size, Qt::GlobalColor colour, const char *format) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        folder.write(name, {});
        ASSERT_TRUE(image.save(QString::fromStdString(folder.bytePath(name)), format));
    }
    int failureOfCheck(const Texte &name) {
        try {
            pictures.check(folder.path(name));
        } catch (const Failure &failed) {
            return failed.number;
        }
        return 0;
    }
};

std::string tga(int type, int width, int height, int depth, int layout, const std::string &pixels) {
    std::string bytes(18, '\0');
    bytes[2] = static_cast<char>(type);
    bytes[12] = static_cast<char>(width & 255);
    bytes[13] = static_cast<char>(width >> 8);
    bytes[14] = static_cast<char>(height & 255);
    bytes[15] = static_cast<char>(height >> 8);
    bytes[16] = static_cast<char>(depth);
    bytes[17] = static_cast<char>(layout);
    return bytes + pixels;
}

QImage decode(const std::string &bytes) { return readTga(QByteArray::fromStdString(bytes), 8192); }

TEST_F(PicturesTest, AMissingPictureIsFailure53AndAnUnreadableOne481) {
    EXPECT_EQ(failureOfCheck(u"RIEN.JPG"), failure::fileNotFound);
    folder.write(u"FAUX.JPG", "ceci n'est pas une image");
    EXPECT_EQ(failureOfCheck(u"FAUX.JPG"), failure::invalidPicture);
    folder.makeFolder(u"DOSSIER.JPG");
    EXPECT_EQ(failureOfCheck(u"DOSSIER.JPG"), failure::invalidPicture);
}

TEST_F(PicturesTest, JpegBmpPngAndTgaAreReadWhateverTheCaseOfTheirNames) {
    save(u"Ferme.jpg", {20, 10}, Qt::red, "JPG");
    save(u"IMG01.BMP", {20, 10}, Qt::red, "BMP");
    save(u"livre.png", {20, 10}, Qt::red, "PNG");
    folder.write(u"_OK.tga", tga(2, 1, 1, 32, 0x28, std::string("\x00\x00\xff\xff", 4)));
    for (const char16_t *name : {u"FERME.JPG", u"img01.bmp", u"Livre.PNG", u"_ok.TGA"}) {
        EXPECT_EQ(failureOfCheck(name), 0) << toUtf8(name);
        EXPECT_FALSE(pictures.image(folder.path(name)).isNull()) << toUtf8(name);
    }
}

TEST_F(PicturesTest, AHugePictureIsRefusedBeforeItIsRead) {
    folder.write(u"GRAND.TGA", tga(2, 9000, 9000, 32, 0x28, "abcd"));
    EXPECT_EQ(failureOfCheck(u"GRAND.TGA"), failure::invalidPicture);
    save(u"LARGE.BMP", {8193, 1}, Qt::red, "BMP");
    EXPECT_EQ(failureOfCheck(u"LARGE.BMP"), failure::invalidPicture);
    save(u"JUSTE.BMP", {8192, 1}, Qt::red, "BMP");
    EXPECT_EQ(failureOfCheck(u"JUSTE.BMP"), 0);
}

TEST_F(PicturesTest, NoMoreIsKeptOfALargeOneThanAScreenShows) {
    save(u"PHOTO.JPG", {3000, 1500}, Qt::red, "JPG");
    save(u"PHOTO.BMP", {1500, 3000}, Qt::red, "BMP");
    folder.write(u"_OK.tga", tga(2, 1024, 2, 24, 0x28, std::string(1024 * 2 * 3, '\xff')));
    EXPECT_EQ(pictures.image(folder.path(u"PHOTO.JPG")).size(), QSize(1200, 600));
    EXPECT_EQ(pictures.image(folder.path(u"PHOTO.BMP")).size(), QSize(600, 1200));
    EXPECT_EQ(pictures.image(folder.path(u"_OK.tga")).size(), QSize(512, 1));
    EXPECT_EQ(pictures.image(folder.path(u"PHOTO.JPG")).pixelColor(600, 300).red(), 254);
}

// A picture may unfold into far more than its file holds, or take far longer than its size tells.
TEST_F(PicturesTest, NoFileFillsTheMemoryOrKeepsAWindowWaiting) {
    const auto opened = [this](const Texte &name) {
        QElapsedTimer timer;
        timer.start();
        const QImage image = pictures.image(folder.path(name));
        EXPECT_LT(timer.elapsed(), 500) << toUtf8(name);
        return !image.isNull();
    };
    for (const int width : {4096, 4097}) {
        QImage large(width, 3072, QImage::Format_Mono);
        large.fill(0);
        ASSERT_TRUE(large.save(QString::fromStdString(folder.bytePath(u"GRAND.BMP")), "BMP"));
        EXPECT_EQ(opened(u"GRAND.BMP"), width == 4096);
    }
    save(u"RIEN.BMP", {10, 10}, Qt::red, "BMP");
    std::filesystem::resize_file(folder.bytePath(u"RIEN.BMP"), 2'000'000'000);
    EXPECT_FALSE(opened(u"RIEN.BMP"));
    folder.write(u"FACE.TGA", tga(2, 1024, 1024, 32, 0x28, {}));
    std::filesystem::resize_file(folder.bytePath(u"FACE.TGA"), 2'000'000'000);
    EXPECT_TRUE(opened(u"FACE.TGA"));
    save(u"SCANS.JPG", {10, 10}, Qt::red, "JPG");
    EXPECT_TRUE(opened(u"SCANS.JPG"));
    std::string scans = folder.read(u"SCANS.JPG");
    const std::string scan = scans.substr(scans.rfind("\xff\xda"));
    scans.erase(scans.size() - 2);
    for (int i = 0; i < 100; ++i) {
        scans += scan.substr(0, scan.size() - 2);
    }
    folder.write(u"SCANS.JPG", scans + "\xff\xd9");
    EXPECT_FALSE(opened(u"SCANS.JPG"));
}

TEST_F(PicturesTest, APipeOrAFolderInTheirPlaceIsNoPicture) {
    folder.makeFolder(u"IMAGES");
    for (const char16_t *name : {u"IMAGES/A.JPG", u"IMAGES/B.tga", u"IMAGES/IMG01.BMP",
                                 u"IMAGES/fond_FMenu.jpg", u"IMAGES/logo.png"}) {
        ASSERT_EQ(::mkfifo(folder.bytePath(name).c_str(), 0600), 0);
        EXPECT_TRUE(pictures.image(folder.path(name)).isNull()) << toUtf8(name);
    }
    folder.makeFolder(u"IMAGES/fond_FAbout.jpg");
    for (const char *name : {"FMenu", "FAbout"}) {
        EXPECT_FALSE(pictures.backgroundSize(name).isValid()) << name;
        EXPECT_TRUE(pictures.background(name, {40, 30}).isNull()) << name;
    }
    EXPECT_TRUE(pictures.design("logo").isNull());
}

TEST_F(PicturesTest, APictureThatHasChangedIsReadAgain) {
    save(u"A.BMP", {2, 2}, Qt::red, "BMP");
    EXPECT_EQ(pictures.image(folder.path(u"A.BMP")).pixelColor(0, 0), QColor(Qt::red));
    save(u"A.BMP", {3, 3}, Qt::blue, "BMP");
    EXPECT_EQ(pictures.image(folder.path(u"A.BMP")).pixelColor(0, 0), QColor(Qt::blue));
}

TEST_F(PicturesTest, TheDesignsPicturesLieInTheImagesFolder) {
    save(u"IMAGES/logo.png", {4, 4}, Qt::green, "PNG");
    save(u"IMAGES/fond_FMenu.jpg", {5, 5}, Qt::blue, "JPG");
    EXPECT_EQ(pictures.design("logo").width(), 4);
    EXPECT_EQ(pictures.backgroundSize("FMenu").width(), 5);
    EXPECT_EQ(pictures.background("FMenu", {40, 30}).size(), QSize(40, 30));
    EXPECT_FALSE(pictures.backgroundSize("autre").isValid());
    EXPECT_TRUE(pictures.background("autre", {40, 30}).isNull());
    EXPECT_TRUE(pictures.design("").isNull());
    EXPECT_TRUE(pictures.image(u"").isNull());
}

TEST_F(PicturesTest, ABackgroundThatWasForeseenHasTheSizeThatIsAskedFor) {
    save(u"IMAGES/fond_FMenu.jpg", {50, 50}, Qt::blue, "JPG");
    for (const QSize asked : {QSize(40, 30), QSize(20, 10)}) {
        pictures.foresee("FMenu", {40, 30});
        const QImage image = pictures.background("FMenu", asked);
        EXPECT_EQ(image.size(), asked);
        EXPECT_GT(image.pixelColor(5, 5).blue(), 200);
    }
    pictures.foresee("autre", {40, 30});
    EXPECT_TRUE(pictures.background("autre", {40, 30}).isNull());
}

TEST(Tga, KeepsColoursAlphaAndEitherOrigin) {
    // Two lines: red, then half green.
    const std::string red("\x00\x00\xff\xff", 4), green("\x00\xff\x00\x80", 4);
    const QImage fromTop = decode(tga(2, 1, 2, 32, 0x28, red + green));
    EXPECT_EQ(fromTop.pixelColor(0, 0), QColor(255, 0, 0));
    EXPECT_EQ(fromTop.pixelColor(0, 1), QColor(0, 255, 0, 128));
    const QImage fromBottom = decode(tga(2, 1, 2, 32, 0x08, red + green));
    EXPECT_EQ(fromBottom.pixelColor(0, 1), QColor(255, 0, 0));
    const QImage mirrored = decode(tga(2, 2, 1, 32, 0x38, red + green));
    EXPECT_EQ(mirrored.pixelColor(1, 0), QColor(255, 0, 0));
}

TEST(Tga, ReadsRunsAndPlainPacketsOfTwentyFourBits) {
    // Three times blue, then white and black one by one, over the end of a line.
    const std::string packets =
        std::string("\x82\xff\x00\x00", 4) + std::string("\x01\xff\xff\xff\x00\x00\x00", 7);
    const QImage image = decode(tga(10, 1, 5, 24, 0x20, packets));
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.pixelColor(0, 2), QColor(0, 0, 255));
    EXPECT_EQ(image.pixelColor(0, 3), QColor(255, 255, 255));
    EXPECT_EQ(image.pixelColor(0, 4), QColor(0, 0, 0));
}

TEST(Tga, WhatIsCutShortOrOfAnotherKindIsNoPicture) {
    const std::string whole = tga(2, 2, 2, 32, 0x28, std::string(16, 'x'));
    EXPECT_FALSE(decode(whole).isNull());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_TRUE(decode(whole.substr(0, length)).isNull()) << length;
    }
    EXPECT_TRUE(decode(tga(10, 2, 2, 32, 0x28, std::string("\x80", 1))).isNull());
    EXPECT_TRUE(decode(tga(3, 2, 2, 8, 0x28, std::string(16, 'x'))).isNull());
    EXPECT_TRUE(decode(tga(2, 0, 2, 32, 0x28, std::string(16, 'x'))).isNull());
}

} // namespace
} // namespace grimoval::test
