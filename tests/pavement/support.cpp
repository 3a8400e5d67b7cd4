// Shared means of the tests of the analysis path, see support.h.
#include "pavement/support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/files.h"

namespace zirvo::test {

WorkFolder::WorkFolder() : before_(CurrentFolder()) {
    ChangeFolder(Path());
}

WorkFolder::~WorkFolder() {
    ChangeFolder(before_);
}

std::vector<std::string> WorkFolder::Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Path())) {
        names.push_back(NameOf(entry.path().filename()));
    }
    std::sort(names.begin(), names.end());
    return names;
}

void PutFile(const std::string& path, std::string_view bytes) {
    std::ofstream file(Utf8Path(path), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    ASSERT_TRUE(file.good()) << path;
}

std::string GetFile(const std::string& path) {
    std::ifstream file(Utf8Path(path), std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

PavementModel ExampleModel() {
    PavementModel model;
    model.LayerCount = 2;
    model.LoadCount = 1;
    model.PointCount = 1;
    model.Layers[1] = {35000, 0.35, 5, 0};
    model.Layers[2] = {1000, 0.4, 0, 0};
    model.Loads[1] = {49, 15, 0, 0, 0, 0};
    model.Points[1] = {1, 0, 0, 5};
    model.ResultFileName = "Untitled.bre";
    model.PrincipalFileName = "Untitled.san";
    return model;
}

std::string ExampleFile() {
    // "\x81\x40" is the ideographic space that the headings hold in English too.
    return "OUTPUT FILENAME\r\n"
           "Untitled.bre\r\n"
           "Untitled.san\r\n"
           "\r\n"
           "LAYERS  \x81\x40"
           "LOADS     POINTS\r\n"
           "  2         1          1\r\n"
           "\r\n"
           "LAYER PROPERTIES\r\n"
           " MODULUS(MPa)\x81\x40      \x81\x40\x81\x40   MU  \x81\x40      THICKNESS(cm)\x81\x40  SLIP RATE\r\n"
           "        35000             0.35                5               0\r\n"
           "         1000              0.4\r\n"
           "\r\n"
           "LOAD POINT\r\n"
           "VERT. LOAD(kN)    RADIUS(cm)      X-AXIS(cm)      Y-AXIS(cm)     HORIZ. LOAD(kN)    ANGLE FROM X(deg)\r\n"
           "        49               15                0               0              0                  0\r\n"
           "\r\n"
           "POINT OF INTEREST\r\n"
           "LAYER NO.   X-AXIS(cm)   Y-AXIS(cm)   Z-AXIS(cm)\r\n"
           "    1               0            0            5\r\n";
}

PavementTexts ExampleTexts() {
    PavementTexts texts;
    texts.LayerCount = " 2";
    texts.LoadCount = " 1";
    texts.PointCount = " 1";
    texts.InputFileName = "Untitled.eva";
    texts.ResultFileName = "Untitled.bre";
    texts.PrincipalFileName = "Untitled.san";
    texts.Layers = {{}, {"35000", "0.35", "5", "0"}, {"1000", "0.4", "", ""}};
    texts.Loads = {{}, {"49", "15", "0", "0", "0", "0"}};
    texts.Points = {{}, {"1", "0", "0", "5"}};
    return texts;
}

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << "the example holds no \"" << from << "\"";
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

}  // namespace zirvo::test
