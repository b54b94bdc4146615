// SPDX-License-Identifier: GPL-3.0-or-later
// The least that a program of this toolkit can be: one empty window of the size that it is told.
// What the game costs is compared with it.
#include <QApplication>
#include <QWidget>

int main(int count, char **arguments) {
    QApplication application(count, arguments);
    QWidget window;
    window.resize(count > 1 ? QString::fromLocal8Bit(arguments[1]).toInt() : 640,
                  count > 2 ? QString::fromLocal8Bit(arguments[2]).toInt() : 480);
    window.show();
    return QApplication::exec();
}
