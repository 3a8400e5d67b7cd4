// Labels and frames: what shows a text and takes no focus.
#pragma once
#include <QGroupBox>
#include <QLabel>
#include <QPaintEvent>

#include "forms/simple_controls.h"
#include "qt/widgets/control_binding.h"

namespace zirvo::widgets {

/// Colours of the screens as Qt has them; DefaultColor is the palette's.
QColor ToQt(forms::ScreenColor color, const QColor& standard);

/// Plain text, wrapped to the width: one line in the middle of the box's height, several from its upper edge. One with
/// a colour behind it looks like a field.
class LabelBinding final : public ControlBinding {
public:
    LabelBinding(forms::Label& label, QWidget& parent);

protected:
    void ShowState() override;
    std::optional<TextInBox> TextToFit() const override;

private:
    void ShowAsTextField();
    bool LooksLikeField() const;
    bool IsOneLine() const;

    forms::Label& label_;
    QLabel& shown_;
};

/// A line around a group with the title in its upper edge. What stands in it counts from its outer corner.
class FrameBox final : public QGroupBox {
public:
    explicit FrameBox(QWidget& parent) : QGroupBox(&parent) {}
    void SetCaption(const QString& caption);
    /// Pixels between either side and the title.
    static constexpr int TitleIndent = 8;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString caption_;
};

class FrameBinding final : public ControlBinding {
public:
    FrameBinding(forms::Frame& frame, QWidget& parent);

protected:
    void ShowState() override;
    std::optional<TextInBox> TextToFit() const override;

private:
    forms::Frame& frame_;
    FrameBox& shown_;
};

}  // namespace zirvo::widgets
