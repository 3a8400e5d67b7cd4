// What the standard library has for strings, once more and optimised, for the build with sanitizers. There most of
// it is calls, and of all copies of a function the linker takes the first: that of the tests, which nobody has
// optimised, would be the one of the code that they test.
#include <string>
#include <string_view>

template class std::basic_string<char>;
template class std::basic_string_view<char>;
