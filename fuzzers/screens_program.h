// The program of seven screens without a toolkit: its forms, a solver that answers within the process, a picture that
// draws nothing, folders of its own.
#pragma once
#include <memory>
#include <optional>
#include <string>

#include "analysis/form3.h"
#include "analysis/form4.h"
#include "forms/application.h"
#include "graphics/form5.h"
#include "graphics/form6.h"
#include "kept/kept_store.h"
#include "screens_desktop.h"
#include "shell/form1.h"
#include "shell/form2.h"
#include "shell/form7.h"

namespace zirvo::fuzz {

/// The folders of a run, beneath the work folder.
struct ProgramFolders {
    std::string Program;  ///< the settings, the help
    std::string Work;     ///< the user's files
    std::string Kept;     ///< what was typed
    std::string Other;    ///< another one of the user's

    /// Makes them anew, empty but for the settings and the help, and enters the work folder.
    static ProgramFolders MakeAll();
};

/// A solver program that does its work at the start: as told for most bytes, and for some of them it cannot be started,
/// leaves nothing, or leaves rubbish.
class RandomSolver : public ProcessService {
public:
    explicit RandomSolver(ByteSource& source) : source_(source) {}
    int StartHidden(const std::string& program) override;
    std::intptr_t Open(int identifier) override;
    void Wait(std::intptr_t handle) override;
    void Close(std::intptr_t handle) override;

private:
    ByteSource& source_;
    int open_ = 0;
};

class ScreensProgram {
public:
    ScreensProgram(ByteSource& source, const ProgramFolders& folders, bool keeps);

    const ProgramFolders& Folders;
    RandomDesktop Desktop;
    std::unique_ptr<KeptStore> Kept;  ///< nothing where nothing is kept; outlives the forms
    forms::Application App{Desktop};

    /// What is kept is on the disk.
    void WaitForKept() {
        if (Kept != nullptr) {
            Kept->Wait();
        }
    }

    static constexpr std::array<const char*, 7> FormNames{"Form1", "Form2", "Form3", "Form4",
                                                          "Form5", "Form6", "Form7"};
    template <class T>
    T* Loaded() {
        return dynamic_cast<T*>(App.Find(T::FormName));
    }
};

}  // namespace zirvo::fuzz
