// The language of a screen, worked out from the option buttons of the language screen, and the help in it.
// Callers: Form_Load and HELP of every screen behind the first.
#pragma once
#include <string>

#include "base/int16.h"
#include "forms/form.h"
#include "platform/files.h"
#include "text/catalogue.h"

namespace zirvo {

/// What ChooseLanguageBase makes of the option buttons of Form1.
Int16 LanguageBaseOf(forms::Application& application);

/// The language of words that are no messages: those on the buttons of boxes and in the system's dialogs.
inline forms::Language LanguageOf(Int16 languageBase) {
    return languageBase == JapaneseBase ? forms::Language::Japanese : forms::Language::English;
}

/// HELP: the manual in the language of Form1, beside the program. Fault 53 where it is missing.
void OpenHelp(forms::Form& owner, const std::string& programFolder = ProgramFolder());

}  // namespace zirvo
