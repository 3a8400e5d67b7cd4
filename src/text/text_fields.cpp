// Fields of text files, byte by byte. Callers: the readers of ".eva", ".ven", the settings file and the solvers' input.
//
// Splitting bytes is safe in code page 932: no second byte of a character is below 0x40, so none is a blank, a comma, a
// quote or a line end.
#include "text/text_fields.h"

#include <utility>

#include "base/runtime_fault.h"
#include "platform/code_page.h"
#include "text/number_grammar.h"

namespace zirvo {
namespace {

constexpr std::size_t BlockSize = 1 << 16;

bool IsBlank(int c) {
    return c == ' ' || c == '\t';
}

void SkipBlanks(TextStream& stream) {
    while (IsBlank(stream.Peek())) {
        stream.Next();
    }
}

/// Text of a field in the making. Blanks are only counted until something follows them, so that a long run of them at
/// the end of a line takes no room.
class FieldText {
public:
    void Add(int c) {
        if (c == ' ') {
            ++blanks_;
            return;
        }
        RequireRoom(blanks_);
        bytes_.append(blanks_, ' ');
        blanks_ = 0;
        RequireRoom(1);
        bytes_ += static_cast<char>(c);
    }
    void AddAsItStands(int c) {
        RequireRoom(1);
        bytes_ += static_cast<char>(c);
    }
    std::string Take() { return std::move(bytes_); }

private:
    void RequireRoom(std::size_t more) const {
        if (more > LongestField - bytes_.size()) {
            throw RuntimeFault(fault::InvalidCall);
        }
    }

    std::string bytes_;
    std::size_t blanks_ = 0;
};

/// The text up to the closing quote or the line's end; the stream stands behind the opening quote.
std::string ReadQuoted(TextStream& stream) {
    FieldText field;
    for (int c = stream.Next(); c != '"' && c != TextStream::End; c = stream.Next()) {
        if (c == '\n') {
            return field.Take();
        }
        field.AddAsItStands(c);
    }
    for (int c = stream.Next(); c != ',' && c != '\n' && c != TextStream::End; c = stream.Next()) {
    }
    return field.Take();
}

/// The bytes of a number field, whatever they are.
std::string ReadNumberBytes(TextStream& stream) {
    while (IsBlank(stream.Peek()) || stream.Peek() == '\n') {
        stream.Next();
    }
    if (stream.Peek() == TextStream::End) {
        throw RuntimeFault(fault::InputPastEnd);
    }
    FieldText field;
    for (int c = stream.Peek(); !IsBlank(c) && c != ',' && c != '\n' && c != TextStream::End; c = stream.Peek()) {
        field.AddAsItStands(c);
        stream.Next();
    }
    SkipBlanks(stream);
    if (stream.Peek() == ',' || stream.Peek() == '\n') {
        stream.Next();
    }
    return field.Take();
}

}  // namespace

TextStream::TextStream(std::istream& input) : input_(input) {}

bool TextStream::Fill() {
    if (position_ < block_.size()) {
        return true;
    }
    position_ = 0;
    block_.resize(BlockSize);
    input_.read(block_.data(), static_cast<std::streamsize>(BlockSize));
    block_.resize(static_cast<std::size_t>(input_.gcount()));
    if (input_.bad()) {  // a file that breaks off is no shorter file
        throw RuntimeFault(fault::DeviceError);
    }
    return !block_.empty();
}

int TextStream::Peek() {
    if (!Fill()) {
        return End;
    }
    const char c = block_[position_];
    return c == '\r' ? '\n' : static_cast<unsigned char>(c);
}

int TextStream::Next() {
    const int c = Peek();
    if (c == End) {
        return End;
    }
    const bool carriageReturn = block_[position_] == '\r';
    ++position_;
    if (carriageReturn && Fill() && block_[position_] == '\n') {
        ++position_;
    }
    return c;
}

std::string ReadTextFieldBytes(TextStream& stream) {
    SkipBlanks(stream);
    if (stream.Peek() == TextStream::End) {
        throw RuntimeFault(fault::InputPastEnd);
    }
    if (stream.Peek() == '"') {
        stream.Next();
        return ReadQuoted(stream);
    }
    FieldText field;
    for (int c = stream.Next(); c != ',' && c != '\n' && c != TextStream::End; c = stream.Next()) {
        field.Add(c);
    }
    return field.Take();
}

std::string ReadTextField(TextStream& stream) {
    return DecodeText(ReadTextFieldBytes(stream));
}

double ReadNumberField(TextStream& stream) {
    double value = 0;
    if (!ReadWholeNumber(ReadNumberBytes(stream), value)) {
        throw RuntimeFault(fault::TypeMismatch);
    }
    return value;
}

Int16 ReadIntegerField(TextStream& stream) {
    const std::string bytes = ReadNumberBytes(stream);
    const std::size_t first = !bytes.empty() && (bytes[0] == '+' || bytes[0] == '-') ? 1 : 0;
    if (first == bytes.size() || bytes.find_first_not_of("0123456789", first) != std::string::npos) {
        throw RuntimeFault(fault::TypeMismatch);
    }
    long long value = 0;
    for (std::size_t i = first; i < bytes.size(); ++i) {
        value = value * 10 + (bytes[i] - '0');
        if (value > 100000) {  // out of range already, and not to grow further
            break;
        }
    }
    return ToInt16(bytes[0] == '-' ? -value : value);
}

std::string ReadLineBytes(TextStream& stream) {
    if (stream.Peek() == TextStream::End) {
        throw RuntimeFault(fault::InputPastEnd);
    }
    FieldText line;
    for (int c = stream.Next(); c != '\n' && c != TextStream::End; c = stream.Next()) {
        line.AddAsItStands(c);
    }
    return line.Take();
}

}  // namespace zirvo
