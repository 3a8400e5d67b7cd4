// What became of the read of an input file: its data, or why there are none.
// Callers: the readers of both kinds of file, the imports of the data screens, the batch tool.
#pragma once
#include <utility>
#include <variant>

#include "pavement/data_findings.h"

namespace zirvo {

enum class InputError { NamesInvalid, CountsInvalid, LayerInvalid, LoadInvalid, PointInvalid, ReadFailed };

/// Where the focus goes after a failed import: to QUIT, or it stays.
enum class ImportFocus { FocusUnchanged, FocusQuit };

/// Why a file gave no data.
struct InputFailure {
    InputError Error = InputError::ReadFailed;
    ImportFocus Focus = ImportFocus::FocusUnchanged;
    Finding First;  ///< the first value that failed, or the place where the read ended
};

/// The data of a file that has passed as a whole, or its failure: never both, never neither.
template <class Data>
class InputResult {
public:
    InputResult(Data data) : either_(std::move(data)) {}
    InputResult(InputFailure failure) : either_(std::move(failure)) {}

    bool Passed() const { return std::holds_alternative<Data>(either_); }
    /// The data. Only where it has passed.
    Data& operator*() & { return std::get<Data>(either_); }
    const Data& operator*() const& { return std::get<Data>(either_); }
    Data&& operator*() && { return std::get<Data>(std::move(either_)); }
    Data* operator->() { return &std::get<Data>(either_); }
    const Data* operator->() const { return &std::get<Data>(either_); }
    /// Only where it has not.
    const InputFailure& Failure() const { return std::get<InputFailure>(either_); }

private:
    std::variant<Data, InputFailure> either_;
};

/// The first of the two messages that the user sees: k = 56 or 58 to 61; 0 for ReadFailed, which says nothing.
Int16 MessageOf(InputError error);

}  // namespace zirvo
