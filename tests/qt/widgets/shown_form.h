// A form with one control of every kind, on the screen, and the hands of a user: strokes go to the window, as from a
// keyboard, and clicks to the widget of a name.
#pragma once
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWindow>
#include <memory>
#include <string>
#include <vector>

#include "forms/application.h"
#include "forms/combo_box.h"
#include "forms/ms_flex_grid.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "qt/widgets/qt_desktop.h"

namespace zirvo::widgets {

class EveryKind : public forms::Form {
public:
    static constexpr const char* FormName = "Form9";
    explicit EveryKind(forms::Application& application);

    forms::Label Label1{*this, "Label1"};
    forms::Frame Frame1{*this, "Frame1"};
    forms::OptionButton Option1{*this, "Option1", &Frame1};
    forms::OptionButton Option2{*this, "Option2", &Frame1};
    forms::TextBox Text1{*this, "Text1"};
    forms::ComboBox Combo1{*this, "Combo1"};
    forms::ControlArray<forms::CheckBox> Check1{*this, "Check1", 3};
    forms::VScrollBar VScroll1{*this, "VScroll1"};
    forms::MSFlexGrid MSFlexGrid1{*this, "MSFlexGrid1"};
    forms::TextBox Text9{*this, "Text9"};
    forms::PictureBox Picture1{*this, "Picture1"};
    forms::Image Image1{*this, "Image1"};
    forms::CommandButton Command1{*this, "Command1"};
    forms::CommandButton Command2{*this, "Command2"};

    /// What has been raised, in order: "Command1 Click", "Text1 KeyDown 53".
    std::vector<std::string> Log;
    bool Cancel = false;
    std::string Takes;  ///< the one file that can be dropped here
    bool TakesFile(const std::string& path) const override { return !Takes.empty() && path == Takes; }
    void UserDrop(const std::string& path) override { Log.push_back("drop " + path); }
    void Form_QueryUnload(bool& cancel, forms::UnloadMode mode) override;

private:
    void Place();
    void Record(forms::Control& control, const std::string& name);
};

class ShownForm : public testing::Test {
protected:
    ShownForm();
    ~ShownForm() override;

    EveryKind& Form() { return application_.Get<EveryKind>(); }
    QWidget& Window() const;
    template <class Widget = QWidget>
    Widget& Find(const char* name) const {
        auto* widget = Window().findChild<Widget*>(QString::fromUtf8(name));
        if (widget == nullptr) {
            throw std::runtime_error(std::string("no widget ") + name);
        }
        return *widget;
    }
    /// The widget that would get a key.
    QString QtFocus() const;

    void Strike(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void Type(const char* text);
    void Click(const char* name);
    void ClickAt(QWidget& widget, QPoint at);

    /// Runs what waits in Qt, so that nothing is left that a later moment would bring.
    static void Settle();

    QtDesktop desktop_;
    forms::Application application_{desktop_};
};

using Events = std::vector<std::string>;

}  // namespace zirvo::widgets
