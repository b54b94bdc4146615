// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/pictures.h"

#include "fuzz/targets.h"
#include "platform/qt/tga.h"
#include "support/temporary_folder.h"

#include <array>
#include <optional>

namespace grimoval::fuzz {

namespace {

constexpr int largest = 8192;
constexpr std::array<const char16_t *, 4> fileNames = {u"FACE.tga", u"FERME.JPG", u"IMG01.BMP",
                                                       u"logo.png"};

// A face told a second time: all its pixels in the order of the file, then put in their places.
struct PlainFace {
    int width = 0, height = 0;
    std::vector<QRgb> pixels;
};

std::optional<PlainFace> plainFace(std::string_view bytes) {
    const auto at = [&](std::size_t place) {
        return static_cast<int>(static_cast<unsigned char>(bytes[place]));
    };
    if (bytes.size() < 18) {
        return {};
    }
    PlainFace face;
    face.width = at(12) + 256 * at(13);
    face.height = at(14) + 256 * at(15);
    const auto pixelBytes = static_cast<std::size_t>(at(16) / 8);
    if (at(1) != 0 || (at(2) != 2 && at(2) != 10) || (at(16) != 24 && at(16) != 32) ||
        face.width == 0 || face.height == 0 || face.width > largest || face.height > largest) {
        return {};
    }
    const auto wanted =
        static_cast<std::size_t>(face.width) * static_cast<std::size_t>(face.height);
    std::size_t place = 18 + static_cast<std::size_t>(at(0));
    const auto pixel = [&]() -> std::optional<QRgb> {
        if (place + pixelBytes > bytes.size()) {
            return {};
        }
        const QRgb colour =
            qRgba(at(place + 2), at(place + 1), at(place), pixelBytes == 4 ? at(place + 3) : 255);
        place += pixelBytes;
        return colour;
    };
    while (face.pixels.size() < wanted) {
        int count = 1;
        bool run = false;
        if (at(2) == 10) {
            if (place >= bytes.size()) {
                return {};
            }
            run = at(place) >= 128;
            count = at(place++) % 128 + 1;
        }
        std::optional<QRgb> colour;
        for (int i = 0; i < count && face.pixels.size() < wanted; ++i) {
            if (i == 0 || !run) {
                colour = pixel();
            }
            if (!colour) {
                return {};
            }
            face.pixels.push_back(*colour);
        }
    }
    return face;
}

void compare(const QImage &image, std::string_view bytes) {
    const std::optional<PlainFace> face = plainFace(bytes);
    law(image.isNull() == !face, "a face is read when it is whole");
    if (!face) {
        return;
    }
    law(image.width() == face->width && image.height() == face->height, "a face has its size");
    const int layout = static_cast<unsigned char>(bytes[17]);
    std::size_t next = 0;
    for (int row = 0; row < face->height; ++row) {
        const int y = (layout & 0x20) != 0 ? row : face->height - 1 - row;
        for (int column = 0; column < face->width; ++column) {
            const int x = (layout & 0x10) != 0 ? face->width - 1 - column : column;
            law(image.pixel(x, y) == face->pixels[next++], "each pixel is in its place");
        }
    }
}

} // namespace

// The first byte says under which name the rest is found.
void pictures(std::string_view bytes) {
    if (bytes.empty()) {
        return;
    }
    const Texte name = fileNames[static_cast<unsigned char>(bytes[0]) % fileNames.size()];
    const std::string content(bytes.substr(1));
    const test::TemporaryFolder folder;
    folder.write(name, content);
    folder.write(u"IMAGES/fond_F.jpg", content);
    Files files;
    Pictures pictures(files, folder.path());
    const QImage image = pictures.image(folder.path(name));
    law(image.width() <= largest && image.height() <= largest, "no picture is too large");
    int number = 0;
    try {
        pictures.check(folder.path(name));
    } catch (const Failure &failed) {
        number = failed.number;
    }
    law(number == (image.isNull() ? static_cast<int>(failure::invalidPicture) : 0),
        "what can be shown passes the check, and nothing else");
    if (name.ends_with(u".tga")) {
        compare(readTga(QByteArray::fromStdString(content), largest), content);
    }
    pictures.backgroundSize("F");
    const QImage background = pictures.background("F", {64, 48});
    law(background.isNull() || background.size() == QSize(64, 48), "a background has its size");
}

} // namespace grimoval::fuzz
