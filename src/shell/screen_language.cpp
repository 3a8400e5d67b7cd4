// Language and help of a screen, see screen_language.h.
#include "shell/screen_language.h"

#include "dialogs/common_dialog.h"
#include "forms/application.h"
#include "shell/form1.h"

namespace zirvo {

Int16 LanguageBaseOf(forms::Application& application) {
    const Form1& first = application.Get<Form1>();
    return ChooseLanguageBase(first.Option1.Value, first.Option2.Value);
}

void OpenHelp(forms::Form& owner, const std::string& programFolder) {
    const char* const file = owner.App().Get<Form1>().Option1.Value ? "ZIRVO1.HLP" : "ZIRVO2.HLP";
    ShowHelpFile(owner, JoinPath(programFolder, file), help_command::Finder);
}

}  // namespace zirvo
