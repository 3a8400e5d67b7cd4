// Lines in the order in which they were noted.
#pragma once
#include <string>
#include <utility>
#include <vector>

namespace zirvo::forms {

struct Log {
    std::vector<std::string> Lines;
    void Note(std::string line) { Lines.push_back(std::move(line)); }
};

}  // namespace zirvo::forms
