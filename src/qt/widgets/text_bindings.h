// Text boxes: one line to edit, and pages to read.
#pragma once
#include <QPlainTextEdit>
#include <string>

#include "forms/text_box.h"
#include "qt/widgets/control_binding.h"
#include "qt/widgets/text_line.h"

namespace zirvo::widgets {

class TextBinding final : public ControlBinding {
public:
    TextBinding(forms::TextBox& box, QWidget& parent);
    bool EditsText() const override { return true; }
    bool Commit(const QString& text) override;

protected:
    void ShowState() override;
    std::optional<TextInBox> TextToFit() const override;

private:
    forms::TextBox& box_;
    TextLine& shown_;
};

/// Many lines, not wrapped, with both scroll bars. The user reads, selects and copies; what he may edit is set by
/// Locked.
class PageBinding final : public ControlBinding {
public:
    PageBinding(forms::TextBox& box, QWidget& parent);
    bool EditsText() const override { return true; }
    bool TakesWheel() const override { return true; }
    bool Commit(const QString& text) override;

protected:
    void ShowState() override;

private:
    forms::TextBox& box_;
    QPlainTextEdit& shown_;
    std::string shownText_;
};

}  // namespace zirvo::widgets
