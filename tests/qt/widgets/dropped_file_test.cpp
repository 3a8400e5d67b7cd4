// What is dragged from a file manager, as it says it: a list of addresses; and the path that the screens hear of.
#include "qt/widgets/dropped_file.h"

#include <gtest/gtest.h>

#include <QUrl>

namespace zirvo::widgets {
namespace {

using File = std::optional<std::string>;

File Dragged(const QStringList& addresses) {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& address : addresses) {
        urls.append(QUrl(address));
    }
    data.setUrls(urls);
    return FileOf(data);
}

#ifdef _WIN32
// With drives and backslashes, as the dialogs of the system tell paths: a name beside the folder of the data is looked
// for by them.
TEST(DroppedFile, IsAPathOfTheSystem) {
    EXPECT_EQ(Dragged({"file:///C:/data/road.eva"}), File("C:\\data\\road.eva"));
    EXPECT_EQ(Dragged({"file:///d:/ZIRVO%20%E8%A9%A6%E9%A8%93/%E9%81%93%E8%B7%AF.ven"}),
              File("d:\\ZIRVO 試験\\道路.ven"));
    EXPECT_EQ(Dragged({"file:///C:/road.eva"}), File("C:\\road.eva"));
    EXPECT_EQ(Dragged({"file://server/share/a%23b/road.eva"}), File("\\\\server\\share\\a#b\\road.eva"));
}

// As Qt makes them of what the shell hands over.
TEST(DroppedFile, OfThePathsThatTheShellHandsOverIsThatPath) {
    for (const std::string path : {"C:\\data\\road.eva", "C:\\a#b %20?\\道路.ven", "\\\\server\\share\\road.eva"}) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
        EXPECT_EQ(FileOf(data), File(path));
    }
}
#else
TEST(DroppedFile, IsAPathOfTheSystem) {
    EXPECT_EQ(Dragged({"file:///home/me/road.eva"}), File("/home/me/road.eva"));
    EXPECT_EQ(Dragged({"file:///ZIRVO%20%E8%A9%A6%E9%A8%93/a%23b/%E9%81%93%E8%B7%AF.ven"}),
              File("/ZIRVO 試験/a#b/道路.ven"));
}
#endif

TEST(DroppedFile, IsNoneWhereSeveralAreDraggedOrWhatLiesOnNoDisk) {
    EXPECT_EQ(Dragged({}), std::nullopt);
    EXPECT_EQ(Dragged({"file:///C:/a.eva", "file:///C:/b.eva"}), std::nullopt);
    EXPECT_EQ(Dragged({"http://server/road.eva"}), std::nullopt);
    QMimeData words;
    words.setText("C:\\data\\road.eva");
    EXPECT_EQ(FileOf(words), std::nullopt);
}

}  // namespace
}  // namespace zirvo::widgets
