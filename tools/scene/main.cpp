// SPDX-License-Identifier: GPL-3.0-or-later
// grimscene SOURCE.svg DEST.svg: the scene with its things in their places, for any program that
// draws SVG.
#include "scene.h"
#include "sign.h"

#include <QFile>
#include <QGuiApplication>
#include <cstdio>

int main(int argc, char **argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: grimscene SOURCE.svg DEST.svg\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QFile source(QString::fromLocal8Bit(argv[1])), dest(QString::fromLocal8Bit(argv[2]));
    if (!source.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "grimscene: %s cannot be read\n", argv[1]);
        return 1;
    }
    try {
        const QByteArray made = scene::placed(source.readAll());
        if (!dest.open(QIODevice::WriteOnly) || dest.write(made) != made.size() || !dest.flush()) {
            std::fprintf(stderr, "grimscene: %s cannot be written\n", argv[2]);
            return 1;
        }
    } catch (const std::exception &error) {
        std::fprintf(stderr, "grimscene: %s, %s\n", argv[1], error.what());
        return 1;
    }
    return 0;
}
