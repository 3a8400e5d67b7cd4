// Processes of Windows: started without a window on the null device and waited for. Called by the solver runs.
#include <windows.h>

#include <cstddef>
#include <map>
#include <memory>
#include <vector>

#include "base/runtime_fault.h"
#include "platform/fault_subject.h"
#include "platform/interruption.h"
#include "platform/process.h"
#include "platform/temporary_names.h"
#include "platform/windows_handle.h"
#include "platform/windows_text.h"

namespace zirvo {
namespace {

/// The null device, for a child to inherit.
HANDLE OpenNullDevice() {
    SECURITY_ATTRIBUTES inheritable{};
    inheritable.nLength = sizeof inheritable;
    inheritable.bInheritHandle = TRUE;
    const HANDLE device = CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      &inheritable, OPEN_EXISTING, 0, nullptr);
    if (device == INVALID_HANDLE_VALUE) {
        RaiseSystemFault(GetLastError(), "");
    }
    return device;
}

HANDLE MakeJobOfChildren() {
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    if (job == nullptr ||
        SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits) == 0) {
        RaiseSystemFault(GetLastError(), "");
    }
    return job;
}

/// The job that every child is in: the system ends them with this process, however it ends, since nobody else has the
/// job. A solver has no window in which its user could end it, and would write on in a folder that is free for others
/// by then.
HANDLE JobOfChildren() {
    static const HANDLE job = MakeJobOfChildren();
    return job;
}

/// What a child is started with: the handle that it inherits, and none of this process's files besides; its job.
class StartAttributes {
public:
    explicit StartAttributes(HANDLE inherited) : inherited_(inherited) {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 2, 0, &size);
        memory_.resize(size);
        if (InitializeProcThreadAttributeList(List(), 2, 0, &size) == 0) {
            RaiseSystemFault(GetLastError(), "");
        }
        if (!Set(PROC_THREAD_ATTRIBUTE_HANDLE_LIST, inherited_) || !Set(PROC_THREAD_ATTRIBUTE_JOB_LIST, job_)) {
            const DWORD error = GetLastError();
            DeleteProcThreadAttributeList(List());
            RaiseSystemFault(error, "");
        }
    }
    ~StartAttributes() { DeleteProcThreadAttributeList(List()); }
    StartAttributes(const StartAttributes&) = delete;
    StartAttributes& operator=(const StartAttributes&) = delete;
    LPPROC_THREAD_ATTRIBUTE_LIST List() { return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory_.data()); }

private:
    bool Set(DWORD_PTR attribute, HANDLE& handle) {
        return UpdateProcThreadAttribute(List(), 0, attribute, &handle, sizeof handle, nullptr, nullptr) != 0;
    }

    std::vector<std::byte> memory_;
    HANDLE inherited_;
    HANDLE job_ = JobOfChildren();
};

/// The fault of a program that could not be started.
int StartFaultOf(DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return fault::FileNotFound;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
            return fault::PermissionDenied;
        case ERROR_BAD_EXE_FORMAT:
        case ERROR_EXE_MACHINE_TYPE_MISMATCH:
        case ERROR_DIRECTORY:
            return fault::PathAccess;
        default:
            return SystemFaultOf(error);
    }
}

/// A process that this one has started. An interruption ends it: it has no console that could tell it of one.
class Child {
public:
    Child() = default;
    ~Child() {
        const NotInterrupted whileItGoes;
        process_.Close();
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    void Take(HANDLE process) { process_.Reset(process); }

private:
    void End() const {
        if (process_.IsOpen()) {
            TerminateProcess(process_.Get(), static_cast<UINT>(ExitBehindRequest));
            WaitForSingleObject(process_.Get(), INFINITE);
            RemoveTemporariesOf(GetProcessId(process_.Get()));
        }
    }

    OwnedHandle process_{nullptr};
    const UndoneIfInterrupted ended_{[this] { End(); }};
};

class WindowsProcessService : public ProcessService {
public:
    int StartHidden(const std::string& program) override {
        return Naming(FaultMatter::Program, program, [&] { return Start(program); });
    }

    std::intptr_t Open(int identifier) override {
        // The second right is for Close, which asks the handle whose it is.
        return reinterpret_cast<std::intptr_t>(
            OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(identifier)));
    }

    void Wait(std::intptr_t handle) override { WaitForSingleObject(reinterpret_cast<HANDLE>(handle), INFINITE); }

    bool WaitFor(std::intptr_t handle, int milliseconds) override {
        return WaitForSingleObject(reinterpret_cast<HANDLE>(handle), static_cast<DWORD>(milliseconds)) != WAIT_TIMEOUT;
    }

    void Close(std::intptr_t handle) override {
        const HANDLE process = reinterpret_cast<HANDLE>(handle);
        const auto started = started_.find(static_cast<int>(GetProcessId(process)));
        CloseHandle(process);
        if (started != started_.end()) {
            started_.erase(started);
        }
    }

private:
    int Start(const std::string& program) {
        const std::wstring name = ToWide(program);
        std::wstring commandLine = L"\"" + name + L"\"";
        const OwnedHandle device(OpenNullDevice());
        StartAttributes attributes(device.Get());
        STARTUPINFOEXW startup{};
        startup.StartupInfo.cb = sizeof startup;
        startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES | STARTF_USESHOWWINDOW;
        startup.StartupInfo.wShowWindow = SW_HIDE;
        startup.StartupInfo.hStdInput = device.Get();
        startup.StartupInfo.hStdOutput = device.Get();
        startup.StartupInfo.hStdError = device.Get();
        startup.lpAttributeList = attributes.List();
        PROCESS_INFORMATION information{};
        auto child = std::make_unique<Child>();
        const NotInterrupted untilItIsNoted;
        if (CreateProcessW(name.c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                           CREATE_NO_WINDOW | EXTENDED_STARTUPINFO_PRESENT, nullptr, nullptr, &startup.StartupInfo,
                           &information) == 0) {
            const DWORD error = GetLastError();
            throw RuntimeFault(StartFaultOf(error));
        }
        CloseHandle(information.hThread);
        const int identifier = static_cast<int>(information.dwProcessId);
        child->Take(information.hProcess);
        started_[identifier] = std::move(child);
        return identifier;
    }

    // A process that ends at once keeps its identifier as long as a handle to it is open: so it can still be opened.
    std::map<int, std::unique_ptr<Child>> started_;
};

}  // namespace

std::unique_ptr<ProcessService> MakeProcessService() {
    return std::make_unique<WindowsProcessService>();
}

}  // namespace zirvo
