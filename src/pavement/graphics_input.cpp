// Writing, reading and checking the graphics input file, see graphics_input.h.
//
// Reading and checking are one walk through the file, so that they cannot differ: the import stops at the first
// failure, the check goes on as long as the rest of the file can still be told apart.
#include "pavement/graphics_input.h"

#include <array>
#include <fstream>
#include <utility>

#include "pavement/pavement_blocks.h"
#include "pavement/pavement_rules.h"
#include "platform/open_file.h"
#include "text/text_fields.h"

namespace zirvo {

namespace {

// Widths that put the numbers roughly beneath the words of the heading.
constexpr std::size_t LayerCountWidth = 3;
constexpr std::size_t LoadCountWidth = 10;

class GraphicsInputWalk {
public:
    GraphicsInputWalk(std::istream& input, bool listAll) : stream_(input), listAll_(listAll) {}

    void Run() {
        try {
            (void)(ReadHead() && JudgeCounts() && ReadLayers() && ReadLoads());
        } catch (const RuntimeFault& caught) {
            Refuse(GraphicsInputStatus::ReadFailed, {group_, row_, value_, "", ReasonOf(caught)});
        }
    }

    GraphicsInputResult TakeResult() {
        GraphicsInputResult result;
        result.Status = status_;
        if (result.Passed()) {
            result.Data = std::move(data_);
        } else {
            // Where the values are wrong, and not the file, the user is led to leave or to choose anew.
            result.Focus =
                status_ == GraphicsInputStatus::ReadFailed ? ImportFocus::FocusUnchanged : ImportFocus::FocusQuit;
            result.Failure = findings_.front();
        }
        return result;
    }

    std::vector<Finding> TakeFindings() { return std::move(findings_); }

private:
    TextStream stream_;
    bool listAll_;
    GraphicsInputData data_;
    GraphicsInputStatus status_ = GraphicsInputStatus::Passed;
    std::vector<Finding> findings_;

    // What is being read, for a fault on the way.
    DataGroup group_ = DataGroup::File;
    int row_ = 0;
    const char* value_ = "";

    void At(DataGroup group, int row, const char* value) {
        group_ = group;
        row_ = row;
        value_ = value;
    }

    /// The first failure decides what the user is told.
    void NoteStatus(GraphicsInputStatus status) {
        if (status_ == GraphicsInputStatus::Passed) {
            status_ = status;
        }
    }

    /// Notes a failure; true if the walk goes on all the same.
    bool Refuse(GraphicsInputStatus status, Finding finding) {
        NoteStatus(status);
        findings_.push_back(std::move(finding));
        return listAll_;
    }

    bool RefuseRow(GraphicsInputStatus status, std::span<const char* const> names, std::span<const double> values,
                   std::span<const Refusal> refusals) {
        NoteStatus(status);
        AddRowFindings(group_, row_, names, values, refusals, findings_);
        return listAll_;
    }

    void SkipHeadings(int count) {
        At(DataGroup::File, 0, "");
        SkipTextFields(stream_, count);
    }

    /// The headings behind the counts are read before the counts are judged: a file that ends there is no file,
    /// whatever its counts are.
    bool ReadHead() {
        SkipHeadings(1);
        if (!ReadCount("LayerCount", data_.LayerCount) || !ReadCount("LoadCount", data_.LoadCount)) {
            return false;
        }
        SkipHeadings(3);
        return true;
    }

    /// A count below 0 ends the read at once and before anything is judged, as one beyond 16 bits does.
    bool ReadCount(const char* value, Int16& count) {
        At(DataGroup::Counts, 0, value);
        count = ReadIntegerField(stream_);
        if (count < 0) {
            Refuse(GraphicsInputStatus::ReadFailed,
                   {group_, row_, value_, std::to_string(count), std::string(ReasonOf(Refusal::Negative))});
            return false;
        }
        return true;
    }

    bool JudgeCounts() {
        return JudgeCount("LayerCount", data_.LayerCount) && JudgeCount("LoadCount", data_.LoadCount);
    }

    bool JudgeCount(const char* value, Int16 count) {
        return count != 0 || Refuse(GraphicsInputStatus::CountsInvalid,
                                    {DataGroup::Counts, 0, value, "0", std::string(ReasonOf(Refusal::Zero))});
    }

    bool ReadLayers() {
        for (int i = 1; i <= data_.LayerCount; ++i) {
            if (!ReadLayer(i, i == data_.LayerCount)) {
                return false;
            }
        }
        // A group without rows has been refused above; what stands behind it can belong to anything.
        return data_.LayerCount > 0;
    }

    bool ReadLayer(int i, bool last) {
        At(DataGroup::Layers, i, "");
        PavementLayer& layer = data_.Layers[i];  // a row beyond the bound faults before anything of it is read
        ReadLayerRow(stream_, last, layer, value_);
        const RowRefusals<LayerColumns> refusals = JudgeLayer(layer, last);
        const std::array<double, LayerColumns> values{layer.Modulus, layer.PoissonRatio, layer.Thickness,
                                                      layer.SlipRate};
        return Passes(refusals) || RefuseRow(GraphicsInputStatus::LayerInvalid, LayerValueNames, values, refusals);
    }

    bool ReadLoads() {
        SkipHeadings(3);
        for (int i = 1; i <= data_.LoadCount; ++i) {
            if (!ReadLoad(i)) {
                return false;
            }
        }
        return true;
    }

    bool ReadLoad(int i) {
        At(DataGroup::Loads, i, "");
        SurfaceLoad& load = data_.Loads[i];
        ReadLoadRow(stream_, load, value_);
        const RowRefusals<LoadColumns> refusals = JudgeLoad(load);
        const std::array<double, LoadColumns> values{load.VerticalLoad, load.Radius,         load.LoadX,
                                                     load.LoadY,        load.HorizontalLoad, load.AngleFromX};
        return Passes(refusals) || RefuseRow(GraphicsInputStatus::LoadInvalid, LoadValueNames, values, refusals);
    }
};

Finding OpenFinding(const RuntimeFault& caught) {
    return {DataGroup::File, 0, "", "", caught.what()};
}

}  // namespace

std::string WriteGraphicsInput(const GraphicsInputData& data, UnitSystem unitSystem, Int16 languageBase) {
    std::string out;
    AppendHeading(out, languageBase, 166);
    AppendColumn(out, data.LayerCount, LayerCountWidth);
    AppendColumn(out, data.LoadCount, LoadCountWidth);
    AppendLine(out, "");
    AppendLine(out, "");
    AppendLayerBlock(out, data.Layers.UpTo(data.LayerCount), unitSystem, languageBase);
    AppendLine(out, "");
    AppendLoadBlock(out, data.Loads.UpTo(data.LoadCount), unitSystem, languageBase);
    return out;
}

GraphicsInputResult ReadGraphicsInput(const std::string& path) {
    try {
        std::ifstream file = OpenForReading(path);
        return ReadGraphicsInput(file);
    } catch (const RuntimeFault& caught) {
        GraphicsInputResult result;
        result.Failure = OpenFinding(caught);
        return result;
    }
}

GraphicsInputResult ReadGraphicsInput(std::istream& input) {
    GraphicsInputWalk walk(input, false);
    walk.Run();
    return walk.TakeResult();
}

std::vector<Finding> CheckGraphicsInput(const std::string& path) {
    try {
        std::ifstream file = OpenForReading(path);
        return CheckGraphicsInput(file);
    } catch (const RuntimeFault& caught) {
        return {OpenFinding(caught)};
    }
}

std::vector<Finding> CheckGraphicsInput(std::istream& input) {
    GraphicsInputWalk walk(input, true);
    walk.Run();
    return walk.TakeFindings();
}

Int16 MessageOf(GraphicsInputStatus status) {
    switch (status) {
        case GraphicsInputStatus::CountsInvalid:
            return 58;
        case GraphicsInputStatus::LayerInvalid:
            return 59;
        case GraphicsInputStatus::LoadInvalid:
            return 60;
        case GraphicsInputStatus::Passed:
        case GraphicsInputStatus::ReadFailed:
            break;
    }
    return 0;
}

}  // namespace zirvo
