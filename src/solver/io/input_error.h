// What is wrong with an input, or with a result, in a form that both languages can tell: file, row, value, reason.
// Callers: the readers of this folder, the reports of bad input, zirvo-batch.
#pragma once
#include <string>
#include <vector>

#include "solver/io/words.h"

namespace zirvo::solver {

/// One finding. Parts that do not apply stay empty and are not printed.
struct InputError {
    Word Reason = Word::None;
    std::vector<std::string> Arguments;  ///< what %1, %2 in the reason stand for
    Word Row = Word::None;               ///< kind of the row
    int RowNumber = 0;                   ///< 1-based; 0 for a kind that has one row only
    long long Line = 0;                  ///< 1-based line of the file at which the row begins; 0 if there is none
    Word Value = Word::None;             ///< name of the value
    std::string Component;               ///< name of a result ("SIGx"), in place of Value
    std::string Text;                    ///< the value as it stands in the file

    bool operator==(const InputError&) const = default;
};

/// "layer 3 (line 12)"; empty without a row.
std::string RowText(Language language, const InputError& error);

/// "Poisson ratio 0.6"; empty without a value.
std::string ValueText(Language language, const InputError& error);

/// "must be above 0".
std::string ReasonText(Language language, const InputError& error);

/// All of it on one line without an end, for standard error: "Untitled.eva: layer 3 (line 12): Poisson ratio 0.6: ...".
std::string OneLine(Language language, const std::string& file, const InputError& error);

}  // namespace zirvo::solver
