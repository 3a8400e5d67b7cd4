// Combo boxes: a line to edit with a list under it. What stands in both is the model's.
#pragma once
#include <QComboBox>
#include <QWheelEvent>
#include <functional>

#include "forms/combo_box.h"
#include "qt/widgets/control_binding.h"
#include "qt/widgets/text_line.h"

namespace zirvo::widgets {

/// Tells when its list opens and closes.
class ListCombo final : public QComboBox {
public:
    explicit ListCombo(QWidget& parent);
    TextLine& Line() const { return *line_; }

    void showPopup() override;
    void hidePopup() override;
    std::function<void(bool)> Opened;

private:
    TextLine* line_;
};

class ComboBinding final : public ControlBinding {
public:
    ComboBinding(forms::ComboBox& combo, QWidget& parent);
    bool EditsText() const override { return true; }
    bool Commit(const QString& text) override;

protected:
    void ShowState() override;
    std::optional<TextInBox> TextToFit() const override;
    /// Keys while the list is open: it moves in itself, everything else is for the box.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool ListKey(QKeyEvent& event);
    void Edit();

    forms::ComboBox& combo_;
    ListCombo& shown_;
};

}  // namespace zirvo::widgets
