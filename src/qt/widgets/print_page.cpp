// Printing, see print_page.h.
#include "qt/widgets/print_page.h"

#include <QBuffer>
#include <QDir>
#include <QFileDialog>
#include <QFontMetricsF>
#include <QMessageBox>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <algorithm>
#include <cmath>
#include <memory>

#include "base/runtime_fault.h"
#include "platform/files.h"
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
    ColumnPages(QPagedPaintDevice& printer, const QStringList& lines, const QFont& font, QString title)
        : printer_(printer), lines_(lines), font_(font), title_(std::move(title)) {}

    bool Print() {
        const QRectF page = printer_.pageLayout().paintRect(QPageLayout::Point);
        const double pixelsPerPoint = printer_.logicalDpiX() / 72.0;
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
    QPagedPaintDevice& printer_;
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

/// @param file  that is printed into; "" for a printer
void TellFailure(const QString& file, QWidget& owner, forms::Language words) {
    QMessageBox box(QMessageBox::Warning, QStringLiteral("ZIRVO"),
                    words == forms::Language::Japanese ? QStringLiteral("印刷できません。")
                                                       : QStringLiteral("This cannot be printed."),
                    QMessageBox::Ok, &owner);
    box.setObjectName(QStringLiteral("PrintFailure"));
    box.setTextFormat(Qt::PlainText);
    if (!file.isEmpty()) {
        box.setText(box.text() + QStringLiteral("\n\n") + QDir::toNativeSeparators(file));
    }
    box.exec();
}

using PrintOn = std::function<bool(QPagedPaintDevice& printer)>;

/// The pages as the bytes of a PDF, laid out as the printer has it.
bool PrintIntoBytes(const QPrinter& printer, const PrintOn& print, QByteArray& bytes) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&buffer);
    pdf.setResolution(printer.resolution());
    pdf.setPageLayout(printer.pageLayout());
    pdf.setPageRanges(printer.pageRanges());
    pdf.setTitle(printer.docName());
    pdf.setCreator(printer.creator());
    return print(pdf);
}

/// Prints and tells where that fails. The printer itself would empty an old file first, and tell nothing of a disk that
/// is full: a file is made in memory and put into place as a whole.
void PrintAndTell(QPrinter& printer, QWidget& owner, forms::Language words, const PrintOn& print) {
    const QString file = printer.outputFormat() == QPrinter::PdfFormat ? printer.outputFileName() : QString();
    if (file.isEmpty()) {
        if (!print(printer) || printer.printerState() == QPrinter::Error) {
            TellFailure(file, owner, words);
        }
        return;
    }
    QByteArray bytes;
    bool done = PrintIntoBytes(printer, print, bytes);
    if (done) {
        try {
            WriteWholeFile(file.toStdString(),
                           std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
        } catch (const RuntimeFault&) {
            done = false;
        }
    }
    if (!done) {
        TellFailure(file, owner, words);
    }
}

#ifdef Q_OS_WIN
/// Windows has no dialog for a machine without a printer, and Qt's does not come up there: the pages go into a file.
bool AskForFile(QPrinter& printer, QWidget& owner, forms::Language words) {
    const QString folder = QDir::currentPath();
    const QString title = words == forms::Language::Japanese
                              ? QStringLiteral("プリンターがありません: PDF ファイルに印刷")
                              : QStringLiteral("No printer: print to a PDF file");
    const QString file = QFileDialog::getSaveFileName(&owner, title, printer.docName(), QStringLiteral("PDF (*.pdf)"));
    QDir::setCurrent(folder);  // the system's dialog may have moved it
    printer.setOutputFileName(file);
    return !file.isEmpty();
}
#endif

}  // namespace

bool AskForPrinter(QPrinter& printer, QWidget& owner, forms::Language words) {
    const DialogWords language(words);
#ifdef Q_OS_WIN
    if (printer.outputFormat() != QPrinter::NativeFormat) {
        return AskForFile(printer, owner, words);
    }
#endif
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
    if (choose(printer, owner, words)) {
        PrintAndTell(printer, owner, words,
                     [&](QPagedPaintDevice& device) { return ColumnPages(device, lines, font, title).Print(); });
    }
}

void PrintDocument(const QTextDocument& document, QWidget& owner, forms::Language words, const PrinterChoice& choose) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(DocumentName(document.metaInformation(QTextDocument::DocumentTitle)));
    if (choose(printer, owner, words)) {
        PrintAndTell(printer, owner, words, [&](QPagedPaintDevice& device) {
            document.print(&device);
            return true;
        });
    }
}

}  // namespace zirvo::widgets
