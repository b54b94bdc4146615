// SPDX-License-Identifier: GPL-3.0-or-later
// The report on the page as it is printed: what a device of so many dots an inch is told to draw.
#include "platform/qt/printedpage.h"
#include "scores/FScore2.h"
#include "support/program.h"

#include <QPaintEngine>
#include <QPrinter>
#include <gtest/gtest.h>

namespace grimoval::test {
namespace {

// Notes texts, lines and rectangles in twips, from what it is told in dots.
class Recorder : public QPaintDevice {
public:
    struct Text {
        std::string text;
        QPointF start; // on the base line
        double width;
    };
    std::vector<Text> texts;
    std::vector<QLineF> lines;
    std::vector<QRectF> rectangles;

    explicit Recorder(int dotsPerInch) : dots(dotsPerInch), engine(*this) {}
    QPaintEngine *paintEngine() const override { return &engine; }

protected:
    int metric(PaintDeviceMetric which) const override {
        switch (which) {
        case PdmWidth:
        case PdmHeight:
            return 20 * dots;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return dots;
        case PdmDepth:
            return 32;
        default:
            return 1;
        }
    }

private:
    struct Engine : QPaintEngine {
        explicit Engine(Recorder &owner) : QPaintEngine(AllFeatures), to(owner) {}
        bool begin(QPaintDevice *) override { return true; }
        bool end() override { return true; }
        Type type() const override { return User; }
        void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {
            ADD_FAILURE() << "a picture on the page";
        }
        void drawPath(const QPainterPath &) override { ADD_FAILURE() << "a path on the page"; }
        void drawPolygon(const QPointF *, int, PolygonDrawMode) override {
            ADD_FAILURE() << "a polygon on the page";
        }
        void updateState(const QPaintEngineState &now) override {
            if (now.state() & DirtyTransform) {
                const double twips = 1440.0 / to.dots;
                map = now.transform() * QTransform::fromScale(twips, twips);
            }
            if (now.state() & DirtyPen) {
                EXPECT_EQ(now.pen().color(), QColor(Qt::black));
            }
            if (now.state() & (DirtyClipRegion | DirtyClipPath)) {
                EXPECT_FALSE(now.isClipEnabled());
            }
        }
        void drawLines(const QLineF *drawn, int count) override {
            for (int i = 0; i < count; ++i) {
                to.lines.push_back(map.map(drawn[i]));
            }
        }
        void drawRects(const QRectF *drawn, int count) override {
            for (int i = 0; i < count; ++i) {
                to.rectangles.push_back(map.mapRect(drawn[i]));
            }
        }
        void drawTextItem(const QPointF &at, const QTextItem &item) override {
            to.texts.push_back({item.text().toStdString(), map.map(at), item.width() * map.m11()});
        }

        Recorder &to;
        QTransform map;
    };

    int dots;
    mutable Engine engine;
};

// A printer of that page whose sheets stay in memory.
struct MemoryPrinter : Canvas {
    double width = 0;
    PrintedPage page;
    std::vector<PrintedPage> printed;

    double pageWidth() override { return width; }
    double textWidth(const Texte &text) override { return page.textWidth(text); }
    double textHeight(const Texte &) override { return page.lineHeight(); }
    void drawText(double x, double y, const Texte &text) override { page.text(x, y, text); }
    void drawLine(double x1, double y1, double x2, double y2) override {
        page.line(x1, y1, x2, y2);
    }
    void drawRectangle(double x1, double y1, double x2, double y2) override {
        page.rectangle(x1, y1, x2, y2);
    }
    void endDocument() override { printed.push_back(std::exchange(page, {})); }
};

const Texte wideName(15, u'W'), longTitle(80, u'M');

struct PrintedReport : testing::Test {
    NoWindows none;
    Program program{none};
    MemoryPrinter printer;
    Services services{program.screen, program.files,     program.clock,       program.random,
                      program.sound,  program.documents, program.application, printer};
    Globales g{services};
    FScore2 score{g};

    PrintedReport() {
        program.clock.set({2026, 3, 7, 14, 5, 9});
        g.TitreAppli = u"Le Grimoval ";
        g.SautLigne = u"\n";
        g.reglages.NombreJoueur = 1;
        g.base.FichierBase = u"ESSAI.DBS";
        g.base.TitreBase = longTitle;
        g.joueurs.NomJoueur = {Texte(), wideName, u"MARIE", u"PETIT", u"LÉO"};
        g.scores.NbMotsBase = 40;
        g.scores.NbMotsProposes = 7;
    }
    std::unique_ptr<Recorder> print(double width, int dotsPerInch) {
        printer.width = width;
        score.show();
        EXPECT_TRUE(score.CmdScore[1].userClick());
        EXPECT_EQ(printer.printed.size(), 1u);
        auto recorder = std::make_unique<Recorder>(dotsPerInch);
        EXPECT_TRUE(printer.printed.back().paintOn(*recorder, dotsPerInch));
        printer.printed.clear();
        return recorder;
    }
};

constexpr double fine = 0.5; // twips

TEST_F(PrintedReport, HasItsFramesItsLinesAndItsTextsAtTheirPlacesOnAnyPaper) {
    const double C = printer.page.textWidth(u"W"), H = printer.page.lineHeight();
    EXPECT_NEAR(C, 120, 3); // a tenth of an inch is twelve points: letters of ten are that narrow
    EXPECT_NEAR(H, 230, 30);
    for (const double W : {11000.0, 12240.0, 7500.0}) {
        for (const int dots : {72, 300, 1200}) {
            const auto recorded = print(W, dots);
            const Recorder &page = *recorded;
            const auto near = [](const QPointF &point, double x, double y) {
                EXPECT_NEAR(point.x(), x, fine);
                EXPECT_NEAR(point.y(), y, fine);
            };
            const double frames[][2] = {{1.2, 2.5}, {9.2, 19.2}};
            ASSERT_EQ(page.rectangles.size(), std::size(frames));
            for (std::size_t i = 0; i < std::size(frames); ++i) {
                near(page.rectangles[i].topLeft(), C, frames[i][0] * H);
                near(page.rectangles[i].bottomRight(), W - C, frames[i][1] * H);
            }
            const double middle = 30 * C + (W - 30 * C) / 2;
            const QLineF lines[] = {{C, 5.8 * H, W - C, 5.8 * H},
                                    {30 * C, 9.2 * H, 30 * C, 19.2 * H},
                                    {middle, 9.2 * H, middle, 19.2 * H},
                                    {C, 11.7 * H, W - C, 11.7 * H}};
            ASSERT_EQ(page.lines.size(), std::size(lines));
            for (std::size_t i = 0; i < std::size(lines); ++i) {
                near(page.lines[i].p1(), lines[i].x1(), lines[i].y1());
                near(page.lines[i].p2(), lines[i].x2(), lines[i].y2());
            }
            const double first = 30 * C + (W - 13 * C - middle) / 2,
                         second = first + middle - 30 * C;
            const double heading = (std::floor((W - 16 * C - 2 * C) / 2 / (14 * C)) + 1) * 14 * C;
            const struct {
                std::string text;
                double x, y;
            } texts[] = {{"Samedi, 07 mars 2026 à 14:05:09", 2 * C, 0},
                         {"Le Grimoval v3.0", heading, 1.3 * H},
                         {"Fichier        : ESSAI.DBS", 2 * C, 2.7 * H},
                         {"Sujet          : " + toUtf8(longTitle), 2 * C, 3.7 * H},
                         {toUtf8(wideName), first, 9.5 * H},
                         {"PETIT", second, 9.5 * H},
                         {"MARIE", first, 10.5 * H},
                         {"LÉO", second, 10.5 * H},
                         {"Nombre de mots trouvés", 2 * C, 17 * H}};
            ASSERT_FALSE(page.texts.empty());
            const double ascent = page.texts.front().start.y(); // of the line at the very top
            EXPECT_NEAR(ascent, 0.75 * H, 0.15 * H);
            for (const auto &row : texts) {
                const auto found =
                    std::find_if(page.texts.begin(), page.texts.end(),
                                 [&](const Recorder::Text &t) { return t.text == row.text; });
                ASSERT_NE(found, page.texts.end()) << row.text << " at " << W << ", " << dots;
                near(found->start, row.x, row.y + ascent);
                // Whole, in letters as wide as any other's.
                EXPECT_NEAR(found->width, double(fromUtf8(row.text).size()) * C, C / 4) << row.text;
            }
        }
    }
}

TEST_F(PrintedReport, IsOnePageOfTheRealPrinterHoweverItIsScaled) {
    for (const auto mode : {QPrinter::ScreenResolution, QPrinter::HighResolution}) {
        QPrinter paper(mode);
        paper.setOutputFormat(QPrinter::PdfFormat);
        const std::string file = program.folder.bytePath(u"page.pdf");
        paper.setOutputFileName(QString::fromStdString(file));
        printer.width =
            paper.pageLayout().paintRect(QPageLayout::Inch).width() * PrintedPage::twipsPerInch;
        score.show();
        EXPECT_TRUE(score.CmdScore[1].userClick());
        ASSERT_EQ(printer.printed.size(), 1u);
        ASSERT_TRUE(printer.printed.back().paintOn(paper, paper.resolution()));
        printer.printed.clear();
        const std::string pdf = program.folder.read(u"page.pdf");
        EXPECT_TRUE(pdf.starts_with("%PDF"));
        EXPECT_NE(pdf.find("/Count 1\n"), std::string::npos);
    }
}

} // namespace
} // namespace grimoval::test
