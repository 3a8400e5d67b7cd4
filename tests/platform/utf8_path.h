// Names of files as this program has them, UTF-8, for tests that use the standard library's own means.
#pragma once
#include <filesystem>
#include <string>

namespace zirvo::test {

/// Windows would take a plain string for text in the machine's own code page.
inline std::filesystem::path Utf8Path(const std::string& name) {
    return {std::u8string(name.begin(), name.end())};
}

/// The other way round.
inline std::string NameOf(const std::filesystem::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

}  // namespace zirvo::test
