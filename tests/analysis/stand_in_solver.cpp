// A program that stands in for the analysis solver in tests. It honours the same contract (control file in, reports
// out) and does what the file "stand_in.txt" in the current folder says:
//   write     one line into each report (also without that file)
//   nothing   no report
//   empty     reports of zero bytes
//   sanOnly   only the ".san"
//   slow      as write, after half a second
//   error     as write, with exit code 3
#include <chrono>
#include <fstream>
#include <string>
#include <thread>

namespace {

std::string Line(std::istream& file) {
    std::string line;
    std::getline(file, line);
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    return line;
}

void Report(const std::string& name, const std::string& text) {
    std::ofstream(name, std::ios::binary | std::ios::trunc) << text;
}

}  // namespace

int main(int argc, char**) {
    std::string behaviour = "write";
    if (std::ifstream script("stand_in.txt"); script.is_open()) {
        behaviour = Line(script);
    }
    if (behaviour == "nothing") {
        return 0;
    }
    if (behaviour == "slow") {
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
    }
    std::ifstream control("Initial_File");
    std::string inputName;
    std::string language;
    std::string units;
    for (int i = 1; i <= 8; ++i) {
        const std::string line = Line(control);
        (i == 2 ? language : i == 5 ? units : inputName) = line;
    }
    std::ifstream input(inputName);
    Line(input);
    const std::string result = Line(input);
    const std::string principal = Line(input);
    const bool empty = behaviour == "empty";
    Report(principal, empty ? "" : "principal  values\r\n");
    if (behaviour != "sanOnly") {
        // The arguments are counted, since there must be none but the program's own name.
        Report(result,
               empty ? "" : "language" + language + "units" + units + "arguments " + std::to_string(argc - 1) + "\r\n");
    }
    return behaviour == "error" ? 3 : 0;
}
