// Dialogs for files and folders, see file_dialogs.h. Qt's own on Linux, so that they are the same on every desktop;
// the system's on Windows.
#include "qt/widgets/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegularExpression>
#include <QSplitter>
#include <QTreeView>
#include <array>

#include "qt/widgets/control_binding.h"
#include "qt/widgets/dialog_words.h"
#include "qt/widgets/screen_fonts.h"

namespace zirvo::widgets {
namespace {

/// Keeps the dialog open where the system's own would: at a pattern in place of a name, at a folder that is not there.
class CarefulDialog final : public QFileDialog {
public:
    using QFileDialog::QFileDialog;
    bool PathMustExist = false;

    void accept() override {
        const auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        const QString typed = name == nullptr ? QString() : name->text();
        if (acceptMode() == QFileDialog::AcceptSave && typed.contains(QRegularExpression(QStringLiteral("[*?]")))) {
            return;
        }
        const QString folder = QFileInfo(QDir(directory()).absoluteFilePath(typed)).absolutePath();
        if (PathMustExist && !typed.isEmpty() && !QFileInfo(folder).isDir()) {
            QMessageBox::warning(this, windowTitle(),
                                 QFileDialog::tr("%1\nDirectory not found.\nPlease verify the correct directory name "
                                                 "was given.")
                                     .arg(folder));
            return;
        }
        QFileDialog::accept();
    }
};

/// "words|pattern|words|pattern" as Qt has it: "words (pattern)".
QStringList NameFilters(const std::string& filter) {
    const QStringList parts = ToQt(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns = QString(parts.at(i + 1)).replace(QLatin1Char(';'), QLatin1Char(' '));
        const QString inBrackets = QStringLiteral("(%1)").arg(patterns);
        filters.append(parts.at(i).endsWith(inBrackets) ? parts.at(i) : parts.at(i) + QLatin1Char(' ') + inBrackets);
    }
    return filters;
}

void UseOneLook(QFileDialog& dialog) {
    dialog.setWindowRole(dialog.objectName());
#ifndef Q_OS_WIN
    dialog.setOption(QFileDialog::DontUseNativeDialog);
#endif
    dialog.setFont(ScreenFont({}));
    dialog.resize(780, 480);
    if (const auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
        constexpr std::array widths{250, 80, 120, 150};  // name, size, kind, date
        for (std::size_t i = 0; i < widths.size(); ++i) {
            list->header()->resizeSection(static_cast<int>(i), widths[i]);
        }
    }
    if (auto* parts = dialog.findChild<QSplitter*>(QStringLiteral("splitter"))) {
        parts->setSizes({130, 620});
    }
    dialog.setWindowModality(Qt::ApplicationModal);
}

std::optional<std::string> Chosen(QFileDialog& dialog) {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return QDir::toNativeSeparators(dialog.selectedFiles().constFirst()).toStdString();
}

}  // namespace

std::optional<std::string> AskForFile(const forms::FileDialog& dialog, FilePurpose purpose, QWidget* owner) {
    const DialogWords words(dialog.Words);
    CarefulDialog box(owner);
    box.setObjectName(QStringLiteral("FileDialog"));
    UseOneLook(box);
    box.setWindowTitle(ToQt(dialog.Title));
    if (const QString folder = ToQt(dialog.Folder); QFileInfo(folder).isDir()) {
        box.setDirectory(folder);
    }
    const QStringList filters = NameFilters(dialog.Filter);
    box.setNameFilters(filters);
    if (dialog.FilterIndex >= 1 && dialog.FilterIndex <= filters.size()) {
        box.selectNameFilter(filters.at(dialog.FilterIndex - 1));
    }
    box.PathMustExist = dialog.PathMustExist;
    if (purpose == FilePurpose::Open) {
        box.setAcceptMode(QFileDialog::AcceptOpen);
        box.setFileMode(dialog.FileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    } else {
        box.setAcceptMode(QFileDialog::AcceptSave);
        box.setFileMode(QFileDialog::AnyFile);
        box.setOption(QFileDialog::DontConfirmOverwrite);
    }
    if (!dialog.StartName.empty()) {
        box.selectFile(ToQt(dialog.StartName));
    }
    return Chosen(box);
}

std::optional<std::string> AskForFolder(const std::string& title, const std::string& start, forms::Language words,
                                        QWidget* owner) {
    const DialogWords language(words);
    QFileDialog box(owner);
    box.setObjectName(QStringLiteral("FolderDialog"));
    UseOneLook(box);
    box.setWindowTitle(ToQt(title));
    box.setFileMode(QFileDialog::Directory);
    box.setOption(QFileDialog::ShowDirsOnly);
    const QString folder = ToQt(start);
    box.setDirectory(!folder.isEmpty() && QFileInfo(folder).isDir() ? folder : QDir::homePath());
    return Chosen(box);
}

}  // namespace zirvo::widgets
