#include "solver_io/support.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "platform/utf8_path.h"

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace zirvo::solver::test {

std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\r\n";
    }
    return text;
}

std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find("\r\n");
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
    }
    return lines;
}

std::vector<std::string> ExampleLines() {
    return {"OUTPUT FILENAME",
            "Untitled.bre",
            "Untitled.san",
            "",
            "LAYERS     LOADS     POINTS",
            "  2         1          1",
            "",
            "LAYER PROPERTIES",
            " MODULUS(MPa)            MU         THICKNESS(cm)    SLIP RATE",
            "        35000             0.35                5               0",
            "         1000              0.4",
            "",
            "LOAD POINT",
            "VERT. LOAD(kN)    RADIUS(cm)      X-AXIS(cm)      Y-AXIS(cm)     HORIZ. LOAD(kN)    ANGLE FROM X(deg)",
            "        49               15                0               0              0                  0",
            "",
            "POINT OF INTEREST",
            "LAYER NO.   X-AXIS(cm)   Y-AXIS(cm)   Z-AXIS(cm)",
            "    1               0            0            5"};
}

std::string Example() {
    return ExampleWith(0, "");
}

std::string ExampleWith(std::size_t line, const std::string& text) {
    std::vector<std::string> lines = ExampleLines();
    if (line > 0) {
        lines.at(line - 1) = text;
    }
    return Lines(lines);
}

std::string Padded(std::string_view text, std::size_t columns) {
    return std::string(columns > text.size() ? columns - text.size() : 0, ' ') + std::string(text);
}

SolverInput Accepted(const std::string& text) {
    std::istringstream stream(text);
    std::variant<SolverInput, InputError> read = ReadSolverInput(stream);
    if (const auto* error = std::get_if<InputError>(&read)) {
        throw std::runtime_error(OneLine(Language::English, "refused", *error));
    }
    return std::get<SolverInput>(read);
}

InputError Refused(const std::string& text) {
    std::istringstream stream(text);
    std::variant<SolverInput, InputError> read = ReadSolverInput(stream);
    if (std::holds_alternative<SolverInput>(read)) {
        throw std::runtime_error("accepted");
    }
    return std::get<InputError>(read);
}

std::string RefusedInEnglish(const std::string& text) {
    return OneLine(Language::English, "Untitled.eva", Refused(text));
}

ReportData HandMadeData(Language language, UnitSystem units) {
    ReportData data;
    data.Words = language;
    data.Units = units;
    data.InputName = "Untitled.eva";
    data.Input.ReportNames = {"Untitled.bre", "Untitled.san"};
    data.Input.Typed.Layers = {{5000, 0.35, 15, 0}, {1000.0 / 3, 0.333333333333333, 30.5, 0.99}, {50, 0.5, 0, 0}};
    data.Input.Typed.Loads = {{49, 15, 0, 0, 0, 0}, {24.5, 11, -106, 66, -5, 33.5}};
    data.Input.Typed.Points = {{1, 0, 0, 0}, {1, 15, 0, 0}, {2, -1234.5678, 12345.678, 15}, {3, -0.0001, 1e10, 45.5}};
    for (std::size_t i = 0; i < data.Input.Typed.Points.size(); ++i) {
        PointResult result;
        const double sign = i % 2 == 0 ? 1 : -1;
        for (std::size_t k = 0; k < result.Values.size(); ++k) {
            result.Values[k] = sign * static_cast<double>(k) * 1.23456e-5 * static_cast<double>(i * i * i + 1);
        }
        result.Estimates = {1e-12, 2e-12, 3e-12 * static_cast<double>(i)};
        data.Results.Points.push_back(result);
    }
    data.Results.Points[1].OnLoadEdge = true;
    data.Results.LargestEstimate = 9e-12;
    EXPECT_EQ(FinishResults(data).Reason, Word::None);
    return data;
}

OwnFolder::OwnFolder() : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(Path());
}

OwnFolder::~OwnFolder() {
    std::filesystem::current_path(before_);
    std::error_code ignored;
    std::filesystem::permissions(Path(), std::filesystem::perms::all, ignored);
}

void WriteBytes(const std::string& path, std::string_view bytes) {
    std::ofstream file(zirvo::test::Utf8Path(path), std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string ReadBytes(const std::string& path) {
    std::ifstream file(zirvo::test::Utf8Path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void ExpectGolden(const std::string& name, const std::string& bytes) {
    const std::string golden = ZIRVO_TEST_DATA "/reports/" + name;
    const bool same = ReadBytes(golden) == bytes;
    EXPECT_TRUE(same) << golden << " differs: read the .new beside it";
    if (!same) {
        WriteBytes(golden + ".new", bytes);
    }
}

std::string ProgramWord(const std::string& name) {
    std::string path = std::string(ZIRVO_BIN) + "/" + name;
#ifdef _WIN32
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
#else
    return "'" + path + "'";
#endif
}

int ExitCodeOf(const std::string& command) {
    const int status = std::system(command.c_str());
#ifdef _WIN32
    return status;
#else
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
}

}  // namespace zirvo::solver::test
