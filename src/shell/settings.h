// The settings file: what the second screen remembers from run to run.
// Callers: Form2, on its load and on NEXT.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "base/int16.h"
#include "platform/files.h"

namespace zirvo {

/// Stands in the folder of the program, or in the user's own.
inline constexpr std::string_view SettingsFileName = "zirvo_sv.ini";

struct Settings {
    std::string WorkFolder;
    Int16 UnitSystem = 0;  ///< 1 to 3; any other number as it stood in the file
    Int16 Objective = 0;   ///< 1 analysis only, 2 graphics; any other number as it stood in the file

    bool operator==(const Settings&) const = default;
};

/// Where the settings file is to stand: in the program's folder; in the user's own, which is made if need be, where the
/// program's may not be written (an installed program). The program's again where that fails too.
std::string SettingsFolder(const std::string& programFolder, const std::string& userFolder);

/// What the settings file holds; nothing where there is none. A file that is too short is fault 62, one whose second or
/// third field is no integer is fault 13 (a folder with a comma and no quotes makes it so: its field ends there), one
/// that cannot be opened is fault 70 or 75.
std::optional<Settings> LoadSettings(const std::string& programFolder = ProgramFolder());

/// Whether a remembered folder is taken up: it ends in "\" or "/", which is taken for a root and not looked at, or
/// something is there. A folder that may not be written, and a file in its place, are as good.
bool IsGoodFolder(const std::string& folder);

/// Writes the file, replacing an earlier one whole; the folder stands as it is, and in quotes where
/// it holds a comma. Fault 61, 70, 75 or 76
/// where it cannot be written, and then the earlier file is as it was.
void SaveSettings(const std::string& folder, Int16 unitSystem, Int16 objective,
                  const std::string& programFolder = ProgramFolder());

}  // namespace zirvo
