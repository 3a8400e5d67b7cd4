// The screens of the graphics path on a scripted desktop: a folder of the user's, the settings behind them, a picture
// that records what is drawn.
#pragma once
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/runtime_fault.h"
#include "contour/recording_surface.h"
#include "forms/application.h"
#include "forms/screen_helpers.h"
#include "forms/scripted_desktop.h"
#include "graphics/form5.h"
#include "graphics/form6.h"
#include "kept/kept_store.h"
#include "pavement/support.h"
#include "shell/form1.h"
#include "shell/form2.h"
#include "text/catalogue.h"

namespace zirvo::test {

/// A desktop whose save dialog can fail with a number of its own.
class FailingDesktop : public forms::ScriptedDesktop {
public:
    std::optional<RuntimeFault> SaveFailure;

    std::optional<std::string> Save(const forms::FileDialog& dialog) override {
        if (SaveFailure) {
            throw *SaveFailure;
        }
        return ScriptedDesktop::Save(dialog);
    }
};

/// Records what is drawn and where it was saved.
class RecordedPicture : public MapPicture {
public:
    RecordedPicture(int pixelsWide, int pixelsHigh) : surface_(pixelsWide, pixelsHigh) {}

    PlotSurface& Surface() override { return surface_; }
    void Present() override;
    void SaveBitmap(const std::string& path) override;
    void Save(const std::string& path, MapFileFormat format, const std::string& title,
              const std::function<void(PlotSurface&)>& draw) override;
    void Copy() override { ++Copies; }

    /// What has been drawn since the last clear.
    std::vector<PlotCommand> Drawn() const;
    /// The texts among it.
    std::vector<std::string> Texts() const;
    bool IsClear() const { return Drawn().empty(); }
    /// Whether all that was drawn has been brought before the user.
    bool IsPresented() const { return presented_ == surface_.Commands.size(); }

    std::vector<std::string> Saved;
    /// Format and title of the pictures that were saved as something else than a bitmap, and what was drawn for the
    /// last of them.
    std::vector<std::pair<MapFileFormat, std::string>> SavedAs;
    std::vector<PlotCommand> DrawnForFile;
    int Copies = 0;
    int SaveFault = 0;  ///< 0: it succeeds
    /// Called when something has been drawn, before the handler goes on.
    std::function<void()> OnPresent;

private:
    RecordingSurface surface_;
    std::size_t presented_ = 0;
};

struct ScreenOptions {
    Int16 Base = EnglishBase;
    int Units = 1;  ///< 0: none of the three
    std::string ProgramFolder = ZIRVO_BIN;
    std::shared_ptr<ProcessService> Process = nullptr;  ///< nullptr: the operating system's own
    KeptStore* Kept = nullptr;                          ///< nullptr: nothing is kept
};

class Screens {
public:
    explicit Screens(const ScreenOptions& options = {});

    WorkFolder Folder;
    FailingDesktop Desktop;
    forms::Application App{Desktop};

    Form2& Settings() { return App.Get<Form2>(); }
    Form5& Data() { return App.Get<Form5>(); }
    Form6& Map() { return App.Get<Form6>(); }
    RecordedPicture& Picture() { return *picture_; }

    /// What NEXT of the settings does.
    void ShowData() { App.Show("Form5"); }
    /// The example of two layers and one load, typed into new data; the file has not been checked yet.
    void EnterExample();
    void Enter(const GraphicsInputData& data);
    /// DATA OK!, SAVE DATA, TO GRAPHICS.
    void GoToMap();
    /// The map screen over this pavement, from the start.
    Form6& OpenMap(const GraphicsInputData& data);
    Form6& OpenMap();

    /// The user's way to a map on the map screen: component, section, position, start.
    void Choose(int component, SectionKind kind, const std::string& position);
    void Start();

    /// Titles and texts of the boxes since the last Forget, "title|text".
    std::vector<std::string> Boxes() const;

private:
    RecordedPicture* picture_ = nullptr;
};

/// Message k in English.
std::string English(Int16 k);

/// The names of those controls of a form that pass the test, in the order of the form, with a blank between. Control
/// arrays count once, and must agree.
std::string NamesOf(const forms::Form& form, const std::function<bool(const forms::Control&)>& passes);

/// Names of all enabled controls of the data screen that a user can act on; PREVIOUS, HELP and QUIT are never disabled
/// and left out.
std::string EnabledOf(const Form5& form);

/// Ticks of the display items: "x-x--".
inline std::string Ticks(const Form6& form) {
    std::string ticks;
    for (int i = 0; i < Form6::DisplayItemCount; ++i) {
        ticks += form.Check1(i).Value ? 'x' : '-';
    }
    return ticks;
}

}  // namespace zirvo::test
