// The fault that ends the program: a number and its words. Raised wherever the platform's own run-time error
// would stop the program; shown by the fault box of the desktop, printed by the command line tools.
#pragma once
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

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

/// What a fault was about.
enum class FaultMatter {
    None,           ///< nothing that the user knows
    File,           ///< Name is its path
    Folder,         ///< Name is its path
    Program,        ///< that was to be started; Name is its path
    Settings,       ///< the settings file: what it holds is not the user's work, so that he can do without it
    Report,         ///< that a solver was to leave; Name is its path
    LoadPositions,  ///< loads so far out that no grid of points can be made
    Thicknesses,    ///< layers so thick that no levels can be laid through them
    LayerCell,      ///< the cell of a layer number; Name is the number of its point
    LineCount,      ///< the count of contour lines; Name is the text
};

/// The same with its name. Paths stand with their folder, as the user would look for them.
struct FaultSubject {
    FaultMatter Matter = FaultMatter::None;
    std::string Name{};
    std::string Reason{};  ///< lines: what a solver itself has left as the reason of the failure, in its own words

    bool operator==(const FaultSubject&) const = default;
};

/// An uncaught fault: travels up to the place that shows it. `what()` is the description.
class RuntimeFault : public std::runtime_error {
public:
    /// A fault with the words of the table.
    explicit RuntimeFault(int number, FaultSubject about = {});
    /// A fault with words of its own (the dialogs' numbers 13705, 20001, 32755).
    RuntimeFault(int number, const std::string& description);

    int Number() const noexcept { return number_; }
    const FaultSubject& About() const noexcept { return about_; }

    /// On its way up: says what it was about, unless that is known. The place nearest to the failure knows best.
    void SayAbout(FaultMatter matter, std::string name);
    /// Says what it was really about, where only the caller knows.
    void SayInstead(FaultMatter matter, std::string name);
    void GiveReason(std::string reason) { about_.Reason = std::move(reason); }

private:
    int number_;
    FaultSubject about_;
};

}  // namespace zirvo
