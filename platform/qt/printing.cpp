// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/printing.h"

#include "platform/failure.h"

#include <QPrinter>
#include <QPrinterInfo>

#include <atomic>
#include <system_error>
#include <thread>
#include <utility>

namespace grimoval {

namespace {

constexpr std::chrono::seconds forAPage{10}, forAWidth{1};
constexpr std::chrono::milliseconds look{10};

} // namespace

struct QtPrinter::Printer {
    std::unique_ptr<QPrinter> device;
    double width; // twips
};

struct QtPrinter::Asked {
    Clock::time_point at = Clock::now();
    std::shared_ptr<Printer> answer; // none: no printer; belongs to the thread until it is done
    std::atomic<bool> done = false;
};

QtPrinter::QtPrinter(std::function<void()> pending) : pending_(std::move(pending)) {}

bool QtPrinter::isUnderWay() const { return asked_ && !asked_->done; }

void QtPrinter::ask(Question question) {
    auto asked = std::make_shared<Asked>();
    try {
        std::thread([asked, question = std::move(question)] {
            try {
                asked->answer = question();
            } catch (const std::exception &) {
                asked->answer.reset();
            }
            asked->done = true;
        }).detach();
    } catch (const std::system_error &) {
        throw Failure(failure::printerError);
    }
    asked_ = std::move(asked);
}

void QtPrinter::await(Clock::time_point until) {
    while (isUnderWay() && waits_ && Clock::now() < until) {
        pending_();
        std::this_thread::sleep_for(look);
    }
    if (isUnderWay()) {
        printer_.reset(); // it is still at work for the question
        throw Failure(failure::printerError);
    }
    printer_ = std::exchange(asked_, nullptr)->answer;
    if (!printer_) {
        throw Failure(failure::printerError);
    }
}

namespace {

// The default printer and the width of its page; nothing if there is none.
std::pair<std::unique_ptr<QPrinter>, double> defaultPrinter() {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) {
        return {};
    }
    auto printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
    if (!printer->isValid()) {
        return {};
    }
    const double inches = printer->pageLayout().paintRect(QPageLayout::Inch).width();
    return {std::move(printer), inches * PrintedPage::twipsPerInch};
}

} // namespace

void QtPrinter::foresee() {
    if (printer_ || asked_ || !waits_) {
        return;
    }
    try {
        ask([]() -> std::shared_ptr<Printer> {
            auto [device, width] = defaultPrinter();
            return device ? std::make_shared<Printer>(std::move(device), width) : nullptr;
        });
    } catch (const Failure &) {
        // It is asked again when it is wanted.
    }
}

void QtPrinter::find(Clock::time_point until) {
    if (printer_) {
        return;
    }
    foresee();
    if (!asked_) {
        throw Failure(failure::printerError);
    }
    await(until);
}

double QtPrinter::pageWidth() {
    foresee();
    find((asked_ ? asked_->at : Clock::now()) + forAWidth);
    return printer_->width;
}

double QtPrinter::textWidth(const Texte &text) { return page_.textWidth(text); }

double QtPrinter::textHeight(const Texte & /*text*/) {
    if (pageUntil_ < Clock::now()) { // the first measure of a page
        pageUntil_ = Clock::now() + forAPage;
        if (asked_ && asked_->done && !asked_->answer) {
            asked_.reset(); // there was none then: a page asks again
        }
    }
    try {
        find(pageUntil_);
    } catch (const Failure &) {
        pageUntil_ = {};
        throw;
    }
    return page_.lineHeight();
}

void QtPrinter::drawText(double x, double y, const Texte &text) { page_.text(x, y, text); }

void QtPrinter::drawLine(double x1, double y1, double x2, double y2) { page_.line(x1, y1, x2, y2); }

void QtPrinter::drawRectangle(double x1, double y1, double x2, double y2) {
    page_.rectangle(x1, y1, x2, y2);
}

void QtPrinter::endDocument() {
    const PrintedPage page = std::exchange(page_, {});
    const auto until = std::exchange(pageUntil_, {});
    find(until);
    ask([page, printer = printer_]() -> std::shared_ptr<Printer> {
        printer->device->setDocName("Le Grimoval");
        const bool printed = page.paintOn(*printer->device, printer->device->resolution());
        return printed ? printer : nullptr;
    });
    await(until);
}

} // namespace grimoval
