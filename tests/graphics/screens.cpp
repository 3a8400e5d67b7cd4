// Shared means of the tests of the graphics screens, see screens.h.
#include "graphics/screens.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "pavement/graphics_example.h"
#include "text/number_text.h"

namespace zirvo::test {

void RecordedPicture::Present() {
    presented_ = surface_.Commands.size();
    if (OnPresent) {
        OnPresent();
    }
}

void RecordedPicture::SaveBitmap(const std::string& path) {
    if (SaveFault != 0) {
        throw RuntimeFault(SaveFault);
    }
    Saved.push_back(path);
}

void RecordedPicture::Save(const std::string& path, MapFileFormat format, const std::string& title,
                           const std::function<void(PlotSurface&)>& draw) {
    if (SaveFault != 0) {
        throw RuntimeFault(SaveFault);
    }
    Saved.push_back(path);
    SavedAs.emplace_back(format, title);
    RecordingSurface surface(surface_.Picture().PixelsWide, surface_.Picture().PixelsHigh);
    draw(surface);
    DrawnForFile = surface.Commands;
}

std::vector<PlotCommand> RecordedPicture::Drawn() const {
    const auto& all = surface_.Commands;
    const auto clear = std::find_if(all.rbegin(), all.rend(),
                                    [](const PlotCommand& command) { return command.What == PlotCommand::Kind::Cls; });
    return {clear.base(), all.end()};
}

std::vector<std::string> RecordedPicture::Texts() const {
    std::vector<std::string> texts;
    for (const PlotCommand& command : Drawn()) {
        if (command.What == PlotCommand::Kind::Print) {
            texts.push_back(command.Text);
        }
    }
    return texts;
}

Screens::Screens(const ScreenOptions& options) {
    App.Register("Form1", [](forms::Application& app) { return std::make_unique<Form1>(app); });
    App.Register("Form2", [this](forms::Application& app) { return std::make_unique<Form2>(app, Folder.Path()); });
    App.Register("Form5", [folder = options.ProgramFolder, kept = options.Kept](forms::Application& app) {
        auto form = std::make_unique<Form5>(app, folder);
        if (kept != nullptr) {
            form->KeepIn(*kept);
        }
        return form;
    });
    const auto makePicture = [this](forms::PictureBox& control) {
        auto picture = std::make_unique<RecordedPicture>(PixelsOfTwips(control.Width), PixelsOfTwips(control.Height));
        picture_ = picture.get();
        return picture;
    };
    App.Register("Form6", [makePicture, options](forms::Application& app) {
        return std::make_unique<Form6>(
            app, makePicture, options.ProgramFolder,
            options.Process != nullptr ? options.Process : std::shared_ptr<ProcessService>(MakeProcessService()));
    });
    App.Dispatch([&] {
        auto& form1 = App.Get<Form1>();
        (options.Base == JapaneseBase ? form1.Option1 : form1.Option2).Value = true;
        Settings().Label2.Caption = Folder.Path();
        if (options.Units != 0) {
            auto& form2 = Settings();
            (options.Units == 1 ? form2.Option1 : options.Units == 2 ? form2.Option2 : form2.Option3).Value = true;
        }
    });
    Desktop.Forget();
}

void Screens::EnterExample() {
    Enter(ExampleData());
}

void Screens::Enter(const GraphicsInputData& data) {
    Form5& form = Data();
    form.Option1.UserClick();
    App.Dispatch([&] {
        form.VScroll1.Value = data.LayerCount;
        form.VScroll2.Value = data.LoadCount;
        const auto fill = [](forms::MSFlexGrid& grid, int row, const std::vector<double>& values) {
            for (std::size_t i = 0; i < values.size(); ++i) {
                grid.SetTextMatrix(row, static_cast<int>(i) + 1, FormatNumberText(values[i]));
            }
        };
        for (int i = 1; i <= data.LayerCount; ++i) {
            const PavementLayer& layer = data.Layers[i];
            fill(form.MSFlexGrid1, i, {layer.Modulus, layer.PoissonRatio, layer.Thickness, layer.SlipRate});
        }
        for (int i = 1; i <= data.LoadCount; ++i) {
            const SurfaceLoad& load = data.Loads[i];
            fill(form.MSFlexGrid2, i,
                 {load.VerticalLoad, load.Radius, load.LoadX, load.LoadY, load.HorizontalLoad, load.AngleFromX});
        }
    });
}

void Screens::GoToMap() {
    Data().Command5.UserClick();
    Data().Command6.UserClick();
    Data().Command7.UserClick();
}

Form6& Screens::OpenMap(const GraphicsInputData& data) {
    ShowData();
    Enter(data);
    GoToMap();
    EXPECT_TRUE(Desktop.Boxes.empty()) << Desktop.Boxes.front().Text;
    Desktop.Forget();
    return Map();
}

Form6& Screens::OpenMap() {
    return OpenMap(ExampleData());
}

void Screens::Choose(int component, SectionKind kind, const std::string& position) {
    Form6& form = Map();
    form.Combo1.UserChoose(component - 1);
    (kind == SectionKind::XY ? form.Option3 : form.Option4).UserClick();
    forms::Type(form, position);
}

void Screens::Start() {
    Form6& form = Map();
    (form.Command1.Visible ? form.Command1 : form.Command10).UserClick();
}

std::vector<std::string> Screens::Boxes() const {
    std::vector<std::string> boxes;
    for (const forms::Message& box : Desktop.Boxes) {
        boxes.push_back(box.Title + "|" + forms::ScriptedDesktop::HeadOf(box.Text));
    }
    return boxes;
}

std::string English(Int16 k) {
    return std::string(GetMessage(EnglishBase, k));
}

std::string NamesOf(const forms::Form& form, const std::function<bool(const forms::Control&)>& passes) {
    std::string names;
    for (const forms::Control* control : form.Controls) {
        if (control->Index() > 0) {
            EXPECT_EQ(passes(*control), passes(*form.Controls.Find(control->Name(), 0))) << control->Name();
            continue;
        }
        if (passes(*control)) {
            names += (names.empty() ? "" : " ") + control->Name();
        }
    }
    return names;
}

std::string EnabledOf(const Form5& form) {
    return NamesOf(form, [](const forms::Control& control) {
        const std::string& name = control.Name();
        return control.TakesFocus() && control.Enabled && name != "Command3" && name != "Command8" &&
               name != "Command9" && !name.starts_with("tbFgEdit");
    });
}

}  // namespace zirvo::test
