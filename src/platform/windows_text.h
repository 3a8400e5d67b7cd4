// UTF-8 and the system's own faults on Windows. Called by the Windows halves of this folder only.
#pragma once
#include <string>
#include <string_view>

namespace zirvo {

/// UTF-16 of a path in UTF-8. Fault 52 for what is no UTF-8 or holds a NUL, since no file can have such a name.
std::wstring ToWide(const std::string& path);

/// UTF-8 of UTF-16; a lone surrogate becomes U+FFFD.
std::string FromWide(std::wstring_view wide);

/// The fault that fits an error code of the system.
int SystemFaultOf(unsigned long error);

/// Raises it, about the file.
[[noreturn]] void RaiseSystemFault(unsigned long error, const std::string& path);

}  // namespace zirvo
