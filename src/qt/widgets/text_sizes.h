// The size of all texts of the screens, as the user has asked for it and as it is remembered from one start to the
// next. Caller: the desktop.
#pragma once
#include <QKeyEvent>
#include <QString>
#include <optional>

namespace zirvo::widgets {

enum class TextStep { Larger, Smaller, AsTold };

/// What a stroke with Ctrl asks for: +, = (the same key without Shift), -, 0.
std::optional<TextStep> TextStepOf(const QKeyEvent& event);

class TextSizes {
public:
    /// Begins with what the file remembers. Where it cannot be read the texts are as told, where it cannot be written
    /// they are so again at the next start.
    explicit TextSizes(QString file = SettingsFile());

    /// 1 is as told.
    double Scale() const;
    /// To the next size, and remembers it. False at the largest and at the smallest.
    bool Take(TextStep step);

    /// "zirvo/screens.ini" among the user's settings ("ZIRVO/screens.ini" on Windows): the settings file beside the
    /// program holds what it has always held.
    static QString SettingsFile();

private:
    QString file_;
    std::size_t size_;
};

}  // namespace zirvo::widgets
