// SPDX-License-Identifier: GPL-3.0-or-later
// The default printer of the system, by way of Qt's print support. The page unit is the twip.
//
// A print server can be slow, and is asked some ten times before it has told of its printer. So it
// is asked once, on a thread beside the program, as soon as a page may be wanted; the answer is
// kept until a page fails. A report is given ten seconds; while it waits the windows live on. Text
// is measured without the printer, as the font alone decides; a page is kept in memory until its
// end.
#pragma once

#include "platform/canvas.h"
#include "platform/qt/printedpage.h"

#include <chrono>
#include <functional>
#include <memory>

namespace grimoval {

class QtPrinter : public Canvas {
public:
    // `pending` is called again and again while a page waits, and lets the windows do what they
    // must; what a person does waits, too.
    explicit QtPrinter(std::function<void()> pending);

    void foresee() override;
    // Of the printable page. Outside a page it waits for a second at most, counted from the
    // question to the print server.
    double pageWidth() override;
    double textWidth(const Texte &text) override;
    double textHeight(const Texte &text) override;
    void drawText(double x, double y, const Texte &text) override;
    void drawLine(double x1, double y1, double x2, double y2) override;
    void drawRectangle(double x1, double y1, double x2, double y2) override;
    void endDocument() override;

    // From here on what is not known is no printer.
    void stopWaiting() { waits_ = false; }

private:
    using Clock = std::chrono::steady_clock;
    struct Printer; // and the width of its page
    struct Asked;   // a question to the print server, under way or answered
    using Question = std::function<std::shared_ptr<Printer>()>;

    // Begins a question beside; failure 482 without a thread for it.
    void ask(Question question);
    // Takes the answer if it comes in time; failure 482 if there is none, or no printer.
    void await(Clock::time_point until);
    // The printer is known, or this is failure 482.
    void find(Clock::time_point until);
    bool isUnderWay() const;

    std::function<void()> pending_;
    bool waits_ = true;
    PrintedPage page_;
    Clock::time_point pageUntil_{};    // how long the page that is being made may wait
    std::shared_ptr<Printer> printer_; // the answer that is kept
    std::shared_ptr<Asked> asked_;
};

} // namespace grimoval
