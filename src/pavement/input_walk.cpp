// The steps that both kinds of input file share, see input_walk.h.
#include "pavement/input_walk.h"

#include <array>

#include "pavement/pavement_blocks.h"
#include "pavement/pavement_rules.h"

namespace zirvo {

namespace {

/// The values of a row by column.
template <class Row, std::size_t Columns>
std::array<double, Columns> ValuesOf(const Row& row, const std::array<double Row::*, Columns>& fields) {
    std::array<double, Columns> values{};
    for (std::size_t c = 0; c < Columns; ++c) {
        values[c] = row.*fields[c];
    }
    return values;
}

}  // namespace

InputWalk::InputWalk(std::istream& input, LoadedPavement& pavement, bool listAll)
    : stream_(input), pavement_(pavement), listAll_(listAll) {}

void InputWalk::At(DataGroup group, int row, const char* value) {
    group_ = group;
    row_ = row;
    value_ = value;
}

void InputWalk::NoteFailure(InputError error, ImportFocus focus) {
    if (!failure_) {
        failure_ = InputFailure{.Error = error, .Focus = focus, .First = {}};
    }
}

bool InputWalk::Refuse(InputError error, ImportFocus focus, Finding finding) {
    NoteFailure(error, focus);
    findings_.push_back(std::move(finding));
    return listAll_;
}

void InputWalk::SkipHeadings(int count) {
    At(DataGroup::File, 0, "");
    SkipTextFields(stream_, count);
}

bool InputWalk::ReadCount(const char* value, Int16& count) {
    At(DataGroup::Counts, 0, value);
    count = ReadIntegerField(stream_);
    if (count < 0) {
        Refuse(InputError::ReadFailed, ImportFocus::FocusUnchanged,
               {group_, row_, value_, std::to_string(count), std::string(ReasonOf(Refusal::Negative))});
        return false;
    }
    return true;
}

bool InputWalk::JudgeCount(const char* value, Int16 count) {
    return count != 0 || Refuse(InputError::CountsInvalid, ImportFocus::FocusQuit,
                                {DataGroup::Counts, 0, value, "0", std::string(ReasonOf(Refusal::Zero))});
}

bool InputWalk::ReadLayers(ImportFocus ofUpper) {
    for (int i = 1; i <= pavement_.LayerCount; ++i) {
        const bool last = i == pavement_.LayerCount;
        if (!ReadLayer(i, last, last ? ImportFocus::FocusQuit : ofUpper)) {
            return false;
        }
    }
    // A group without rows has been refused above; what stands behind it can belong to anything.
    return pavement_.LayerCount > 0;
}

bool InputWalk::ReadLayer(int i, bool last, ImportFocus focus) {
    At(DataGroup::Layers, i, "");
    PavementLayer& layer = pavement_.Layers[i];  // a row beyond the bound faults before anything of it is read
    for (std::size_t c = 0; c < FieldsOfLayer(last); ++c) {
        value_ = LayerValueNames[c];
        layer.*LayerFields[c] = ReadNumberField(stream_);
    }
    const RowRefusals<LayerColumns> refusals = JudgeLayer(layer, last);
    if (Passes(refusals)) {
        return true;
    }
    layersRefused_ = true;
    NoteFailure(InputError::LayerInvalid, focus);
    AddRowFindings(group_, row_, LayerValueNames, ValuesOf(layer, LayerFields), refusals, findings_);
    return listAll_;
}

bool InputWalk::ReadLoads() {
    SkipHeadings(3);
    for (int i = 1; i <= pavement_.LoadCount; ++i) {
        if (!ReadLoad(i)) {
            return false;
        }
    }
    return pavement_.LoadCount > 0;
}

bool InputWalk::ReadLoad(int i) {
    At(DataGroup::Loads, i, "");
    SurfaceLoad& load = pavement_.Loads[i];
    for (std::size_t c = 0; c < LoadColumns; ++c) {
        value_ = LoadValueNames[c];
        load.*LoadFields[c] = ReadNumberField(stream_);
    }
    const RowRefusals<LoadColumns> refusals = JudgeLoad(load);
    if (Passes(refusals)) {
        return true;
    }
    NoteFailure(InputError::LoadInvalid, ImportFocus::FocusQuit);
    AddRowFindings(group_, row_, LoadValueNames, ValuesOf(load, LoadFields), refusals, findings_);
    return listAll_;
}

InputFailure OpenFailure(const RuntimeFault& caught) {
    return {.First = {DataGroup::File, 0, "", "", caught.what()}};
}

}  // namespace zirvo
