// The second screen: folder, units and objective, remembered from run to run. Its controls are the store of these
// settings, so it stays loaded, hidden, behind the data screens.
#pragma once
#include <string>
#include <utility>

#include "base/int16.h"
#include "forms/application.h"
#include "forms/simple_controls.h"
#include "platform/files.h"

namespace zirvo {

class Form2 : public forms::Form {
public:
    static constexpr const char* FormName = "Form2";
    /// @param programFolder  where the settings file and the manual lie
    /// @param settingsFolder  where the settings file stands; "" is the program's folder
    explicit Form2(forms::Application& application, std::string programFolder = ProgramFolder(),
                   std::string settingsFolder = {});

    /// Comes up with this folder in place of that of the settings, as if SEARCH had chosen it. Before the load; a
    /// folder that is none changes nothing.
    void StartIn(std::string folder) { startFolder_ = std::move(folder); }

    forms::Label Label1{*this, "Label1"};
    forms::Frame Frame1{*this, "Frame1"};
    forms::Label Label2{*this, "Label2", &Frame1};              ///< the folder of the user's files
    forms::CommandButton Command1{*this, "Command1", &Frame1};  ///< SEARCH
    forms::Frame Frame2{*this, "Frame2"};
    forms::OptionButton Option1{*this, "Option1", &Frame2};  ///< unit system 1: kgf, kgf/cm2, cm throughout
    forms::OptionButton Option2{*this, "Option2", &Frame2};  ///< unit system 2: the same, results in MPa
    forms::OptionButton Option3{*this, "Option3", &Frame2};  ///< unit system 3: kN, MPa, cm
    forms::Frame Frame3{*this, "Frame3"};
    forms::OptionButton Option4{*this, "Option4", &Frame3};  ///< objective 1: analysis only
    forms::OptionButton Option5{*this, "Option5", &Frame3};  ///< objective 2: graphics
    forms::CommandButton Command2{*this, "Command2"};        ///< HELP
    forms::CommandButton Command3{*this, "Command3"};        ///< QUIT
    forms::CommandButton Command4{*this, "Command4"};        ///< NEXT

    /// The folder of the user's files, as NEXT last took it from Label2.
    std::string WorkFolder;

    /// The choices as the option buttons stand: 1 to 3, and 1 analysis only or 2 graphics; 0 where none is set.
    Int16 UnitSystem() const;
    Int16 Objective() const;

    void Form_Load() override;
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Unit_Click();       ///< Option1, Option2, Option3
    void Objective_Click();  ///< Option4, Option5

private:
    void Arrange();
    void RestoreOrClear();
    void StartEmpty();
    void SetCaptions();
    void TakeFolder(const std::string& folder);

    std::string programFolder_;
    std::string settingsFolder_;
    std::string startFolder_;
    Int16 languageBase_ = 0;
};

}  // namespace zirvo
