// The command line and the terminal on Windows, see terminal.h.
#include <windows.h>
//
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>
#include <memory>

#include "platform/terminal.h"
#include "platform/windows_text.h"

namespace zirvo {

std::vector<std::string> CommandLineArguments(int /*count*/, char** /*arguments*/) {
    const auto release = [](LPWSTR* list) { LocalFree(list); };
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(release)> wide(CommandLineToArgvW(GetCommandLineW(), &count), release);
    std::vector<std::string> arguments;
    for (int i = 1; wide != nullptr && i < count; ++i) {
        arguments.push_back(FromWide(wide.get()[i]));
    }
    return arguments;
}

PlainStreams::PlainStreams() {
    for (std::FILE* stream : {stdin, stdout, stderr}) {
        _setmode(_fileno(stream), _O_BINARY);
    }
    earlierCodePage_ = GetConsoleOutputCP();
    if (earlierCodePage_ != 0) {
        SetConsoleOutputCP(CP_UTF8);
    }
}

PlainStreams::~PlainStreams() {
    if (earlierCodePage_ != 0) {
        SetConsoleOutputCP(earlierCodePage_);  // the console outlives this program
    }
}

bool IsErrorTerminal() {
    const HANDLE stream = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    // A console that cannot be asked to take escape sequences would show them as rubbish: it is told no progress.
    return GetConsoleMode(stream, &mode) != 0 && SetConsoleMode(stream, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

}  // namespace zirvo
