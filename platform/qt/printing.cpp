// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/printing.h"

#include "platform/failure.h"

#include <QPrinter>
#include <QPrinterInfo>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace grimoval {

namespace {

constexpr std::chrono::milliseconds measuring{1000}, printing{10000};
constexpr std::chrono::seconds fresh{5}; // an answer holds for the page that is being made

// Nothing if there is no default printer.
std::unique_ptr<QPrinter> defaultPrinter() {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) {
        return nullptr;
    }
    auto printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
    return printer->isValid() ? std::move(printer) : nullptr;
}

} // namespace

struct QtPrinter::Asked {
    std::mutex mutex;
    std::condition_variable answered;
    bool done = false;
    std::optional<double> answer; // nothing: no printer
};

double QtPrinter::ask(std::function<double()> question, std::chrono::milliseconds patience) {
    if (asked_) {
        const std::lock_guard lock(asked_->mutex);
        if (!asked_->done) {
            throw Failure(failure::printerError);
        }
    }
    asked_ = std::make_shared<Asked>();
    std::thread([asked = asked_, question = std::move(question)] {
        std::optional<double> answer;
        try {
            answer = question();
        } catch (const std::exception &) {
            answer.reset();
        }
        const std::lock_guard lock(asked->mutex);
        asked->answer = answer;
        asked->done = true;
        asked->answered.notify_all();
    }).detach();
    std::unique_lock lock(asked_->mutex);
    if (!asked_->answered.wait_for(lock, patience, [this] { return asked_->done; }) ||
        !asked_->answer) {
        forget();
        throw Failure(failure::printerError);
    }
    return *asked_->answer;
}

void QtPrinter::forget() {
    page_ = {};
    width_.reset();
}

double QtPrinter::pageWidth() {
    const auto now = std::chrono::steady_clock::now();
    if (width_ && now - measuredAt_ < fresh) {
        return *width_;
    }
    measuredAt_ = now;
    width_ = ask(
        [] {
            const auto printer = defaultPrinter();
            if (!printer) {
                throw Failure(failure::printerError);
            }
            return printer->pageLayout().paintRect(QPageLayout::Inch).width() *
                   PrintedPage::twipsPerInch;
        },
        measuring);
    return *width_;
}

double QtPrinter::textWidth(const Texte &text) { return page_.textWidth(text); }

// The first measure of a page: without a printer it fails.
double QtPrinter::textHeight(const Texte & /*text*/) {
    pageWidth();
    return page_.lineHeight();
}

void QtPrinter::drawText(double x, double y, const Texte &text) { page_.text(x, y, text); }

void QtPrinter::drawLine(double x1, double y1, double x2, double y2) { page_.line(x1, y1, x2, y2); }

void QtPrinter::drawRectangle(double x1, double y1, double x2, double y2) {
    page_.rectangle(x1, y1, x2, y2);
}

void QtPrinter::endDocument() {
    const PrintedPage page = page_;
    forget();
    ask(
        [page]() -> double {
            const auto printer = defaultPrinter();
            if (!printer) {
                throw Failure(failure::printerError);
            }
            printer->setDocName("Le Grimoval");
            if (!page.paintOn(*printer, printer->resolution())) {
                throw Failure(failure::printerError);
            }
            return 0;
        },
        printing);
}

} // namespace grimoval
