// Interruptions on Windows, see interruption.h: the system itself calls the handler on a thread of its own.
#include <windows.h>

#include "platform/interruption.h"

namespace zirvo {
namespace {

int ExitCodeOf(DWORD event) {
    switch (event) {
        case CTRL_C_EVENT:
        case CTRL_BREAK_EVENT:
            return ExitBehindCtrlC;
        case CTRL_CLOSE_EVENT:
            return ExitBehindHangUp;
        default:  // the user logs off, or the machine goes down
            return ExitBehindRequest;
    }
}

BOOL WINAPI End(DWORD event) {
    UndoWhatIsUnderWay();
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(ExitCodeOf(event)));
    return TRUE;
}

}  // namespace

void EndCleanlyWhenInterrupted() {
    SetConsoleCtrlHandler(End, TRUE);
}

}  // namespace zirvo
