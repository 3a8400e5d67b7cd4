// What the user sees of work that takes its time: the wait cursor, and behind two seconds a bar. Caller: the desktop.
#pragma once
#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>

namespace zirvo::widgets {

/// A bar with a share of the work, or the seconds that have passed where nobody knows the share.
class WorkBar final : public QWidget {
public:
    explicit WorkBar(QWidget& window);
    /// @param done  0 to 1; negative: unknown
    void Show(double done, qint64 seconds);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
    double done_ = -1;
};

/// Nothing here runs Qt's loop: no input is taken and no screen painted but the bar itself, since the program hears of
/// nothing while it works.
class WorkShown {
public:
    using Clock = std::function<qint64()>;  ///< milliseconds, from anywhere

    explicit WorkShown(Clock now = SystemClock);
    ~WorkShown();
    WorkShown(const WorkShown&) = delete;
    WorkShown& operator=(const WorkShown&) = delete;

    void Begin();
    /// @param window  in whose middle the bar stands; none while nothing is on the screen
    void GoOn(QWidget* window, double done);
    void End();

    /// The user is asked something: the cursor is as always, and the time does not count.
    class Pause {
    public:
        explicit Pause(WorkShown& work);
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        WorkShown& work_;
    };

private:
    static qint64 SystemClock();
    void ShowCursor(bool waiting);

    Clock now_;
    int depth_ = 0;
    bool waiting_ = false;
    qint64 since_ = 0;
    QPointer<WorkBar> bar_;
};

}  // namespace zirvo::widgets
