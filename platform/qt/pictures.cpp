// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/pictures.h"

#include "platform/qt/tga.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace grimoval {

Pictures::Pictures(Files &files, const Texte &dataFolder)
    : files_(files), folder_(asFolder(dataFolder)) {}

namespace {

constexpr qsizetype kept = 12'000'000;      // bytes: all faces, and a picture of a theme or two
constexpr int largest = 8192;               // pixels a side
constexpr qint64 largestFile = 300'000'000; // bytes: a plain picture of that size

// By its first bytes: without a format Qt would load all its plug-ins and ask each.
QByteArray formatOf(QFile &file) {
    const QByteArray start = file.peek(4);
    return start == "\x89PNG"                 ? "png"
           : start.startsWith("\xff\xd8\xff") ? "jpeg"
           : start.startsWith("BM")           ? "bmp"
                                              : QByteArray();
}

QImage decode(const QString &name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly) || file.size() > largestFile) {
        return {};
    }
    if (name.endsWith(QStringLiteral(".tga"), Qt::CaseInsensitive)) {
        if (const QImage image = readTga(file.readAll(), largest); !image.isNull()) {
            return image;
        }
        file.seek(0); // another kind of picture under this name
    }
    QImageReader reader(&file, formatOf(file));
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.width() > largest || size.height() > largest) {
        return {};
    }
    const QImage image = reader.read();
    return image.width() > largest || image.height() > largest ? QImage() : image;
}

} // namespace

const QImage &Pictures::read(const QString &file) {
    const QFileInfo info(file);
    const qint64 writtenAt = info.lastModified().toMSecsSinceEpoch();
    auto found = entries_.find(file);
    if (found == entries_.end() || found->writtenAt != writtenAt || found->length != info.size()) {
        const QImage image = info.isFile() ? decode(file) : QImage();
        held_ += image.sizeInBytes();
        if (held_ > kept) {
            entries_.clear();
            held_ = image.sizeInBytes();
        }
        found = entries_.insert(file, {writtenAt, info.size(), image});
    }
    return found->image;
}

void Pictures::check(const Texte &path) {
    const QString file = QString::fromStdString(files_.resolve(path));
    if (!QFileInfo::exists(file)) {
        throw Failure(failure::fileNotFound);
    }
    if (read(file).isNull()) {
        throw Failure(failure::invalidPicture);
    }
}

QImage Pictures::image(const Texte &path) {
    if (path.empty()) {
        return {};
    }
    try {
        return read(QString::fromStdString(files_.resolve(path)));
    } catch (const Failure &) {
        return {};
    }
}

QImage Pictures::design(const std::string &name) {
    return name.empty() ? QImage()
                        : image(folder_ + u"IMAGES" + separator + fromUtf8(name) + u".png");
}

QString Pictures::backgroundFile(const std::string &name) {
    return QString::fromStdString(
        files_.resolve(folder_ + u"IMAGES" + separator + u"fond_" + fromUtf8(name) + u".jpg"));
}

QSize Pictures::backgroundSize(const std::string &name) {
    return name.empty() ? QSize() : QImageReader(backgroundFile(name)).size();
}

QImage Pictures::background(const std::string &name, QSize pixels) {
    QImageReader reader(backgroundFile(name));
    reader.setScaledSize(pixels);
    return reader.read();
}

} // namespace grimoval
