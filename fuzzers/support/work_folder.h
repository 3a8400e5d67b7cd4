// The folder that a fuzzer works in: the current one, of this process alone, emptied before each input.
#pragma once
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace zirvo::fuzz {

/// Made at the first call, beside nothing of anyone's; removed when the process ends by itself.
const std::string& WorkFolder();

/// All that lies in it goes.
void EmptyWorkFolder();

/// By other means than those under test. Names are relative to the current folder.
void PutFile(const std::string& name, std::string_view bytes);
/// Nothing where there is none.
std::optional<std::string> BytesOf(const std::string& name);
/// The plain files of the work folder by name. Folders are left out.
std::map<std::string, std::string> AllFiles();

}  // namespace zirvo::fuzz
