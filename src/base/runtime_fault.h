// The fault that ends the program: a number and its words. Raised wherever the platform's own run-time error
// would stop the program; shown by the fault box of the desktop, printed by the command line tools.
#pragma once
#include <stdexcept>
#include <string>
#include <string_view>

namespace zirvo {

/// The numbers of the faults that the program knows.
namespace fault {
inline constexpr int InvalidCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int DivisionByZero = 11;
inline constexpr int TypeMismatch = 13;
inline constexpr int BadFileName = 52;
inline constexpr int FileNotFound = 53;
inline constexpr int FileAlreadyOpen = 55;
inline constexpr int DeviceError = 57;
inline constexpr int FileAlreadyExists = 58;
inline constexpr int DiskFull = 61;
inline constexpr int InputPastEnd = 62;
inline constexpr int PermissionDenied = 70;
inline constexpr int PathAccess = 75;
inline constexpr int PathNotFound = 76;
}  // namespace fault

/// The words of a fault number, for example "Overflow" for 6; "Application-defined error" for a number that has none.
std::string_view FaultDescription(int number);

/// An uncaught fault: travels up to the place that shows it. `what()` is the description.
class RuntimeFault : public std::runtime_error {
public:
    /// A fault with the words of the table.
    explicit RuntimeFault(int number);
    /// A fault with words of its own (the dialogs' numbers 13705, 20001, 32755).
    RuntimeFault(int number, const std::string& description);

    int Number() const noexcept { return number_; }

private:
    int number_;
};

}  // namespace zirvo
