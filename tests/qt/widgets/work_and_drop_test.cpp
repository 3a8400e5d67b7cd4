// Work that takes its time, and files that are dropped on a screen.
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include "qt/widgets/shown_form.h"
#include "qt/widgets/work_shown.h"

namespace zirvo::widgets {
namespace {

bool Waits() {
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor != nullptr && cursor->shape() == Qt::WaitCursor;
}

class WorkInSight : public ShownForm {
protected:
    qint64 now_ = 1000;  // ms
    WorkShown work_{[this] { return now_; }};
    const QWidget* Bar() const { return Window().findChild<QWidget*>("WorkBar"); }
};

TEST_F(WorkInSight, HasTheWaitCursorUntilItsOutermostEnd) {
    EXPECT_FALSE(Waits());
    work_.Begin();
    EXPECT_TRUE(Waits());
    work_.Begin();
    work_.End();
    EXPECT_TRUE(Waits());
    work_.End();
    EXPECT_FALSE(Waits());
}

TEST_F(WorkInSight, ShowsABarBehindTwoSeconds) {
    work_.Begin();
    now_ += 1999;
    work_.GoOn(&Window(), 0.1);
    EXPECT_EQ(Bar(), nullptr);
    now_ += 1;
    work_.GoOn(&Window(), 0.25);
    ASSERT_NE(Bar(), nullptr);
    EXPECT_TRUE(Bar()->isVisible());
    EXPECT_EQ(Bar()->accessibleName(), "25 %");
    work_.GoOn(&Window(), 0.5);
    EXPECT_EQ(Bar()->accessibleName(), "50 %");
    work_.End();
    EXPECT_EQ(Bar(), nullptr);
}

TEST_F(WorkInSight, CountsTheSecondsWhereNobodyKnowsHowMuchIsDone) {
    work_.Begin();
    now_ += 12345;
    work_.GoOn(&Window(), -1);
    ASSERT_NE(Bar(), nullptr);
    EXPECT_EQ(Bar()->accessibleName(), "12 s");
    now_ += 1000;
    work_.GoOn(&Window(), -1);
    EXPECT_EQ(Bar()->accessibleName(), "13 s");
}

TEST_F(WorkInSight, IsNotCountedWhileTheUserIsAsked) {
    work_.Begin();
    now_ += 5000;
    {
        const WorkShown::Pause pause(work_);
        EXPECT_FALSE(Waits());
        now_ += 60000;
    }
    EXPECT_TRUE(Waits());
    now_ += 1999;
    work_.GoOn(&Window(), 0.1);
    EXPECT_EQ(Bar(), nullptr);
    work_.End();
    EXPECT_FALSE(Waits());
}

/// Counts what is painted.
class PaintCounter final : public QObject {
public:
    int Paints = 0;
    bool eventFilter(QObject* watched, QEvent* event) override {
        Q_UNUSED(watched)
        Paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

TEST_F(WorkInSight, PaintsTheBarAloneAndTakesNoInput) {
    Settle();
    PaintCounter label;
    Find("Label1").installEventFilter(&label);
    work_.Begin();
    now_ += 3000;
    QCoreApplication::postEvent(&Window(), new QKeyEvent(QEvent::KeyPress, Qt::Key_5, {}, "5"));
    Form().Log.clear();
    work_.GoOn(&Window(), 0.5);
    work_.GoOn(&Window(), 0.6);
    EXPECT_EQ(Form().Log, Events{});
    EXPECT_EQ(label.Paints, 0);
    work_.End();
    Find("Label1").removeEventFilter(&label);
}

TEST_F(WorkInSight, IsWhateverAButtonStarts) {
    bool during = false;
    Form().Command1.Click = [&] { during = Waits(); };
    Click("Command1");
    EXPECT_TRUE(during);
    EXPECT_FALSE(Waits());
}

class Drops : public ShownForm {
protected:
    static std::unique_ptr<QMimeData> Dragged(const QStringList& files) {
        auto data = std::make_unique<QMimeData>();
        QList<QUrl> urls;
        for (const QString& file : files) {
            urls.append(file.startsWith("http") ? QUrl(file) : QUrl::fromLocalFile(file));
        }
        data->setUrls(urls);
        return data;
    }
    bool EnterAccepted(const QStringList& files) {
        const auto data = Dragged(files);
        QDragEnterEvent event(QPoint(50, 50), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(&Window(), &event);
        return event.isAccepted();
    }
    /// As from another program: it comes over the window first, and Qt drops nothing where that was refused.
    void Drop(const QStringList& files) {
        EnterAccepted(files);
        const auto data = Dragged(files);
        QDropEvent event(QPointF(50, 50), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&Window(), &event);
        Settle();
    }
};

TEST_F(Drops, AreTakenOnlyWhereTheFormTakesTheFile) {
    EXPECT_FALSE(EnterAccepted({"/data/road.eva"}));
    Form().Takes = "/data/road.eva";
    EXPECT_TRUE(EnterAccepted({"/data/road.eva"}));
    EXPECT_FALSE(EnterAccepted({"/data/other.eva"}));
    EXPECT_FALSE(EnterAccepted({"/data/road.eva", "/data/road.eva"}));
    EXPECT_FALSE(EnterAccepted({"http://host/data/road.eva"}));
    EXPECT_FALSE(EnterAccepted({}));
}

TEST_F(Drops, GoToTheFormBehindTheEventOfTheDrop) {
    Form().Takes = "/data/道路.eva";
    Form().Log.clear();
    Drop({QString::fromUtf8("/data/道路.eva")});
    EXPECT_EQ(Form().Log, Events{"drop /data/道路.eva"});
    Drop({"/data/other.eva"});
    EXPECT_EQ(Form().Log.size(), 1U);
}

TEST_F(Drops, ComeToNothingWhileAHandlerRuns) {
    Form().Takes = "/data/road.eva";
    bool accepted = true;
    Form().Command1.Click = [&] { accepted = EnterAccepted({"/data/road.eva"}); };
    Click("Command1");
    EXPECT_FALSE(accepted);
}

}  // namespace
}  // namespace zirvo::widgets
