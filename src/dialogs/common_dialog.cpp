// The dialogs, see common_dialog.h.
#include "dialogs/common_dialog.h"

#include <algorithm>

#include "base/runtime_fault.h"
#include "platform/fault_subject.h"
#include "platform/files.h"

namespace zirvo {
namespace {

constexpr std::string_view OldHelpEnding = ".HLP";

char UpperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool EndsLikeOldHelp(std::string_view file) {
    return file.size() >= OldHelpEnding.size() &&
           std::equal(OldHelpEnding.begin(), OldHelpEnding.end(), file.end() - OldHelpEnding.size(),
                      [](char ending, char c) { return ending == UpperCase(c); });
}

/// The page that stands for a help file.
std::string HelpPage(std::string file) {
    if (EndsLikeOldHelp(file)) {
        file.replace(file.size() - OldHelpEnding.size(), OldHelpEnding.size(), ".html");
    }
    return file;
}

bool IsFile(const std::string& path) {
    try {
        return !AttributesOf(path).Directory;
    } catch (const RuntimeFault&) {
        return false;
    }
}

}  // namespace

forms::FileDialog cCommonDialog::Request() {
    flags &= ~dialog_flag::Template;  // there is no instance that a template could come from
    if (FilterIndex == 0) {
        FilterIndex = 1;
    }
    std::string filter = Filter;
    std::replace(filter.begin(), filter.end(), ':', '|');
    return {.Owner = &owner_,
            .Title = DialogTitle,
            .Folder = InitDir,
            .Filter = std::move(filter),
            .FilterIndex = FilterIndex,
            .StartName = Filename,
            .FileMustExist = (flags & dialog_flag::FileMustExist) != 0,
            .PathMustExist = (flags & dialog_flag::PathMustExist) != 0,
            .Words = Words};
}

bool cCommonDialog::Take(const std::optional<std::string>& path) {
    if (!path) {
        if (CancelError) {
            throw RuntimeFault(fault::DialogCancelled, "User selected cancel.");
        }
        return false;
    }
    Filename = *path;
    FileTitle = FileNameOf(*path);
    return true;
}

void cCommonDialog::ShowOpen() {
    if (Take(owner_.World().Open(Request()))) {
        flags &= ~dialog_flag::ReadOnly;
        ChangeFolder(FolderOf(Filename));
    }
}

void cCommonDialog::ShowSave() {
    forms::FileDialog request = Request();
    request.FileMustExist = false;  // what is saved need not be there yet
    Take(owner_.World().Save(request));
}

void cCommonDialog::ShowHelp() {
    if (HelpCommand == help_command::MultiKey || HelpCommand == help_command::SetWinPos) {
        throw RuntimeFault(fault::InvalidHelpCommand, "Invalid WinHelp Command Passed to ShowHelp function.");
    }
    const std::string page = HelpPage(HelpFile);
    if (!IsFile(page) || !owner_.World().ShowHelp(owner_, page)) {
        RaiseFileFault(fault::FileNotFound, page);
    }
}

namespace {

/// Runs one Show method; false if the user cancelled.
template <class Show>
bool Chosen(Show show) {
    try {
        show();
        return true;
    } catch (const RuntimeFault& failure) {
        if (failure.Number() != fault::DialogCancelled) {
            throw;
        }
        return false;
    }
}

cCommonDialog FileDialogOf(forms::Form& owner, const std::string& title, const std::string& folder,
                           const std::string& filter, int index, forms::Language words) {
    cCommonDialog dialog(owner);
    dialog.CancelError = true;
    dialog.DialogTitle = title;
    dialog.flags = dialog_flag::PathMustExist | dialog_flag::FileMustExist;
    dialog.InitDir = folder;
    dialog.Filter = filter;
    dialog.FilterIndex = index;
    dialog.Words = words;
    return dialog;
}

}  // namespace

std::optional<std::string> OpenFileDialog(forms::Form& owner, const std::string& title, const std::string& folder,
                                          const std::string& filter, int index, forms::Language words) {
    cCommonDialog dialog = FileDialogOf(owner, title, folder, filter, index, words);
    return Chosen([&] { dialog.ShowOpen(); }) ? std::optional(dialog.FileTitle) : std::nullopt;
}

std::string TakeFile(const std::string& path) {
    ChangeFolder(FolderOf(path));
    return FileNameOf(path);
}

std::optional<std::string> SaveFileDialog(forms::Form& owner, const std::string& title, const std::string& folder,
                                          const std::string& filter, int index, const std::string& startName,
                                          forms::Language words) {
    cCommonDialog dialog = FileDialogOf(owner, title, folder, filter, index, words);
    dialog.Filename = startName;
    return Chosen([&] { dialog.ShowSave(); }) ? std::optional(dialog.Filename) : std::nullopt;
}

void ShowHelpFile(forms::Form& owner, const std::string& file, int command) {
    cCommonDialog dialog(owner);
    dialog.HelpFile = file;
    dialog.HelpCommand = command;
    dialog.ShowHelp();
}

std::optional<std::string> ChooseFolderDialog(forms::Form& owner, const std::string& title, const std::string& start,
                                              forms::Language words) {
    return owner.World().ChooseFolder(owner, title, start, words);
}

}  // namespace zirvo
