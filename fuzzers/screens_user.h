// A user of bytes: each act takes some of them. Caller: the fuzzer of the screens.
#pragma once
#include <string>

#include "screens_program.h"
#include "support/byte_source.h"

namespace zirvo::fuzz {

class RandomUser {
public:
    RandomUser(ByteSource& source, ScreensProgram& program, const ProgramFolders& folders)
        : source_(source), program_(program), folders_(folders) {}

    /// One act: on the screen in front, on the clipboard, on the files that lie there, or time goes by.
    void Act();

private:
    forms::Form* Screen();
    void ClickSomething(forms::Form& form, bool usableOnly);
    void ClickOn(forms::Control& control);
    void ClickInGrid(forms::MSFlexGrid& grid);
    void ClickOnBar(forms::VScrollBar& bar);
    void Strike(forms::Form& form);
    void TypeSomething(forms::Form& form);
    void Edit(forms::Form& form);
    void Drop(forms::Form& form);
    void ChangeFiles();
    std::string SomeText();

    ByteSource& source_;
    ScreensProgram& program_;
    const ProgramFolders& folders_;
};

}  // namespace zirvo::fuzz
