// The settings file, see settings.h. Three lines: folder, unit system, objective.
#include "shell/settings.h"

#include <fstream>

#include "platform/code_page.h"
#include "platform/open_file.h"
#include "text/file_helpers.h"
#include "text/number_text.h"
#include "text/text_fields.h"

namespace zirvo {

std::optional<Settings> LoadSettings(const std::string& programFolder) {
    const std::string path = JoinPath(programFolder, SettingsFileName);
    if (!FileExists(path)) {
        return std::nullopt;
    }
    std::ifstream file = OpenForReading(path);
    TextStream stream(file);
    Settings settings;
    settings.WorkFolder = DecodeName(ReadTextFieldBytes(stream));
    settings.UnitSystem = ReadIntegerField(stream);
    settings.Objective = ReadIntegerField(stream);
    return settings;
}

bool IsGoodFolder(const std::string& folder) {
    // Whether it may be written would change nothing, so it is not asked.
    return folder.ends_with('\\') || folder.ends_with('/') || FileExists(folder);
}

void SaveSettings(const std::string& folder, Int16 unitSystem, Int16 objective, const std::string& programFolder) {
    WriteWholeFile(JoinPath(programFolder, SettingsFileName), EncodeName(folder) + "\r\n" + PrintedInteger(unitSystem) +
                                                                  "\r\n" + PrintedInteger(objective) + "\r\n");
}

}  // namespace zirvo
