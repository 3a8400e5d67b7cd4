// What both roads to a solver share: the control file, and a hidden process that is started, opened, waited for and
// closed. Callers: the solver run of the analysis screen and that of the graphics screen.
#pragma once
#include <functional>
#include <string>
#include <string_view>

#include "base/int16.h"
#include "pavement/pavement_model.h"
#include "platform/files.h"
#include "platform/interruption.h"
#include "platform/process.h"

namespace zirvo {

/// The control file, in the current folder: the solver's only word of what it is to do.
inline constexpr const char* ControlFileName = "Initial_File";

/// The language number of the control file: 1 for the Japanese language base, 2 for the English one, 0 for none.
Int16 LanguageNumberOf(Int16 languageBase);

/// The eight lines of the control file, in code page 932. A name that would be read back as another one is fault 52,
/// since the solver would take another file: one that holds a line end or a NUL, that is no UTF-8, or whose bytes in
/// the code page read as UTF-8 too.
/// @param nameHeading  line 7, which the two roads write differently
std::string ControlFileBytes(Int16 language, UnitSystem unitSystem, std::string_view nameHeading,
                             std::string_view inputFileName);

/// The control file while a solver works. It stays where a fault comes in between; an interruption deletes it.
class ControlFile {
public:
    /// Writes it, over one that is there.
    explicit ControlFile(const std::string& bytes);
    void Remove();

private:
    bool written_ = false;
    const UndoneIfInterrupted gone_{[this] {
        if (written_) {
            RemoveFile(ControlFileName);
        }
    }};
};

/// What a solver that cannot be started is: a fault that ends the program, or nothing at all.
enum class StartFailure { Fault, Silent };

/// Moments of a run. An empty one is passed over.
struct ProcessCallbacks {
    std::function<void()> HandleObtained;  ///< before the wait, if there is one
    std::function<void()> WaitOver;        ///< after it, also where no handle was got; not with identifier 0
    std::function<void()> Waiting{};       ///< a few times a second during the wait
};

/// Starts the program hidden and waits for its end without limit. Identifier 0: nothing more happens. No handle: no
/// wait, the solver may still be working. The exit code is not looked at. False if it could not be started and that is
/// no fault.
bool RunHidden(ProcessService& process, const std::string& program, StartFailure startFailure,
               const ProcessCallbacks& callbacks);

}  // namespace zirvo
