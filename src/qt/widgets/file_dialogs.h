// The dialogs for files and folders. Caller: the desktop.
#pragma once
#include <QWidget>
#include <optional>
#include <string>

#include "forms/desktop.h"

namespace zirvo::widgets {

enum class FilePurpose { Open, Save };

/// The full path that the user chose (UTF-8), or nothing. Leaves the current folder alone. Saving asks no question
/// about an existing file and adds no suffix.
std::optional<std::string> AskForFile(const forms::FileDialog& dialog, FilePurpose purpose, QWidget* owner);

/// A folder; starts at `start` if that exists, else at home.
std::optional<std::string> AskForFolder(const std::string& title, const std::string& start, forms::Language words,
                                        QWidget* owner);

}  // namespace zirvo::widgets
