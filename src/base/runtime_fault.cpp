// The table of fault numbers and their words. Called by everything that raises or shows a fault.
#include "base/runtime_fault.h"

#include <array>

namespace zirvo {
namespace {

struct FaultWords {
    int Number;
    std::string_view Description;
};

constexpr std::array<FaultWords, 15> Table{{
    {fault::InvalidCall, "Invalid procedure call or argument"},
    {fault::Overflow, "Overflow"},
    {fault::SubscriptOutOfRange, "Subscript out of range"},
    {fault::DivisionByZero, "Division by zero"},
    {fault::TypeMismatch, "Type mismatch"},
    {fault::BadFileName, "Bad file name or number"},
    {fault::FileNotFound, "File not found"},
    {fault::FileAlreadyOpen, "File already open"},
    {fault::DeviceError, "Device I/O error"},
    {fault::FileAlreadyExists, "File already exists"},
    {fault::DiskFull, "Disk full"},
    {fault::InputPastEnd, "Input past end of file"},
    {fault::PermissionDenied, "Permission denied"},
    {fault::PathAccess, "Path/File access error"},
    {fault::PathNotFound, "Path not found"},
}};

}  // namespace

std::string_view FaultDescription(int number) {
    for (const FaultWords& entry : Table) {
        if (entry.Number == number) {
            return entry.Description;
        }
    }
    return "Application-defined error";
}

RuntimeFault::RuntimeFault(int number, FaultSubject about)
    : std::runtime_error(std::string(FaultDescription(number))), number_(number), about_(std::move(about)) {}

RuntimeFault::RuntimeFault(int number, const std::string& description)
    : std::runtime_error(description), number_(number) {}

void RuntimeFault::SayAbout(FaultMatter matter, std::string name) {
    if (about_.Matter == FaultMatter::None) {
        SayInstead(matter, std::move(name));
    }
}

void RuntimeFault::SayInstead(FaultMatter matter, std::string name) {
    about_.Matter = matter;
    about_.Name = std::move(name);
}

}  // namespace zirvo
