// Descriptors and the system's own faults on POSIX systems. Called by the POSIX halves of this folder only.
#pragma once
#include <cerrno>
#include <string>

namespace zirvo {

/// The fault that fits errno's number.
/// @param path  of the file that the fault is about. A missing one is 76 if its folder is missing too, else 53. "" for
///              53, and for a fault that is about no file.
int SystemFaultOf(int error, const std::string& path);

/// Raises it, about the file.
[[noreturn]] void RaiseSystemFault(int error, const std::string& path);

/// Makes a call to the system, again and again while a signal interrupts it.
template <class Call>
auto Uninterrupted(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// Fault 52 for a path that holds a NUL: the system would cut it there and take another file.
void RequireUsablePath(const std::string& path);

/// Whether a path still leads to an open file: another program may have removed it, or put another one in its place.
enum class Place { Here, Elsewhere, Unknown };
Place PlaceOf(const std::string& path, int file);

/// An open descriptor that is closed when it goes out of sight.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor();
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool IsOpen() const { return number_ >= 0; }
    int Number() const { return number_; }
    /// Takes charge of another one; it must hold none.
    void Reset(int number) { number_ = number; }
    /// Closes it now; false if the system reports a failed write only here.
    bool Close();

private:
    int number_;
};

}  // namespace zirvo
