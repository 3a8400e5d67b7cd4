// Another program in the tests of the real one: a small window from which a file is dragged away.
//
//     drag_source FILE NOTES X Y    X and Y: of the window's corner on the screen
//
// What happens is written to NOTES, a line each: "ready" when the window stands, "dragging", "accepted" when what lies
// under the mouse takes the file, "declined" when it does not (any more), at last "copied" or "refused".
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>
#include <QUrl>
#include <QWidget>
#include <fstream>

namespace {

class Source : public QWidget {
public:
    Source(QString file, std::string notes) : file_(std::move(file)), notes_(std::move(notes)) {}

    void Note(const char* what) { std::ofstream(notes_, std::ios::app) << what << "\n"; }

protected:
    void mouseMoveEvent(QMouseEvent* event) override {
        if ((event->buttons() & Qt::LeftButton) == 0 || dragging_) {
            return;
        }
        dragging_ = true;
        auto* drag = new QDrag(this);
        auto* carried = new QMimeData;
        carried->setUrls({QUrl::fromLocalFile(file_)});
        drag->setMimeData(carried);
        connect(drag, &QDrag::actionChanged, this,
                [this](Qt::DropAction action) { Note(action == Qt::CopyAction ? "accepted" : "declined"); });
        Note("dragging");
        Note(drag->exec(Qt::CopyAction) == Qt::CopyAction ? "copied" : "refused");
        dragging_ = false;
    }

private:
    QString file_;
    std::string notes_;
    bool dragging_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    const QApplication program(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 5) {
        return 2;
    }
    Source source(arguments[1], arguments[2].toStdString());
    source.setWindowFlags(Qt::Window | Qt::X11BypassWindowManagerHint);
    source.setGeometry(arguments[3].toInt(), arguments[4].toInt(), 60, 30);
    source.show();
    QTimer::singleShot(0, &source, [&source] { source.Note("ready"); });
    return QApplication::exec();
}
