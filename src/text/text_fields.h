// Fields of text files, taken one after the other from a stream: the reader under ".eva", ".ven" and the settings file.
#pragma once
#include <cstddef>
#include <istream>
#include <string>

#include "base/int16.h"

namespace zirvo {

/// A byte stream with one byte of look-ahead that knows the three line ends (CR LF, LF, CR). Reads in blocks; holds no
/// more than a block however long the file is.
class TextStream {
public:
    /// The stream must outlive this object and be open in binary mode.
    explicit TextStream(std::istream& input);

    /// The next byte as 0..255, a line end of any kind as '\n', or End. Peek leaves it there.
    static constexpr int End = -1;
    int Peek();
    int Next();

private:
    std::istream& input_;
    std::string block_;
    std::size_t position_ = 0;
    bool Fill();
};

/// Longest text of one field or line [bytes]; a longer one is fault 5, so that a file of rubbish cannot eat the memory.
inline constexpr std::size_t LongestField = 1 << 20;

/// A text field as raw bytes: leading blanks and tabs are skipped; in quotes it runs to the closing quote (what follows
/// up to the next comma or line end is skipped; an unclosed quote ends with its line), otherwise to the next comma or
/// line end, blanks at its end dropped. The comma or line end is consumed. An empty line is an empty text. Fault 62 at
/// the end of the file.
std::string ReadTextFieldBytes(TextStream& stream);

/// The same, decoded from code page 932.
std::string ReadTextField(TextStream& stream);

/// A number field: blanks, tabs and line ends are skipped; the field runs to the next blank, tab, comma or line end;
/// blanks and tabs and then one comma or line end behind it are consumed. Fault 62 at the end of the file, 13 if the
/// field holds no number as a whole (sign, digits, point, exponent E D e d). A magnitude beyond a double is the
/// largest.
double ReadNumberField(TextStream& stream);

/// A number field that holds a sign and digits, nothing else (else fault 13). Fault 6 outside 16 bits.
Int16 ReadIntegerField(TextStream& stream);

/// One whole line as raw bytes, without its end. Fault 62 at the end of the file.
std::string ReadLineBytes(TextStream& stream);

}  // namespace zirvo
