// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/aide/viewer.h"

#include "platform/qt/painting.h"
#include "tools/aide/page.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QImageReader>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include <cmath>

namespace grimoval {

namespace {

const QString scheme = QStringLiteral("aide");
const QString index = QStringLiteral("index");
constexpr int widestSign = 128;           // pixels in the file
constexpr qint64 mostPixels = 24'000'000; // of the pictures of a page as they are shown

// As the game does: its window is 580 units high and takes most of the screen.
double factorOf(const QScreen *screen) {
    const double height = screen ? screen->availableGeometry().height() : 600;
    return std::clamp(height / 700, 0.85, 3.0);
}

QString px(double length, double factor) {
    return QString::number(std::max(1L, std::lround(length * factor)));
}

QString sheetOf(double factor) {
    return QStringLiteral(R"(
        QTextBrowser {
            background: #fff7e2; color: #2b1b0e; border: %1px solid #a8741a; border-radius: %2px;
            selection-background-color: #1d2f7a; selection-color: #ffffff;
        }
        QPushButton {
            background: #fff7e2; color: #2b1b0e; border: %1px solid #a8741a; border-radius: %2px;
            padding: %3px %4px; font-weight: bold;
        }
        QPushButton:hover { background: #ffe9a6; }
        QPushButton:pressed { background: #f2c14e; }
        QPushButton:focus { border-color: #1d2f7a; background: #ffffff; }
        QPushButton:disabled { color: #7a684a; background: #f6e7c1; border-color: #e6cf97; }
        QScrollBar:vertical { background: #e6cf97; width: %5px; margin: 0; }
        QScrollBar::handle:vertical { background: #a8741a; min-height: %6px; border-radius: %3px; }
        QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical { height: 0; }
        QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical { background: none; }
    )")
        .arg(px(2, factor), px(8, factor), px(7, factor), px(18, factor), px(16, factor),
             px(36, factor));
}

QString pageSheet(double factor) {
    return QStringLiteral(R"(
        h1 { color: #8a3b2e; font-size: %1px; }
        h2 { color: #1b3fa0; font-size: %2px; }
        a { color: #1b3fa0; }
        li { margin-bottom: %3px; }
        td, th { padding: %3px; }
        th { background-color: #f6e7c1; }
        code, pre { font-family: "DejaVu Sans Mono", monospace; background-color: #f6e7c1; }
    )")
        .arg(px(28, factor), px(21, factor), px(4, factor));
}

// What an address of the help file names; empty for any other.
std::string nameOf(const QUrl &address) {
    const QString path = address.path();
    return address.scheme() == scheme && address.host().isEmpty() && path.startsWith(u'/')
               ? path.mid(1).toStdString()
               : std::string();
}

} // namespace

HelpText::HelpText(HelpFile help, double factor, QWidget *parent)
    : QTextBrowser(parent), help_(std::move(help)), sign_(static_cast<int>(52 * factor)),
      view_(static_cast<int>(440 * factor)) {
    setOpenExternalLinks(false);
    setUndoRedoEnabled(false);
    setFrameShape(QFrame::NoFrame);
    setFont(fontOf(18 * factor));
    document()->setDefaultFont(font());
    document()->setDefaultStyleSheet(pageSheet(factor));
    document()->setDocumentMargin(14 * factor);
    connect(this, &QTextBrowser::sourceChanged, this, [this](const QUrl &name) {
        const std::string page = pageOf(name);
        if (!page.empty()) {
            setAccessibleName(QString::fromStdString(help_.pages.at(page).title));
        }
    });
}

// A page by its name; any other address is none.
std::string HelpText::pageOf(const QUrl &name) const { return help_.pageFor(nameOf(name)); }

void HelpText::show(const QString &keyword) {
    const std::string page = help_.pageFor(keyword.toStdString());
    setSource(QUrl(scheme + QStringLiteral(":/") +
                   (page.empty() ? index : QString::fromStdString(page))));
}

void HelpText::doSetSource(const QUrl &name, QTextDocument::ResourceType /*type*/) {
    if (!pageOf(name).empty()) {
        pixels_ = 0;
        QTextBrowser::doSetSource(name, QTextDocument::HtmlResource);
    }
}

// What is not in the help file is there all the same, and empty: for what has no answer the toolkit
// looks among the files of the disk.
QVariant HelpText::loadResource(int type, const QUrl &name) {
    if (type == QTextDocument::HtmlResource) {
        const std::string page = pageOf(name);
        return QString::fromStdString(page.empty() ? page
                                                   : plainPage(help_, help_.pages.at(page).html));
    }
    if (type == QTextDocument::ImageResource) {
        return picture(nameOf(name));
    }
    return QByteArray(" ");
}

QImage HelpText::picture(const std::string &name) {
    QImage nothing(1, 1, QImage::Format_ARGB32_Premultiplied);
    nothing.fill(Qt::transparent);
    const auto found = help_.images.find(name);
    const auto plain = found == help_.images.end() ? std::nullopt : plainPicture(found->second);
    if (!plain) {
        return nothing;
    }
    QByteArray bytes = QByteArray::fromStdString(*plain);
    QBuffer buffer(&bytes);
    const QImage image =
        QImageReader(&buffer, "png").read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        return nothing;
    }
    const int width = image.width() <= widestSign ? sign_ : view_;
    const QSize size =
        image.size().scaled(QSize(width, width) * devicePixelRatio(), Qt::KeepAspectRatio);
    pixels_ += qint64(size.width()) * size.height();
    if (size.isEmpty() || pixels_ > mostPixels) {
        return nothing;
    }
    QImage fitting = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    fitting.setDevicePixelRatio(devicePixelRatio());
    return fitting;
}

HelpWindow::HelpWindow(HelpFile help, const QString &folder)
    : factor_(factorOf(QGuiApplication::primaryScreen())),
      background_(folder + QStringLiteral("/IMAGES/fond_dialogue.jpg")) {
    setStyleSheet(sheetOf(factor_));
    setFont(fontOf(18 * factor_));
    text_ = new HelpText(std::move(help), factor_, this);
    QPushButton *toIndex = button(QStringLiteral("Index"), this);
    QPushButton *back = button(QStringLiteral("Précédent"), this);
    QPushButton *end = button(QStringLiteral("Fermer"), this);
    back->setEnabled(false);

    auto *row = new QHBoxLayout;
    row->setSpacing(static_cast<int>(14 * factor_));
    row->addWidget(toIndex);
    row->addWidget(back);
    row->addStretch();
    row->addWidget(end);
    auto *column = new QVBoxLayout(this);
    const int margin = static_cast<int>(42 * factor_); // clear of the frame's corners
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(static_cast<int>(10 * factor_));
    column->addWidget(text_);
    column->addLayout(row);

    connect(toIndex, &QPushButton::clicked, this, [this] { ask(index); });
    connect(back, &QPushButton::clicked, text_, &QTextBrowser::backward);
    connect(end, &QPushButton::clicked, this, &QWidget::close);
    connect(text_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    connect(text_, &QTextBrowser::sourceChanged, this, [this] {
        setWindowTitle(QStringLiteral("Aide du Grimoval : ") + text_->accessibleName());
    });
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this,
            &QWidget::close);
    connect(new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Left), this), &QShortcut::activated, text_,
            &QTextBrowser::backward);

    const QScreen *screen = QGuiApplication::primaryScreen();
    const QRect room = screen ? screen->availableGeometry() : QRect(0, 0, 800, 600);
    resize(QSize(static_cast<int>(840 * factor_), static_cast<int>(640 * factor_))
               .boundedTo(QSize(room.width() - 20, room.height() - 60)));
    text_->setFocus();
}

QPushButton *HelpWindow::button(const QString &name, QWidget *parent) {
    auto *result = new QPushButton(name, parent);
    result->setFont(fontOf(18 * factor_, true));
    result->setAutoDefault(true); // Enter presses it too
    return result;
}

void HelpWindow::ask(const QString &keyword) {
    text_->show(keyword);
    text_->setFocus();
}

void HelpWindow::comeToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    // A window manager that guards the focus lets a window in that opens anew.
    QTimer::singleShot(400, this, [this] {
        if (isVisible() && !isActiveWindow()) {
            hide();
            show();
            raise();
            activateWindow();
        }
    });
}

void HelpWindow::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    if (background_.isNull()) {
        drawBackground(painter, rect(), Surface::parchment, factor_);
    } else {
        drawNinePatch(painter, rect(), background_, factor_);
    }
}

} // namespace grimoval
