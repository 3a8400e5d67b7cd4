// The map screen: a strain component, a plane through the pavement of Form5 and its position are chosen, the solver is
// run, and the user works on the map. One click of a start button leads from the section to the finished map, on one
// thread, one step inside the other.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/application.h"
#include "forms/combo_box.h"
#include "forms/form.h"
#include "forms/text_box.h"
#include "graphics/map_picture.h"
#include "graphics/section_plot.h"
#include "pavement/run_lock.h"
#include "platform/files.h"
#include "platform/process.h"

namespace zirvo {

class Form6 : public forms::Form {
public:
    static constexpr const char* FormName = "Form6";
    static constexpr int DisplayItemCount = 5;
    static constexpr Int16 BoxStamp = 3;  ///< the stamp that its boxes have for a title
    /// Data lines of a comma file above which the reader would stop with a message. It never does: the bound of its
    /// arrays (PointLimit) is a fault long before.
    static constexpr int DataLineLimit = 9000000;

    /// @param makePicture    makes what Picture1 shows
    /// @param programFolder  holds the solver and the help
    Form6(forms::Application& application, MapPictureFactory makePicture, std::string programFolder = ProgramFolder(),
          std::shared_ptr<ProcessService> process = MakeProcessService());

    forms::Frame Frame1{*this, "Frame1"};  // the component
    forms::ComboBox Combo1{*this, "Combo1", &Frame1};

    forms::Frame Frame5{*this, "Frame5"};  // the plane
    forms::OptionButton Option3{*this, "Option3", &Frame5};
    forms::OptionButton Option4{*this, "Option4", &Frame5};
    forms::OptionButton Option5{*this, "Option5", &Frame5};
    forms::Image Image1{*this, "Image1", &Frame5};
    forms::Image Image2{*this, "Image2", &Frame5};
    forms::Image Image3{*this, "Image3", &Frame5};

    forms::Label Label1{*this, "Label1"};  // depth of an X-Y section
    forms::TextBox Text1{*this, "Text1"};
    forms::CommandButton Command1{*this, "Command1"};
    forms::Label Label2{*this, "Label2"};  // Y of an X-Z section
    forms::TextBox Text2{*this, "Text2"};
    forms::CommandButton Command10{*this, "Command10"};

    forms::Frame Frame2{*this, "Frame2"};  // extent and value range
    forms::Label Label14{*this, "Label14", &Frame2};
    forms::Label Label15{*this, "Label15", &Frame2};
    forms::Label Label16{*this, "Label16", &Frame2};
    forms::Label Label17{*this, "Label17", &Frame2};
    forms::Label Label18{*this, "Label18", &Frame2};
    forms::Label Label19{*this, "Label19", &Frame2};
    forms::Label Label20{*this, "Label20", &Frame2};
    forms::Label Label21{*this, "Label21", &Frame2};
    forms::Label Label22{*this, "Label22", &Frame2};
    forms::TextBox Text3{*this, "Text3", &Frame2};
    forms::TextBox Text4{*this, "Text4", &Frame2};
    forms::CommandButton Command5{*this, "Command5"};  // RE-DRAW

    forms::Frame Frame3{*this, "Frame3"};  // display items
    forms::ControlArray<forms::CheckBox> Check1{*this, "Check1", DisplayItemCount, &Frame3};

    forms::CommandButton Command6{*this, "Command6"};  // opens and closes the panel
    forms::Frame Frame4{*this, "Frame4"};              // the panel of contour lines
    forms::Label Label23{*this, "Label23", &Frame4};
    forms::TextBox Text14{*this, "Text14", &Frame4};
    // The fixed text "(5 - 200)"; named Label5 beside Command5.
    forms::Label Label5{*this, "Label5", &Frame4};

    forms::CommandButton Command2{*this, "Command2"};  // PREVIOUS
    forms::CommandButton Command3{*this, "Command3"};  // HELP
    forms::CommandButton Command7{*this, "Command7"};  // SAVE PICTURE
    forms::CommandButton Command8{*this, "Command8"};  // CLEAR FORM
    forms::CommandButton Command9{*this, "Command9"};  // QUIT
    forms::Label Label24{*this, "Label24"};            // the note during a run
    forms::PictureBox Picture1{*this, "Picture1"};

    void Form_Load() override;
    void Combo1_Click();
    void Combo1_KeyPress(int& keyAscii);
    void Combo1_LostFocus();
    void Option3_Click();
    void Option4_Click();
    void Option5_Click();
    void Text1_Change();
    void Text2_Change();
    void Text3_Change();
    void Text4_Change();
    void Text14_Change();
    void Text3_KeyPress(int& keyAscii);
    void Text4_KeyPress(int& keyAscii);
    void Text3_KeyDown(int keyCode);
    void Text4_KeyDown(int keyCode);
    void Text14_KeyDown(int keyCode);
    void Check1_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void Command8_Click();
    void Command9_Click();
    void Command10_Click();
    /// @param x, y  pixels from the picture's upper left corner
    void Picture1_MouseDown(int button, int x, int y);

    // The steps of one run, each called by the one before.
    void RunSectionXY();
    void RunSectionXZ();
    void RunGraphicsSolver();
    void ConvertSectionXY();
    void ConvertSectionXZ();
    void ConvertAndLoad();
    void LoadSectionData(const Progress& progress);
    void DrawContourMap();
    /// The box of a comma file beyond DataLineLimit.
    void TellTooManyDataLines();

    Int16 LanguageBase = 0;  ///< own copy, taken on load
    /// The section and its data. The component is that of the list, also while the data are still of the other one.
    SectionPlot Plot;
    Int16 ContourLineCount = 20;
    bool ContourPanelOpen = false;
    bool DataReady = false;  ///< a data set stands, which the probe may read

private:
    void BindEvents();
    void LayOut();
    void SetCaptions();
    void MakePicture();

    void ClearPicture();
    void DropMap();
    void ResetItems();
    void EnableItems(bool enabled);
    void DisableRangeBoxes();
    void EmptyReadOuts();
    void ReturnToSectionChoice(bool sectionsEnabled);
    void ChooseSection(forms::TextBox& position, forms::CommandButton& start);
    void PositionChanged(forms::CommandButton& start);
    void SavePicture();
    void SavePictureAs(const std::string& path);
    void DrawAgain(PlotSurface& surface);
    void BindCopyKey();

    void ReadDefinition(SectionKind kind, const forms::TextBox& position);
    bool DecideLayer(const GraphicsInputData& model);
    bool PrepareRun(const GraphicsInputData& model);
    void OpenWaysOut();
    void RunSolverVisibly();

    DisplayItems Items() const;
    void MendLineCount();
    void EnableAfterDrawing();

    std::string Words(Int16 k) const;
    forms::Answer Tell(const std::string& text, const std::string& title, forms::Icon icon,
                       forms::Buttons choice = forms::Buttons::Ok) const;
    forms::Answer Tell(Int16 k, forms::Icon icon, forms::Buttons choice = forms::Buttons::Ok) const;
    /// Whether another program computes in the folder; then the user has been told, and nothing else has changed.
    bool TellIfBusy(const RunLock& folder) const;
    /// Whether another program has computed in the folder since this map was made; then the user has been told.
    bool TellIfReplaced() const;

    /// A click on the map, as it was marked.
    struct ProbeMark {
        float X = 0;
        float Y = 0;
        double Value = 0;
    };
    /// By what the picture was drawn: the boxes may say something else by now. The numbers of the map are in Plot.
    struct DrawnMap {
        DisplayItems Items;
        Int16 LineCount = 0;
        double ValueMin = 0;
        double ValueMax = 0;
        std::vector<ProbeMark> Marks;
    };

    MapPictureFactory makePicture_;
    std::string programFolder_;
    std::shared_ptr<ProcessService> process_;
    std::unique_ptr<MapPicture> picture_;
    std::optional<DrawnMap> drawn_;              ///< none while the picture is clear
    std::optional<std::int64_t> reportWritten_;  ///< when the report of the map was, see WrittenAt
    int component_ = -1;          ///< entry of the list that is in force, -1 after the load and CLEAR FORM
    bool tellingItems_ = false;   ///< the rule of the display items is setting boxes, and fires itself
    bool refused_ = false;        ///< the last start was refused, and no other act has led on since
    bool inputLeftOpen_ = false;  ///< a failed depth test has left "ZIRVO_SV.EVA" open on this screen
};

}  // namespace zirvo
