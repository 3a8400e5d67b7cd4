// Files that are dragged from other programs, see dropped_file.h.
#include "qt/widgets/dropped_file.h"

#include <QDir>
#include <QUrl>

namespace zirvo::widgets {

std::optional<std::string> FileOf(const QMimeData& dragged) {
    const QList<QUrl> urls = dragged.urls();
    if (urls.size() != 1 || !urls.constFirst().isLocalFile()) {
        return std::nullopt;
    }
    return QDir::toNativeSeparators(urls.constFirst().toLocalFile()).toStdString();
}

}  // namespace zirvo::widgets
