// A fresh folder with a pavement in it, see work_folder.h.
#include "batch/work_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace zirvo::test {

Outcome WorkFolder::Batch(const std::vector<std::string>& arguments, Surroundings surroundings) const {
    if (surroundings.Folder.empty()) {
        surroundings.Folder = Path();
    }
    return RunProcess(arguments, surroundings);
}

std::string WorkFolder::PutSample(const std::string& name) const {
    Put(name, SampleBytes(name));
    return name;
}

std::vector<std::string> WorkFolder::Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Path())) {
        names.push_back(NameOf(entry.path().filename()));
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string PutBatch(const std::string& folder) {
    namespace fs = std::filesystem;
    const fs::path to = Utf8Path(folder);
    fs::copy_file(fs::path(ZIRVO_BIN) / BatchName, to / BatchName);
#ifdef _WIN32
    for (const fs::directory_entry& entry : fs::directory_iterator(ZIRVO_BIN)) {
        if (entry.path().extension() == ".dll" || entry.path().filename() == "qt.conf") {
            fs::copy_file(entry.path(), to / entry.path().filename());
        }
    }
    fs::copy(fs::path(ZIRVO_BIN) / "plugins", to / "plugins", fs::copy_options::recursive);
#endif
    return folder + Slash + BatchName;
}

std::string SampleBytes(const std::string& name) {
    std::ifstream file(std::string(ZIRVO_SAMPLES "/") + name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> SampleNames() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(ZIRVO_SAMPLES)) {
        if (entry.path().extension() == ".eva") {
            names.push_back(NameOf(entry.path().filename()));
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string With(std::string text, const std::string& from, const std::string& to) {
    const std::size_t place = text.find(from);
    if (place == std::string::npos) {
        ADD_FAILURE() << "no \"" << from << "\" in the text";
        return text;
    }
    return text.replace(place, from.size(), to);
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> FieldsOf(const std::string& line, char separator) {
    std::vector<std::string> fields;
    std::istringstream stream(line);
    for (std::string field; std::getline(stream, field, separator);) {
        fields.push_back(field);
    }
    return fields;
}

}  // namespace zirvo::test
