// The open, save, folder and help dialogs of the screens.
// Callers: OPEN FILE, SAVE PICTURE, SEARCH and HELP.
#pragma once
#include <optional>
#include <string>

#include "forms/form.h"

namespace zirvo {

/// Bits of the flags of the open and save dialogs; all others change nothing here.
namespace dialog_flag {
inline constexpr int ReadOnly = 1;  ///< the box "read only", which no dialog here has: clear behind an open dialog
inline constexpr int Template = 64;
inline constexpr int PathMustExist = 2048;
inline constexpr int FileMustExist = 4096;
}  // namespace dialog_flag

/// Commands of the help call.
namespace help_command {
inline constexpr int Finder = 11;  ///< contents and index
inline constexpr int MultiKey = 513;
inline constexpr int SetWinPos = 515;
}  // namespace help_command

/// Numbers of the dialogs' own failures.
namespace fault {
inline constexpr int DialogCancelled = 20001;
inline constexpr int InvalidHelpCommand = 13705;
}  // namespace fault

/// One dialog: set the properties, call one Show method, read the result; a new instance for each dialog.
class cCommonDialog {
public:
    /// @param owner  the form whose window the dialog belongs to
    explicit cCommonDialog(forms::Form& owner) : owner_(owner) {}

    /// Whether a cancelled dialog is failure 20001; else the method simply returns.
    bool CancelError = false;
    std::string DialogTitle;
    /// Where the dialog starts.
    std::string InitDir;
    /// Description, bar, pattern, and so on; a colon parts as well as a bar.
    std::string Filter;
    /// From 1; 0 becomes 1.
    int FilterIndex = 1;
    /// See dialog_flag.
    int flags = 0;
    /// In: what the name box holds at first. Out: the chosen file with its folder; as it was after a cancel.
    std::string Filename;
    /// Out: the chosen file without its folder; as it was after a cancel.
    std::string FileTitle;
    std::string HelpFile;
    int HelpCommand = 0;
    /// Language of the dialog's own words.
    forms::Language Words = forms::Language::English;

    /// The current folder follows the chosen file (fault 76 where it has gone meanwhile).
    void ShowOpen();
    /// Leaves the current folder alone.
    void ShowSave();
    /// Opens HelpFile on its contents, whatever the command; 513 and 515 are failure 13705. The system has no viewer
    /// for ".HLP", so the page of the same name with ".html" is shown in its place; fault 53 where it is missing or
    /// cannot be shown.
    void ShowHelp();

private:
    forms::FileDialog Request();
    /// Takes over what the dialog gave. True if a file was chosen.
    bool Take(const std::optional<std::string>& path);

    forms::Form& owner_;
};

/// What the screens ask of the class, each in one call. `words` is the language of the dialog's own words.

/// The chosen file without its folder, the current folder moved to it; nothing if the user cancels. The path and the
/// file must exist.
std::optional<std::string> OpenFileDialog(forms::Form& owner, const std::string& title, const std::string& folder,
                                          const std::string& filter, int index, forms::Language words);

/// What an open dialog does with the file that is chosen in it, for one that came another way: the current folder is
/// moved to it; gives it without its folder.
std::string TakeFile(const std::string& path);

/// The file to save under, with its folder; nothing if the user cancels.
std::optional<std::string> SaveFileDialog(forms::Form& owner, const std::string& title, const std::string& folder,
                                          const std::string& filter, int index, const std::string& startName,
                                          forms::Language words);

/// See cCommonDialog::ShowHelp.
void ShowHelpFile(forms::Form& owner, const std::string& file, int command);

/// A folder of the file system, from the system's browser and not from the class; nothing if the user cancels. Starts
/// at `start` if that exists, else at home.
std::optional<std::string> ChooseFolderDialog(forms::Form& owner, const std::string& title, const std::string& start,
                                              forms::Language words);

}  // namespace zirvo
