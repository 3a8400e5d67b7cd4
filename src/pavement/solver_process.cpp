// The control file and the hidden process of a solver, see solver_process.h.
#include "pavement/solver_process.h"

#include <optional>

#include "base/callback.h"
#include "pavement/pavement_blocks.h"
#include "platform/code_page.h"
#include "platform/fault_subject.h"
#include "text/catalogue.h"
#include "text/number_text.h"

namespace zirvo {

namespace {

/// Nothing where it could not be started and that passes in silence.
std::optional<int> Start(ProcessService& process, const std::string& program, StartFailure startFailure) {
    try {
        return process.StartHidden(program);
    } catch (const RuntimeFault&) {
        if (startFailure == StartFailure::Fault) {
            throw;
        }
        return std::nullopt;
    }
}

/// A handle that is closed on every way out.
class OpenProcess {
public:
    OpenProcess(ProcessService& process, std::intptr_t handle) : process_(process), handle_(handle) {}
    ~OpenProcess() { process_.Close(handle_); }
    OpenProcess(const OpenProcess&) = delete;
    OpenProcess& operator=(const OpenProcess&) = delete;

    void Wait(const std::function<void()>& waiting) {
        constexpr int betweenCalls = 200;  // [ms]
        if (!waiting) {
            process_.Wait(handle_);
            return;
        }
        while (!process_.WaitFor(handle_, betweenCalls)) {
            waiting();
        }
    }

private:
    ProcessService& process_;
    std::intptr_t handle_;
};

}  // namespace

Int16 LanguageNumberOf(Int16 languageBase) {
    if (languageBase == JapaneseBase) {
        return 1;
    }
    return languageBase == EnglishBase ? 2 : 0;
}

std::string ControlFileBytes(Int16 language, UnitSystem unitSystem, std::string_view nameHeading,
                             std::string_view inputFileName) {
    const std::string name = EncodeName(inputFileName);
    if (name.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos || DecodeName(name) != inputFileName) {
        RaiseFileFault(fault::BadFileName, std::string(inputFileName));
    }
    std::string out;
    AppendLine(out, "LANGUAGE PREFERENCE");
    AppendLine(out, PrintedInteger(language));
    AppendLine(out, "");
    AppendLine(out, "INPUT/OUTPUT UNITS OF MEASUREMENT");
    AppendLine(out, PrintedInteger(static_cast<Int16>(unitSystem)));
    AppendLine(out, "");
    AppendLine(out, nameHeading);
    AppendLine(out, name);
    return out;
}

ControlFile::ControlFile(const std::string& bytes) {
    const NotInterrupted untilItIsNoted;
    WriteWholeFile(ControlFileName, bytes, Flush::ToSystem);
    written_ = true;
}

void ControlFile::Remove() {
    const NotInterrupted untilItIsGone;
    RemoveFile(ControlFileName);
    written_ = false;
}

bool RunHidden(ProcessService& process, const std::string& program, StartFailure startFailure,
               const ProcessCallbacks& callbacks) {
    const std::optional<int> identifier = Start(process, program, startFailure);
    if (identifier.value_or(0) == 0) {
        return identifier.has_value();
    }
    const std::intptr_t handle = process.Open(*identifier);
    if (handle != 0) {
        OpenProcess open(process, handle);
        CallIfSet(callbacks.HandleObtained);
        open.Wait(callbacks.Waiting);
    }
    CallIfSet(callbacks.WaitOver);
    return true;
}

}  // namespace zirvo
