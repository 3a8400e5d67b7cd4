// Printing, see print_page.h.
#include "qt/widgets/print_page.h"

#include <QDir>
#include <QFile>
#include <QFontMetricsF>
#include <QMessageBox>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <algorithm>
#include <cmath>
#include <memory>

#include "qt/widgets/dialog_words.h"
#include "qt/widgets/screen_fonts.h"

namespace zirvo::widgets {
namespace {

constexpr double LargestLetters = 10;    // [points]
constexpr double SmallestLetters = 2;    // below that no printer shows them
constexpr double ReadableLetters = 6.5;  // a page lies rather than hold smaller ones

/// The size in which a line as long as the longest fills the width [points].
double LettersFor(const QStringList& lines, const QFont& font, double pointsWide) {
    QFont tried = font;
    constexpr int wholePoints = 100;  // measured large, so that rounded pixels count for little
    tried.setPixelSize(wholePoints);
    const QFontMetricsF metrics(tried);
    double longest = 0;
    for (const QString& line : lines) {
        longest = std::max(longest, metrics.horizontalAdvance(line));
    }
    const double fits = longest > 0 ? pointsWide * wholePoints / longest : LargestLetters;
    return std::clamp(fits, SmallestLetters, LargestLetters);
}

class ColumnPages {
public:
    ColumnPages(QPrinter& printer, const QStringList& lines, const QFont& font, QString title)
        : printer_(printer), lines_(lines), font_(font), title_(std::move(title)) {}

    bool Print() {
        const QRectF page = printer_.pageLayout().paintRect(QPageLayout::Point);
        const double pixelsPerPoint = printer_.resolution() / 72.0;
        font_.setHintingPreference(QFont::PreferNoHinting);
        font_.setPixelSize(
            std::max(1, static_cast<int>(std::floor(LettersFor(lines_, font_, page.width()) * pixelsPerPoint))));
        QPainter painter;
        if (!painter.begin(&printer_)) {
            return false;
        }
        painter.setFont(font_);
        const double lineHeight = QFontMetricsF(font_, &printer_).lineSpacing();
        const double high = page.height() * pixelsPerPoint;
        constexpr int linesOfHeading = 2;
        const auto perPage = std::max<qsizetype>(1, static_cast<qsizetype>(high / lineHeight) - linesOfHeading);
        const qsizetype pages = std::max<qsizetype>(1, (lines_.size() + perPage - 1) / perPage);
        for (qsizetype number = 0; number < pages; ++number) {
            if (number > 0) {
                printer_.newPage();
            }
            const QRectF heading(0, 0, page.width() * pixelsPerPoint, lineHeight);
            painter.drawText(heading, Qt::AlignLeft, title_);
            painter.drawText(heading, Qt::AlignRight, QStringLiteral("%1 / %2").arg(number + 1).arg(pages));
            for (qsizetype i = 0; i < perPage && number * perPage + i < lines_.size(); ++i) {
                const double top = static_cast<double>(i + linesOfHeading) * lineHeight;
                painter.drawText(QRectF(0, top, 10 * page.width() * pixelsPerPoint, lineHeight),
                                 Qt::AlignLeft | Qt::TextSingleLine, lines_.at(number * perPage + i));
            }
        }
        return painter.end();
    }

private:
    QPrinter& printer_;
    const QStringList& lines_;
    QFont font_;
    QString title_;
};

/// The name of the document, which the dialog takes for that of a file too, with ".pdf" in place of what stands behind
/// the last full stop: so it has one to lose. A slash would be a folder.
QString DocumentName(QString title) {
    title.replace(QLatin1Char('/'), QLatin1Char('_'));
    return title + QStringLiteral(".pdf");
}

/// The file that is printed into; "" for a printer.
QString PrintedFile(const QPrinter& printer) {
    return printer.outputFormat() == QPrinter::PdfFormat ? printer.outputFileName() : QString();
}

/// Whether all has gone out. Of a file that could not be written to its end (a full disk) Qt says nothing; but a whole
/// one ends as all of its kind do.
bool HasPrinted(const QPrinter& printer) {
    const QString name = PrintedFile(printer);
    if (printer.printerState() == QPrinter::Error || name.isEmpty()) {
        return printer.printerState() != QPrinter::Error;
    }
    constexpr qint64 lastBytes = 16;
    QFile file(name);
    return file.open(QIODevice::ReadOnly) && file.size() > lastBytes && file.seek(file.size() - lastBytes) &&
           file.read(lastBytes).contains("%%EOF");
}

void TellFailure(const QPrinter& printer, QWidget& owner, forms::Language words) {
    QMessageBox box(QMessageBox::Warning, QStringLiteral("ZIRVO"),
                    words == forms::Language::Japanese ? QStringLiteral("印刷できません。")
                                                       : QStringLiteral("This cannot be printed."),
                    QMessageBox::Ok, &owner);
    box.setObjectName(QStringLiteral("PrintFailure"));
    box.setTextFormat(Qt::PlainText);
    if (const QString name = PrintedFile(printer); !name.isEmpty()) {
        box.setText(box.text() + QStringLiteral("\n\n") + QDir::toNativeSeparators(name));
    }
    box.exec();
}

}  // namespace

bool AskForPrinter(QPrinter& printer, QWidget& owner, forms::Language words) {
    const DialogWords language(words);
    QPrintDialog dialog(&printer, &owner);
    dialog.setObjectName(QStringLiteral("PrintDialog"));
    dialog.setWindowRole(dialog.objectName());
    dialog.setFont(ScreenFont({}));
    dialog.setWindowModality(Qt::ApplicationModal);
    return dialog.exec() == QDialog::Accepted;
}

void PrintColumns(const QString& text, const QFont& font, const QString& title, QWidget& owner, forms::Language words,
                  const PrinterChoice& choose) {
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString& line : lines) {
        line.remove(QLatin1Char('\r'));
    }
    while (lines.size() > 1 && lines.constLast().isEmpty()) {
        lines.removeLast();
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(DocumentName(title));
    if (LettersFor(lines, font, printer.pageLayout().paintRect(QPageLayout::Point).width()) < ReadableLetters) {
        printer.setPageOrientation(QPageLayout::Landscape);
    }
    if (choose(printer, owner, words) && !(ColumnPages(printer, lines, font, title).Print() && HasPrinted(printer))) {
        TellFailure(printer, owner, words);
    }
}

void PrintDocument(const QTextDocument& document, QWidget& owner, forms::Language words, const PrinterChoice& choose) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(DocumentName(document.metaInformation(QTextDocument::DocumentTitle)));
    if (choose(printer, owner, words)) {
        document.print(&printer);
        if (!HasPrinted(printer)) {
            TellFailure(printer, owner, words);
        }
    }
}

}  // namespace zirvo::widgets
