// Files that are dragged from other programs. Callers: the window of a form.
#pragma once
#include <QMimeData>
#include <optional>
#include <string>

namespace zirvo::widgets {

/// The one file that is dragged, with the separators of the system, as its dialogs give it; nothing for several, and
/// for what lies on no disk.
std::optional<std::string> FileOf(const QMimeData& dragged);

}  // namespace zirvo::widgets
