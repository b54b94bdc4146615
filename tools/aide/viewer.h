// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the help. All that it shows comes out of the help file: no other file is opened and
// no network is used, whatever a page asks for.
#pragma once

#include "tools/aide/helpfile.h"

#include <QImage>
#include <QTextBrowser>
#include <QWidget>

class QPushButton;

namespace grimoval {

class HelpText : public QTextBrowser {
public:
    HelpText(HelpFile help, double factor, QWidget *parent);

    const HelpFile &help() const { return help_; }
    void show(const QString &keyword);

protected:
    void doSetSource(const QUrl &name, QTextDocument::ResourceType type) override;
    QVariant loadResource(int type, const QUrl &name) override;

private:
    std::string pageOf(const QUrl &name) const;
    QImage picture(const std::string &name);

    HelpFile help_;
    int sign_, view_;   // the width of a button in the text, and of a picture of a window
    qint64 pixels_ = 0; // of the pictures of this page
};

class HelpWindow : public QWidget {
public:
    HelpWindow(HelpFile help, const QString &folder);

    void ask(const QString &keyword);
    void comeToFront();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPushButton *button(const QString &name, QWidget *parent);

    double factor_;
    QImage background_;
    HelpText *text_;
};

} // namespace grimoval
