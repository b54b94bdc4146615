// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/tga.h"

namespace grimoval {

namespace {

constexpr qsizetype headerLength = 18;
constexpr int plainColour = 2, codedColour = 10;
constexpr int fromRight = 0x10, fromTop = 0x20;

class Reader {
public:
    Reader(const QByteArray &bytes, qsizetype start, int depth)
        : bytes_(bytes), at_(start), size_(depth / 8) {}

    bool read(QImage &image, bool coded) {
        for (int y = 0; y < image.height(); ++y) {
            auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
            for (int x = 0; x < image.width(); ++x) {
                if (coded ? !nextCoded() : !nextPixel()) {
                    return false;
                }
                line[x] = pixel_;
            }
        }
        return true;
    }

private:
    int byte(qsizetype offset) const { return static_cast<unsigned char>(bytes_[at_ + offset]); }

    bool nextPixel() {
        if (at_ + size_ > bytes_.size()) {
            return false;
        }
        pixel_ = qRgba(byte(2), byte(1), byte(0), size_ == 4 ? byte(3) : 255);
        at_ += size_;
        return true;
    }

    // Packets: a count, and either one pixel for all or one for each. They may run over lines.
    bool nextCoded() {
        if (left_ == 0) {
            if (at_ >= bytes_.size()) {
                return false;
            }
            const int head = byte(0);
            ++at_;
            left_ = (head & 0x7F) + 1;
            repeats_ = (head & 0x80) != 0;
            if (repeats_ && !nextPixel()) {
                return false;
            }
        }
        --left_;
        return repeats_ || nextPixel();
    }

    const QByteArray &bytes_;
    qsizetype at_;
    int size_;
    QRgb pixel_ = 0;
    int left_ = 0;
    bool repeats_ = false;
};

} // namespace

namespace {

// As much of a picture as so many bytes can hold: a packet of one more than a pixel gives 128 of
// them.
qsizetype mostPixels(qsizetype bytes, int depth, bool coded) {
    return coded ? bytes / (depth / 8 + 1) * 128 : bytes / (depth / 8);
}

} // namespace

QImage readTga(const QByteArray &bytes, int largest) {
    if (bytes.size() < headerLength) {
        return {};
    }
    const auto byte = [&](int offset) { return static_cast<unsigned char>(bytes[offset]); };
    const auto word = [&](int offset) { return byte(offset) + 256 * byte(offset + 1); };
    const int type = byte(2), depth = byte(16), layout = byte(17);
    const int width = word(12), height = word(14);
    if (byte(1) != 0 || (type != plainColour && type != codedColour) ||
        (depth != 24 && depth != 32) || width < 1 || height < 1 || width > largest ||
        height > largest) {
        return {};
    }
    const bool coded = type == codedColour;
    const qsizetype start = headerLength + byte(0);
    // A few bytes that announce a huge picture take no memory.
    if (qsizetype{width} * height > mostPixels(bytes.size() - start, depth, coded)) {
        return {};
    }
    QImage image(width, height, QImage::Format_ARGB32);
    if (image.isNull() || !Reader(bytes, start, depth).read(image, coded)) {
        return {};
    }
    return image.mirrored((layout & fromRight) != 0, (layout & fromTop) == 0);
}

} // namespace grimoval
