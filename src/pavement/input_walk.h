// The walk through an input file that both kinds of it share: counts, layers, loads, and what is noted on the way.
//
// Reading and checking are one walk, so that they cannot differ: the import stops at the first failure, the check goes
// on as long as the rest of the file can still be told apart. Each step gives whether the walk goes on.
// Callers: the readers of ".eva" and ".ven".
#pragma once
#include <istream>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "pavement/input_result.h"
#include "platform/open_file.h"
#include "text/text_fields.h"

namespace zirvo {

class InputWalk {
public:
    InputWalk(const InputWalk&) = delete;
    InputWalk& operator=(const InputWalk&) = delete;

    std::vector<Finding> TakeFindings() { return std::move(findings_); }

protected:
    /// @param pavement  takes what is read
    /// @param listAll   goes on behind a refused value
    InputWalk(std::istream& input, LoadedPavement& pavement, bool listAll);
    ~InputWalk() = default;

    TextStream& Stream() { return stream_; }
    bool ListsAll() const { return listAll_; }
    bool LayersRefused() const { return layersRefused_; }

    /// Runs the steps; false if a fault broke the read, which is then noted as the place where it ended.
    template <class Steps>
    bool Unbroken(Steps steps) {
        try {
            steps();
            return true;
        } catch (const RuntimeFault& caught) {
            Refuse(InputError::ReadFailed, ImportFocus::FocusUnchanged, {group_, row_, value_, "", ReasonOf(caught)});
            return false;
        }
    }

    /// The data if nothing was refused.
    template <class Data>
    InputResult<Data> Result(Data data) {
        if (!failure_) {
            return data;
        }
        failure_->First = findings_.front();
        return *failure_;
    }

    /// What is being read from now on, for a fault on the way.
    void At(DataGroup group, int row, const char* value);

    /// Notes a failure; the first one decides what the user is told.
    bool Refuse(InputError error, ImportFocus focus, Finding finding);

    /// Headings and empty lines, whose words do not matter: `count` text fields.
    void SkipHeadings(int count);

    /// A count below 0 ends the read at once and before anything is judged, as one beyond 16 bits does.
    bool ReadCount(const char* value, Int16& count);
    bool JudgeCount(const char* value, Int16 count);

    /// @param ofUpper  where the focus goes for a layer above the last one
    bool ReadLayers(ImportFocus ofUpper);
    bool ReadLoads();

private:
    bool ReadLayer(int i, bool last, ImportFocus focus);
    bool ReadLoad(int i);
    void NoteFailure(InputError error, ImportFocus focus);

    TextStream stream_;
    LoadedPavement& pavement_;
    bool listAll_;
    std::optional<InputFailure> failure_;
    std::vector<Finding> findings_;
    bool layersRefused_ = false;

    DataGroup group_ = DataGroup::File;
    int row_ = 0;
    const char* value_ = "";
};

/// The failure of a file that cannot be opened.
InputFailure OpenFailure(const RuntimeFault& caught);

/// The data of the file, by a walk of that kind.
template <class Walk>
auto ReadByWalk(const std::string& path) -> decltype(std::declval<Walk&>().Read()) {
    try {
        std::ifstream file = OpenForReading(path);
        return Walk(file, false).Read();
    } catch (const RuntimeFault& caught) {
        return OpenFailure(caught);
    }
}

/// All that the walk refuses in the file.
template <class Walk>
std::vector<Finding> CheckByWalk(const std::string& path) {
    try {
        std::ifstream file = OpenForReading(path);
        return Walk(file, true).Check();
    } catch (const RuntimeFault& caught) {
        return {OpenFailure(caught).First};
    }
}

}  // namespace zirvo
