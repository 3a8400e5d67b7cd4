// A form with one control of every kind, see shown_form.h.
#include "qt/widgets/shown_form.h"

namespace zirvo::widgets {

EveryKind::EveryKind(forms::Application& application) : Form(application, FormName) {
    Place();
    for (forms::Control* control : Controls) {
        const std::string name =
            control->Index() < 0 ? control->Name() : control->Name() + "(" + std::to_string(control->Index()) + ")";
        Record(*control, name);
    }
}

void EveryKind::Place() {
    Width = 600 * 15;
    Height = 480 * 15;
    Centered = true;
    Caption = "ZIRVO";
    HasCloseEntry = false;
    Label1.Move(150, 150, 1500, 300);
    Label1.Caption = "R&D value";
    Frame1.Move(150, 600, 3000, 1500);
    Frame1.Caption = "1. Units & more";
    Option1.Move(150, 300, 2400, 300);
    Option1.Caption = "kN & MPa";
    Option2.Move(150, 750, 2400, 300);
    Option2.Caption = "kgf";
    Text1.Move(1800, 150, 1500, 300);
    Combo1.Move(3600, 150, 1800, 315);
    Combo1.AddItem("EPSx");
    Combo1.AddItem("EPSz");
    for (int i = 0; i < 3; ++i) {
        Check1(i).Move(150, 2250 + 300 * i, 1500, 300);
        Check1(i).Caption = "CHECK " + std::to_string(i);
    }
    VScroll1.Move(3300, 600, 255, 900);
    VScroll1.Min = 100;
    VScroll1.Max = 0;
    VScroll1.Value = 0;
    MSFlexGrid1.Move(3750, 600, 4500, 1800);
    MSFlexGrid1.Cols = 5;
    MSFlexGrid1.Rows = 4;
    MSFlexGrid1.SetTextMatrix(1, 1, "12.5");
    Text9.MultiLine = true;
    Text9.Locked = true;
    Text9.Move(3750, 2700, 4500, 1500);
    Picture1.Move(150, 3300, 1500, 1500);
    Image1.Move(1800, 3300, 750, 750);
    Image1.Picture = "plane_xy";
    Command1.Move(3750, 4500, 1500, 450);
    Command1.Caption = "NEXT & ON";
    Command2.Move(5400, 4500, 1500, 450);
    Command2.Caption = "QUIT";
}

void EveryKind::Record(forms::Control& control, const std::string& name) {
    const auto note = [this, name](const char* event) { return [this, name, event] { Log.push_back(name + event); }; };
    control.GotFocus = note(" GotFocus");
    control.LostFocus = note(" LostFocus");
    control.KeyDown = [this, name](int& code) { Log.push_back(name + " KeyDown " + std::to_string(code)); };
    control.KeyPress = [this, name](int& code) { Log.push_back(name + " KeyPress " + std::to_string(code)); };
    if (auto* button = dynamic_cast<forms::CommandButton*>(&control)) {
        button->Click = note(" Click");
    } else if (auto* option = dynamic_cast<forms::OptionButton*>(&control)) {
        option->Click = note(" Click");
    } else if (auto* check = dynamic_cast<forms::CheckBox*>(&control)) {
        check->Click = note(" Click");
    } else if (auto* combo = dynamic_cast<forms::ComboBox*>(&control)) {
        combo->Click = note(" Click");
        combo->Change = note(" Change");
    } else if (auto* box = dynamic_cast<forms::TextBox*>(&control)) {
        box->Change = note(" Change");
    } else if (auto* label = dynamic_cast<forms::Label*>(&control)) {
        label->Change = note(" Change");
    } else if (auto* bar = dynamic_cast<forms::VScrollBar*>(&control)) {
        bar->Change = note(" Change");
    } else if (auto* grid = dynamic_cast<forms::MSFlexGrid*>(&control)) {
        grid->EnterCell = note(" EnterCell");
        grid->LeaveCell = note(" LeaveCell");
        grid->Scroll = note(" Scroll");
        grid->DblClick = note(" DblClick");
    } else if (auto* picture = dynamic_cast<forms::PictureBox*>(&control)) {
        picture->MouseDown = [this, name](int pressed, int x, int y) {
            Log.push_back(name + " MouseDown " + std::to_string(pressed) + " " + std::to_string(x) + " " +
                          std::to_string(y));
        };
    }
}

void EveryKind::Form_QueryUnload(bool& cancel, forms::UnloadMode mode) {
    Log.push_back(std::string("QueryUnload ") + (mode == forms::UnloadMode::ControlMenu ? "menu" : "code"));
    cancel = Cancel;
}

ShownForm::ShownForm() {
    application_.Register(EveryKind::FormName,
                          [](forms::Application& owner) { return std::make_unique<EveryKind>(owner); });
    application_.Show(EveryKind::FormName);
    if (!QTest::qWaitForWindowActive(&Window())) {
        ADD_FAILURE() << "the window does not come to the front";
    }
    Form().Log.clear();
}

ShownForm::~ShownForm() {
    desktop_.ReleaseForms();
    Settle();  // a window that is still going would be taken for the next test's
}

QWidget& ShownForm::Window() const {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == QLatin1String(EveryKind::FormName)) {
            return *widget;
        }
    }
    throw std::runtime_error("no window");
}

QString ShownForm::QtFocus() const {
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? QString() : focus->objectName();
}

void ShownForm::Strike(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(Window().windowHandle(), key, modifiers);
}

void ShownForm::Type(const char* text) {
    for (const char* c = text; *c != '\0'; ++c) {
        QTest::keyClick(Window().windowHandle(), *c);
    }
}

void ShownForm::Click(const char* name) {
    QWidget& widget = Find(name);
    ClickAt(widget, {std::min(widget.width() / 2, 12), widget.height() / 2});
}

void ShownForm::ClickAt(QWidget& widget, QPoint at) {
    QTest::mouseClick(Window().windowHandle(), Qt::LeftButton, {}, widget.mapTo(&Window(), at));
}

void ShownForm::Settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace zirvo::widgets
