// Standard output and standard error, see console.h.
#include "batch/console.h"

#include <iostream>

#include "platform/terminal.h"

namespace zirvo::batch {
namespace {

/// To the start of the line, and nothing left of it.
constexpr std::string_view EraseLine = "\r\x1b[K";

}  // namespace

std::string FaultText(const RuntimeFault& caught) {
    return "Run-time error '" + std::to_string(caught.Number()) + "': " + caught.what();
}

Console::Console() : terminal_(IsErrorTerminal()) {}

Console::~Console() {
    ClearProgress();
}

void Console::Progress(std::string_view doing) {
    if (terminal_ && !quiet_) {
        std::cerr << EraseLine << doing << " ..." << std::flush;
        progressShows_ = true;
    }
}

void Console::ClearProgress() {
    if (progressShows_) {
        std::cerr << EraseLine << std::flush;
        progressShows_ = false;
    }
}

void Console::ErrorLine(std::string_view file, std::string_view text) {
    if (!file.empty()) {
        std::cerr << file << ": ";
    }
    std::cerr << text << std::endl;
}

void Console::Note(std::string_view file, std::string_view text) {
    if (!quiet_) {
        ClearProgress();
        ErrorLine(file, text);
    }
}

void Console::Complain(std::string_view file, std::string_view reason) {
    ClearProgress();
    ErrorLine(file, reason);
}

ExitCode Console::Output(std::string_view bytes) {
    ClearProgress();
    std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    std::cout.flush();
    if (std::cout) {
        return ExitCode::Done;
    }
    Complain("standard output", "cannot be written");
    return ExitCode::BadInput;
}

}  // namespace zirvo::batch
