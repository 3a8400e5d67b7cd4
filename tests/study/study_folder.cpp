// A folder for studies, see study_folder.h.
#include "study/study_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace zirvo::study {

StudyFolder::StudyFolder() {
    std::ifstream road(ZIRVO_SAMPLES "/road.eva", std::ios::binary);
    Put("road.eva", std::string(std::istreambuf_iterator<char>(road), std::istreambuf_iterator<char>()));
}

Study StudyFolder::StudyOf(const std::string& text) const {
    auto read = ReadStudy(PutStudy(text));
    EXPECT_EQ(read.index(), 0U) << std::get<FileError>(read).Text();
    return std::get<Study>(std::move(read));
}

std::string StudyFolder::Told(const std::string& text) const {
    const auto read = ReadStudy(PutStudy(text));
    if (read.index() == 0) {
        return "passes";
    }
    std::string told = std::get<FileError>(read).Text();
    for (std::size_t at = 0; (at = told.find(Path() + "/")) != std::string::npos;) {
        told.erase(at, Path().size() + 1);
    }
    return told;
}

std::string Head() {
    return "base = \"road.eva\"\nunits = 3\n";
}

std::string Keeps() {
    return "[[keep]]\nvalue = \"EPSx\"\npoint = 2\n";
}

}  // namespace zirvo::study
