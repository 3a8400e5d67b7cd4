// Running the real programs on Windows, see process_run.h.
#include <windows.h>

#include <stdexcept>

#include "batch/process_run.h"
#include "missing_call.h"
#include "platform/temporary_folder.h"

namespace zirvo::test {
namespace {

constexpr UINT ExitBehindKill = 128 + 9;  // as on POSIX

void Require(bool done, const char* what) {
    if (!done) {
        throw std::runtime_error(what);
    }
}

std::wstring Wide(const std::string& text) {
    return Utf8Path(text).wstring();
}

/// A word of a command line as the run-time library of the program takes it apart again.
std::wstring Quoted(const std::wstring& word) {
    std::wstring quoted = L"\"";
    std::size_t slashes = 0;
    for (const wchar_t letter : word) {
        slashes = letter == L'\\' ? slashes + 1 : 0;
        if (letter == L'"') {
            quoted += std::wstring(slashes + 1, L'\\');
        }
        quoted += letter;
    }
    return quoted + std::wstring(slashes, L'\\') + L"\"";
}

/// A handle that a child inherits.
class Inherited {
public:
    Inherited(const std::wstring& path, DWORD access, DWORD creation) {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        handle_ = CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, creation,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
        Require(handle_ != INVALID_HANDLE_VALUE, "no file for a stream");
    }
    ~Inherited() { CloseHandle(handle_); }
    Inherited(const Inherited&) = delete;
    Inherited& operator=(const Inherited&) = delete;

    HANDLE Handle() const { return handle_; }

private:
    HANDLE handle_;
};

/// Variables of this process, which a child inherits, as they are while the object lives.
class Environment {
public:
    explicit Environment(const std::vector<std::pair<std::string, std::string>>& variables) {
        for (const auto& [name, value] : variables) {
            std::wstring before(32767, L'\0');
            const DWORD length =
                GetEnvironmentVariableW(Wide(name).c_str(), before.data(), static_cast<DWORD>(before.size()));
            before.resize(length);
            earlier_.emplace_back(Wide(name), before);
            SetEnvironmentVariableW(Wide(name).c_str(), Wide(value).c_str());
        }
    }
    ~Environment() {
        for (const auto& [name, value] : earlier_) {
            SetEnvironmentVariableW(name.c_str(), value.empty() ? nullptr : value.c_str());
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    std::vector<std::pair<std::wstring, std::wstring>> earlier_;
};

}  // namespace

/// The process and where its words go.
struct RunningProcess::State {
    const TemporaryFolder Folder;
    bool OutputIsRead = true;
    HANDLE Process = nullptr;
};

RunningProcess::RunningProcess(const std::vector<std::string>& arguments, const Surroundings& surroundings)
    : state_(std::make_unique<State>()) {
    if (surroundings.OrdinaryUser || surroundings.ErrorsOnTerminal || surroundings.Memory != 0) {
        MissingCall("other user, terminal or limit of memory for a test");
    }
    state_->OutputIsRead = surroundings.OutputFile.empty();
    const std::string output = state_->OutputIsRead ? state_->Folder.Path("out") : surroundings.OutputFile;
    const Inherited in(L"NUL", GENERIC_READ, OPEN_EXISTING);
    const Inherited out(Wide(output), GENERIC_WRITE, OPEN_ALWAYS);
    const Inherited errors(Wide(state_->Folder.Path("err")), GENERIC_WRITE, OPEN_ALWAYS);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = in.Handle();
    start.hStdOutput = out.Handle();
    start.hStdError = errors.Handle();
    std::wstring line = Quoted(Wide(surroundings.Program));
    for (const std::string& argument : arguments) {
        line += L" " + Quoted(Wide(argument));
    }
    const std::wstring folder = Wide(surroundings.Folder);
    const Environment environment(surroundings.Variables);
    PROCESS_INFORMATION process{};
    Require(CreateProcessW(Wide(surroundings.Program).c_str(), line.data(), nullptr, nullptr, TRUE,
                           CREATE_NEW_PROCESS_GROUP, nullptr, folder.empty() ? nullptr : folder.c_str(), &start,
                           &process) != 0,
            "the program cannot be started");
    CloseHandle(process.hThread);
    state_->Process = process.hProcess;
}

RunningProcess::~RunningProcess() {
    if (state_->Process != nullptr) {
        Kill();
        WaitForSingleObject(state_->Process, INFINITE);
        CloseHandle(state_->Process);
    }
}

void RunningProcess::Send(int) const {
    MissingCall("signals");
}

void RunningProcess::Kill() const {
    TerminateProcess(state_->Process, ExitBehindKill);
}

bool RunningProcess::HasEnded() const {
    return WaitForSingleObject(state_->Process, 0) == WAIT_OBJECT_0;
}

std::string RunningProcess::ErrorsSoFar() const {
    return state_->Folder.Get("err");
}

Outcome RunningProcess::Wait() {
    WaitForSingleObject(state_->Process, INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(state_->Process, &code);
    CloseHandle(state_->Process);
    state_->Process = nullptr;
    Outcome outcome;
    outcome.Code = static_cast<int>(code);
    outcome.Out = state_->OutputIsRead ? state_->Folder.Get("out") : "";
    outcome.Err = state_->Folder.Get("err");
    return outcome;
}

Outcome RunProcess(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    return RunningProcess(arguments, surroundings).Wait();
}

}  // namespace zirvo::test
