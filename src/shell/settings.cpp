// The settings file, see settings.h. Three lines: folder, unit system, objective.
#include "shell/settings.h"

#include <fstream>

#include "base/runtime_fault.h"
#include "platform/code_page.h"
#include "platform/fault_subject.h"
#include "platform/folders.h"
#include "platform/open_file.h"
#include "text/file_helpers.h"
#include "text/number_text.h"
#include "text/text_fields.h"

namespace zirvo {
namespace {

constexpr char Quote = '"';

/// The folder of a first line that is a quoted one as a whole. A folder may hold quotes of its own, so that the last
/// quote closes it.
std::optional<std::string> QuotedFolder(const std::string& line) {
    const std::size_t last = line.find_last_not_of(" \t");
    if (line.size() < 2 || line.front() != Quote || last == 0 || line[last] != Quote) {
        return std::nullopt;
    }
    return line.substr(1, last - 1);
}

Settings ReadNumbers(TextStream& stream, const std::string& folder) {
    Settings settings;
    settings.WorkFolder = DecodeName(folder);
    settings.UnitSystem = ReadIntegerField(stream);
    settings.Objective = ReadIntegerField(stream);
    return settings;
}

Settings ReadSettings(const std::string& path) {
    std::ifstream file = OpenForReading(path);
    TextStream stream(file);
    if (const std::optional<std::string> folder = QuotedFolder(ReadLineBytes(stream))) {
        return ReadNumbers(stream, *folder);
    }
    std::ifstream again = OpenForReading(path);
    TextStream fields(again);
    const std::string folder = ReadTextFieldBytes(fields);
    return ReadNumbers(fields, folder);
}

/// The line of a folder: as it stands, but for one with a comma, at which its field would end.
std::string FolderLine(const std::string& folder) {
    const std::string bytes = EncodeName(folder);
    return bytes.find(',') == std::string::npos ? bytes : Quote + bytes + Quote;
}

/// Tried out, since what a system tells of rights is not always the whole truth.
bool MayWriteIn(const std::string& folder) {
    const std::string probe = JoinPath(folder, ".zirvo-may-write");
    try {
        WriteWholeFile(probe, "", Flush::ToSystem);
        RemoveFile(probe);
        return true;
    } catch (const RuntimeFault&) {
        return false;
    }
}

}  // namespace

std::string SettingsFolder(const std::string& programFolder, const std::string& userFolder) {
    const bool usersOwn =
        !MayWriteIn(programFolder) && !userFolder.empty() && MakePrivateFolders(userFolder) && MayWriteIn(userFolder);
    return usersOwn ? userFolder : programFolder;
}

std::optional<Settings> LoadSettings(const std::string& programFolder) {
    const std::string path = JoinPath(programFolder, SettingsFileName);
    if (!FileExists(path)) {
        return std::nullopt;
    }
    return Naming(FaultMatter::Settings, path, [&] { return ReadSettings(path); });
}

bool IsGoodFolder(const std::string& folder) {
    // Whether it may be written would change nothing, so it is not asked.
    return folder.ends_with('\\') || folder.ends_with('/') || FileExists(folder);
}

void SaveSettings(const std::string& folder, Int16 unitSystem, Int16 objective, const std::string& programFolder) {
    WriteWholeFile(JoinPath(programFolder, SettingsFileName), FolderLine(folder) + "\r\n" + PrintedInteger(unitSystem) +
                                                                  "\r\n" + PrintedInteger(objective) + "\r\n");
}

}  // namespace zirvo
