// A fresh folder with a road and a study of it. Callers: the tests of this folder.
#pragma once
#include <string>

#include "platform/temporary_folder.h"
#include "study/study.h"

namespace zirvo::study {

class StudyFolder : public TemporaryFolder {
public:
    StudyFolder();

    /// Writes the study; gives its path.
    std::string PutStudy(const std::string& text) const { return Put("s.toml", text); }
    /// The study of the text, which must be right.
    Study StudyOf(const std::string& text) const;
    /// What is told of a text that is wrong, without the folder in front of the file.
    std::string Told(const std::string& text) const;
};

/// Base, units and one thing kept, in front of what a test adds.
std::string Head();
std::string Keeps();

}  // namespace zirvo::study
