// Characters outside quotes, see study_characters.h.
//
// What is passed over: a comment up to the end of its line; a text between single quotes, which knows no escapes; one
// between double quotes, in which a backslash takes the next character with it; both also between three quotes, over
// several lines. A text of one line that is not closed ends with it: what follows is for the library to judge.
#include "study/study_characters.h"

#include <algorithm>
#include <string>

namespace zirvo::study {
namespace {

class Scanner {
public:
    explicit Scanner(std::string_view bytes) : rest_(bytes) {}

    std::optional<long long> Run() {
        TakeIf("\xEF\xBB\xBF");
        while (!rest_.empty()) {
            const char c = rest_.front();
            if (c == '#') {
                Take(std::min(rest_.find('\n'), rest_.size()));
            } else if (c == '"' || c == '\'') {
                if (!SkipText(c)) {
                    return line_;
                }
            } else if (static_cast<unsigned char>(c) < 0x80) {
                Take(1);
            } else {
                return line_;
            }
        }
        return std::nullopt;
    }

private:
    std::string_view rest_;
    long long line_ = 1;

    void Take(std::size_t count) {
        line_ += std::count(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(count), '\n');
        rest_.remove_prefix(count);
    }

    bool TakeIf(std::string_view text) {
        const bool there = rest_.starts_with(text);
        Take(there ? text.size() : 0);
        return there;
    }

    static bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

    /// False at a strange character behind a line that a backslash carries on: there the library looks for blanks.
    bool SkipText(char quote) {
        const std::string three(3, quote);
        const bool manyLines = rest_.starts_with(three);
        const std::string_view end = std::string_view(three).substr(0, manyLines ? 3 : 1);
        Take(end.size());
        while (!rest_.empty() && !rest_.starts_with(end) && (manyLines || rest_.front() != '\n')) {
            const bool escape = quote == '"' && rest_.front() == '\\' && rest_.size() > 1;
            if (escape && manyLines && IsBlank(rest_[1])) {
                Take(1);
                while (!rest_.empty() && IsBlank(rest_.front())) {
                    Take(1);
                }
                if (!rest_.empty() && static_cast<unsigned char>(rest_.front()) >= 0x80) {
                    return false;
                }
                continue;
            }
            Take(escape && (manyLines || rest_[1] != '\n') ? 2 : 1);
        }
        TakeIf(end);
        return true;
    }
};

}  // namespace

std::optional<long long> LineOfStrangeCharacter(std::string_view bytes) {
    return Scanner(bytes).Run();
}

}  // namespace zirvo::study
