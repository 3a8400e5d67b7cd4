// A fresh folder for work files. Caller: the map command.
#pragma once
#include <filesystem>
#include <string>

#include "platform/interruption.h"

namespace zirvo::batch {

/// Makes a folder among the system's temporary ones and moves the current folder of the process there; moves back and
/// removes it with all that lies in it when it is destroyed, or when the program is interrupted.
class TemporaryFolder {
public:
    /// std::filesystem::filesystem_error where none can be made; a RuntimeFault where it cannot be entered.
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

private:
    std::string earlier_;
    std::filesystem::path folder_;
    const UndoneIfInterrupted gone_{[this] { Remove(); }};

    void Remove();
};

}  // namespace zirvo::batch
