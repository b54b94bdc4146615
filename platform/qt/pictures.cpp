// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/pictures.h"

#include "platform/qt/tga.h"

#include <QFile>
#include <QImageReader>

#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace grimoval {

namespace {

constexpr qsizetype kept = 12'000'000; // bytes: all faces, and a picture of a theme or two

// What is read at most, so that no file fills the memory or keeps a window waiting: the picture of
// a camera, whole. The pictures of the game are far smaller.
constexpr qint64 largestFile = 40'000'000;          // bytes
constexpr int largest = 8192;                       // pixels a side
constexpr qint64 largestArea = qint64{4096} * 3072; // pixels
constexpr int largestFace = 1024;                   // pixels a side
constexpr qint64 largestFaceFile = 5 * 1024 * 1024; // bytes
constexpr int largestMemory = 64;                   // MiB, of one that is read by Qt
constexpr int mostScans = 64;                       // a picture that grows sharper has ten

// On the highest of screens no theme and no face takes more.
constexpr QSize largestShown{1200, 1200}, largestShownFace{512, 512};

QSize shownSize(QSize size, QSize limit) {
    const bool large = size.width() > limit.width() || size.height() > limit.height();
    return large ? size.scaled(limit, Qt::KeepAspectRatio).expandedTo({1, 1}) : size;
}

// For reading, if it is a plain file. By the bytes of its name: a QString loses those that are no
// UTF-8.
bool openPlain(QFile &file, const std::string &name) {
    const int descriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat status {};
    if (descriptor >= 0 && ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
        return file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    }
    if (descriptor >= 0) {
        ::close(descriptor);
    }
    return false;
}

// Of a JPEG picture; each goes over the whole of it, however few its bytes are.
bool hasManyScans(QFile &file) {
    int scans = 0;
    if (file.peek(2) == "\xff\xd8") {
        static constexpr QByteArrayView start("\xff\xda");
        qsizetype overlap = 0; // the last byte of the block before, in which a start may begin
        for (QByteArray block; scans <= mostScans; overlap = 1) {
            block = block.last(overlap) + file.read(65536);
            if (block.size() == overlap) {
                break;
            }
            scans += static_cast<int>(block.count(start));
        }
        file.seek(0);
    }
    return scans > mostScans;
}

// By its first bytes: without a format Qt would load all its plug-ins and ask each.
QByteArray formatOf(QFile &file) {
    const QByteArray start = file.peek(4);
    return start == "\x89PNG"                 ? "png"
           : start.startsWith("\xff\xd8\xff") ? "jpeg"
           : start.startsWith("BM")           ? "bmp"
                                              : QByteArray();
}

// A file that may be read as a picture; nothing is read of a pipe or of what is too large.
class Source {
public:
    explicit Source(const std::string &name) {
        if (!openPlain(file_, name) || file_.size() > largestFile || hasManyScans(file_)) {
            return;
        }
        const QByteArray format = formatOf(file_);
        if (format.isEmpty()) {
            return;
        }
        reader_.setDevice(&file_);
        reader_.setFormat(format);
        reader_.setAutoTransform(true);
        const QSize size = reader_.size();
        if (size.isEmpty() || size.width() > largest || size.height() > largest ||
            qint64{size.width()} * size.height() > largestArea) {
            return;
        }
        size_ = size;
    }

    QSize size() const { return size_; }
    QImage read(QSize size) {
        if (size_.isEmpty()) {
            return {};
        }
        if (size != size_) {
            reader_.setScaledSize(size);
        }
        return reader_.read();
    }

private:
    QFile file_;
    QImageReader reader_;
    QSize size_; // empty: it is not read
};

QImage decodeFace(const std::string &name) {
    QFile file;
    if (!openPlain(file, name)) {
        return {};
    }
    const QImage image = readTga(file.read(largestFaceFile), largestFace);
    const QSize shown = shownSize(image.size(), largestShownFace);
    return image.size() == shown
               ? image
               : image.scaled(shown, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage decode(const std::string &name) {
    if (upper(fromPath(name)).ends_with(u".TGA")) {
        if (const QImage image = decodeFace(name); !image.isNull()) {
            return image;
        }
        // Perhaps another kind of picture under this name.
    }
    Source source(name);
    return source.read(shownSize(source.size(), largestShown));
}

} // namespace

Pictures::Pictures(Files &files, const Texte &dataFolder)
    : files_(files), folder_(asFolder(dataFolder)) {
    QImageReader::setAllocationLimit(largestMemory);
}

const QImage &Pictures::read(const std::string &file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0) {
        status = {};
    }
    const qint64 writtenAt =
        qint64{status.st_mtim.tv_sec} * 1000 + status.st_mtim.tv_nsec / 1'000'000;
    const qint64 length = status.st_size;
    auto found = entries_.find(file);
    if (found == entries_.end() || found->second.writtenAt != writtenAt ||
        found->second.length != length) {
        const QImage image = decode(file);
        held_ += image.sizeInBytes();
        if (held_ > kept) {
            entries_.clear();
            held_ = image.sizeInBytes();
        }
        found = entries_.insert_or_assign(file, Entry{writtenAt, length, image}).first;
    }
    return found->second.image;
}

void Pictures::check(const Texte &path) {
    if (!files_.exists(path)) {
        throw Failure(failure::fileNotFound);
    }
    if (read(files_.resolve(path)).isNull()) {
        throw Failure(failure::invalidPicture);
    }
}

QImage Pictures::image(const Texte &path) {
    if (path.empty()) {
        return {};
    }
    try {
        return read(files_.resolve(path));
    } catch (const Failure &) {
        return {};
    }
}

QImage Pictures::design(const std::string &name) {
    return name.empty() ? QImage()
                        : image(folder_ + u"IMAGES" + separator + fromUtf8(name) + u".png");
}

std::string Pictures::backgroundFile(const std::string &name) {
    return files_.resolve(folder_ + u"IMAGES" + separator + u"fond_" + fromUtf8(name) + u".jpg");
}

QSize Pictures::backgroundSize(const std::string &name) {
    return name.empty() ? QSize() : Source(backgroundFile(name)).size();
}

namespace {
QImage readScaled(const std::string &file, QSize pixels) { return Source(file).read(pixels); }
} // namespace

QImage Pictures::background(const std::string &name, QSize pixels) {
    // What was foreseen in another size is of no use to anybody.
    if (auto found = foreseen_.extract(name); found && found.mapped().pixels == pixels) {
        return found.mapped().image.get();
    }
    return readScaled(backgroundFile(name), pixels);
}

void Pictures::foresee(const std::string &name, QSize pixels) {
    try {
        foreseen_[name] = {
            pixels, std::async(std::launch::async, readScaled, backgroundFile(name), pixels)};
    } catch (const std::system_error &) {
        // No more threads: it is read when it is shown.
    }
}

} // namespace grimoval
