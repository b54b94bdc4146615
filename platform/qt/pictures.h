// SPDX-License-Identifier: GPL-3.0-or-later
// Picture files, read once each.
#pragma once

#include "platform/files.h"

#include <QImage>

#include <future>
#include <map>
#include <unordered_map>

namespace grimoval {

class Pictures {
public:
    Pictures(Files &files, const Texte &dataFolder);

    // Failure 53 if there is no such file, 481 if it cannot be read as a picture.
    void check(const Texte &path);
    // A null image for what cannot be shown.
    QImage image(const Texte &path);
    // A picture stored in a window: `IMAGES/<name>.png` of the program's data; null if there is
    // none.
    QImage design(const std::string &name);
    // The background of a window, `IMAGES/fond_<name>.jpg`, read at just the size that it is wanted
    // in and not kept; null, and no size, if there is none.
    QImage background(const std::string &name, QSize pixels);
    // Begins to read one that will soon be asked for, beside the program.
    void foresee(const std::string &name, QSize pixels);
    QSize backgroundSize(const std::string &name);

private:
    struct Entry {
        qint64 writtenAt = 0, length = 0;
        QImage image;
    };
    struct Foreseen {
        QSize pixels;
        std::future<QImage> image;
    };
    const QImage &read(const std::string &file);
    std::string backgroundFile(const std::string &name);

    Files &files_;
    Texte folder_;
    std::unordered_map<std::string, Entry> entries_;
    std::map<std::string, Foreseen> foreseen_;
    qsizetype held_ = 0; // bytes of the pictures that are kept
};

} // namespace grimoval
