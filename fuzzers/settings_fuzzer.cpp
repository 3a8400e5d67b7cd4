// The settings file: read or a fault of those told; what is read is saved and loaded as the same.
#include <optional>
#include <string>

#include "platform/code_page.h"
#include "shell/settings.h"
#include "support/fuzzing.h"
#include "support/work_folder.h"

namespace zirvo::fuzz {
namespace {

/// Whether the folder's line is read as it was written. A line that begins with a quote or a blank, or ends with a
/// blank, or holds a line end, is not; no folder that the program takes up by itself has such a name.
bool KeepsItsLine(const std::string& folder) {
    const bool bare = folder.empty() || (folder.front() != ' ' && folder.front() != '\t' && folder.front() != '"' &&
                                         folder.back() != ' ' && folder.back() != '\t');
    return bare && folder.find_first_of("\r\n") == std::string::npos && DecodeName(EncodeName(folder)) == folder;
}

}  // namespace

const int LongestRun = 1;

void RunInput(std::string_view bytes) {
    EmptyWorkFolder();
    const std::string name(SettingsFileName);
    PutFile(name, bytes);
    std::optional<Settings> settings;
    const std::optional<int> fault = FaultOf([&] { settings = LoadSettings(WorkFolder()); });
    RequireEqual(BytesOf(name).value_or("gone"), bytes, "reading leaves the file as it is");
    if (fault) {
        // Too short, no number, beyond 16 bits, a folder of a megabyte.
        Require(*fault == fault::InputPastEnd || *fault == fault::TypeMismatch || *fault == fault::Overflow ||
                    *fault == fault::InvalidCall,
                "a settings file that does not read is one of the faults told");
        return;
    }
    Require(settings.has_value(), "a file that is there is read");
    static_cast<void>(IsGoodFolder(settings->WorkFolder));
    SaveSettings(settings->WorkFolder, settings->UnitSystem, settings->Objective, WorkFolder());
    Require(AllFiles().size() == 1, "saving leaves no other file");
    if (KeepsItsLine(settings->WorkFolder)) {
        Require(LoadSettings(WorkFolder()) == settings, "what was read is saved and loaded as the same");
    }
}

}  // namespace zirvo::fuzz
