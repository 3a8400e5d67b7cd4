// Pages of text on paper. Callers: the window of a form and the help, at Ctrl+P.
#pragma once
#include <QPrinter>
#include <QString>
#include <QStringList>
#include <QTextDocument>
#include <functional>

#include "forms/desktop.h"

namespace zirvo::widgets {

/// Makes a printer ready as the user wants it, its pages lying or standing; false if nothing is to be printed. What a
/// test sets up in its place writes a PDF.
using PrinterChoice = std::function<bool(QPrinter& printer, QWidget& owner, forms::Language words)>;

/// Asks in the dialog of the system; on Windows without a printer for the name of a PDF file.
bool AskForPrinter(QPrinter& printer, QWidget& owner, forms::Language words);

/// A text in columns: no line is broken, so the letters are as small as the longest line makes them; lines that would
/// be too small on a standing page lie. Each page has the title and its number on top. A box tells of a copy that could
/// not be made.
void PrintColumns(const QString& text, const QFont& font, const QString& title, QWidget& owner, forms::Language words,
                  const PrinterChoice& choose);

/// A document with headings and pictures. Failures are told as above.
void PrintDocument(const QTextDocument& document, QWidget& owner, forms::Language words, const PrinterChoice& choose);

}  // namespace zirvo::widgets
