// Reading and checking the analysis input file, see analysis_input.h.
//
// Both are one walk through the file, so that they cannot differ: the import stops at the first failure, the check goes
// on as long as the rest of the file can still be told apart.
#include <fstream>
#include <string>
#include <utility>

#include "pavement/analysis_input.h"
#include "pavement/pavement_blocks.h"
#include "pavement/pavement_rules.h"
#include "platform/code_page.h"
#include "platform/open_file.h"
#include "text/number_text.h"
#include "text/text_fields.h"

namespace zirvo {

namespace {

class InputWalk {
public:
    InputWalk(std::istream& input, bool listAll) : stream_(input), listAll_(listAll) {}

    void Run() {
        try {
            (void)(ReadHead() && JudgeNames() && JudgeCounts() && ReadLayers() && ReadLoads() && ReadPoints() &&
                   JudgeDepths());
        } catch (const RuntimeFault& caught) {
            Refuse(AnalysisInputStatus::ReadFailed, ImportFocus::FocusUnchanged,
                   {group_, row_, value_, "", ReasonOf(caught)});
            if (listAll_) {
                JudgeDepths();  // of the points before the place where the read ended
            }
        }
    }

    AnalysisInputResult TakeResult() {
        AnalysisInputResult result;
        result.Status = status_;
        result.Focus = focus_;
        if (result.Passed()) {
            result.Model = std::move(model_);
        } else {
            result.Failure = findings_.front();
        }
        return result;
    }

    std::vector<Finding> TakeFindings() { return std::move(findings_); }

private:
    TextStream stream_;
    bool listAll_;
    PavementModel model_;
    AnalysisInputStatus status_ = AnalysisInputStatus::Passed;
    ImportFocus focus_ = ImportFocus::FocusUnchanged;
    std::vector<Finding> findings_;
    bool layersRefused_ = false;
    int pointsRead_ = 0;

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
    void NoteStatus(AnalysisInputStatus status, ImportFocus focus) {
        if (status_ == AnalysisInputStatus::Passed) {
            status_ = status;
            focus_ = focus;
        }
    }

    /// Notes a failure; true if the walk goes on all the same.
    bool Refuse(AnalysisInputStatus status, ImportFocus focus, Finding finding) {
        NoteStatus(status, focus);
        findings_.push_back(std::move(finding));
        return listAll_;
    }

    bool RefuseRow(AnalysisInputStatus status, ImportFocus focus, std::span<const char* const> names,
                   std::span<const double> values, std::span<const Refusal> refusals) {
        NoteStatus(status, focus);
        AddRowFindings(group_, row_, names, values, refusals, findings_);
        return listAll_;
    }

    bool ReadHead() {
        SkipTextFields(stream_, 1);
        ReadName("ResultFileName", model_.ResultFileName);
        ReadName("PrincipalFileName", model_.PrincipalFileName);
        At(DataGroup::File, 0, "");
        SkipTextFields(stream_, 2);
        if (!ReadCount("LayerCount", model_.LayerCount) || !ReadCount("LoadCount", model_.LoadCount) ||
            !ReadCount("PointCount", model_.PointCount)) {
            return false;
        }
        At(DataGroup::File, 0, "");
        SkipTextFields(stream_, 3);
        return true;
    }

    void ReadName(const char* value, std::string& name) {
        At(DataGroup::Names, 0, value);
        name = DecodeName(ReadTextFieldBytes(stream_));
    }

    /// A count below 0 ends the read at once and before anything is judged, as one beyond 16 bits does.
    bool ReadCount(const char* value, Int16& count) {
        At(DataGroup::Counts, 0, value);
        count = ReadIntegerField(stream_);
        if (count < 0) {
            Refuse(AnalysisInputStatus::ReadFailed, ImportFocus::FocusUnchanged,
                   {group_, row_, value_, std::to_string(count), std::string(ReasonOf(Refusal::Negative))});
            return false;
        }
        return true;
    }

    /// Both names are tested for being there before either is tested further. The focus follows the test that failed: a
    /// principal name without a point leaves it where it is, a result name without one does not.
    bool JudgeNames() {
        const Refusal result = JudgeReportName(model_.ResultFileName, ".bre");
        const Refusal principal = JudgeReportName(model_.PrincipalFileName, ".san");
        const bool principalMoves = principal == Refusal::WrongExtension;
        return JudgeName("ResultFileName", model_.ResultFileName, result, result == Refusal::Empty, false) &&
               JudgeName("PrincipalFileName", model_.PrincipalFileName, principal, principal == Refusal::Empty,
                         false) &&
               JudgeName("ResultFileName", model_.ResultFileName, result, result != Refusal::Empty, true) &&
               JudgeName("PrincipalFileName", model_.PrincipalFileName, principal, principal != Refusal::Empty,
                         principalMoves);
    }

    bool JudgeName(const char* value, const std::string& name, Refusal refusal, bool now, bool focusMoves) {
        return !now || refusal == Refusal::None ||
               Refuse(AnalysisInputStatus::NamesInvalid,
                      focusMoves ? ImportFocus::FocusQuit : ImportFocus::FocusUnchanged,
                      {DataGroup::Names, 0, value, name, std::string(ReasonOf(refusal))});
    }

    bool JudgeCounts() {
        return JudgeCount("LayerCount", model_.LayerCount) && JudgeCount("LoadCount", model_.LoadCount) &&
               JudgeCount("PointCount", model_.PointCount);
    }

    bool JudgeCount(const char* value, Int16 count) {
        return count != 0 || Refuse(AnalysisInputStatus::CountsInvalid, ImportFocus::FocusQuit,
                                    {DataGroup::Counts, 0, value, "0", std::string(ReasonOf(Refusal::Zero))});
    }

    bool ReadLayers() {
        for (int i = 1; i <= model_.LayerCount; ++i) {
            if (!ReadLayer(i, i == model_.LayerCount)) {
                return false;
            }
        }
        // A group without rows has been refused above; what stands behind it can belong to anything.
        return model_.LayerCount > 0;
    }

    bool ReadLayer(int i, bool last) {
        At(DataGroup::Layers, i, "");
        PavementLayer& layer = model_.Layers[i];  // a row beyond the bound faults before anything of it is read
        ReadLayerRow(stream_, last, layer, value_);
        const RowRefusals<LayerColumns> refusals = JudgeLayer(layer, last);
        if (Passes(refusals)) {
            return true;
        }
        layersRefused_ = true;
        const std::array<double, LayerColumns> values{layer.Modulus, layer.PoissonRatio, layer.Thickness,
                                                      layer.SlipRate};
        return RefuseRow(AnalysisInputStatus::LayerInvalid, last ? ImportFocus::FocusQuit : ImportFocus::FocusUnchanged,
                         LayerValueNames, values, refusals);
    }

    bool ReadLoads() {
        At(DataGroup::File, 0, "");
        SkipTextFields(stream_, 3);
        for (int i = 1; i <= model_.LoadCount; ++i) {
            if (!ReadLoad(i)) {
                return false;
            }
        }
        return model_.LoadCount > 0;
    }

    bool ReadLoad(int i) {
        At(DataGroup::Loads, i, "");
        SurfaceLoad& load = model_.Loads[i];
        ReadLoadRow(stream_, load, value_);
        const RowRefusals<LoadColumns> refusals = JudgeLoad(load);
        const std::array<double, LoadColumns> values{load.VerticalLoad, load.Radius,         load.LoadX,
                                                     load.LoadY,        load.HorizontalLoad, load.AngleFromX};
        return Passes(refusals) ||
               RefuseRow(AnalysisInputStatus::LoadInvalid, ImportFocus::FocusQuit, LoadValueNames, values, refusals);
    }

    bool ReadPoints() {
        At(DataGroup::File, 0, "");
        SkipTextFields(stream_, 3);
        for (int i = 1; i <= model_.PointCount; ++i) {
            ReadPoint(i);
            pointsRead_ = i;
        }
        return true;
    }

    void ReadPoint(int i) {
        At(DataGroup::Points, i, "");
        InterestPoint& point = model_.Points[i];
        value_ = PointValueNames[0];
        point.LayerNumber = ReadIntegerField(stream_);
        value_ = PointValueNames[1];
        point.PointX = ReadNumberField(stream_);
        value_ = PointValueNames[2];
        point.PointY = ReadNumberField(stream_);
        value_ = PointValueNames[3];
        point.PointZ = ReadNumberField(stream_);
    }

    /// A depth below 0 has no test of its own here: it fails only where it leaves the layer that the point names.
    bool JudgeDepths() {
        if (pointsRead_ == 0) {
            return true;
        }
        const LayerTops tops = ComputeLayerTops(model_.Layers.UpTo(model_.LayerCount));
        for (int i = 1; i <= pointsRead_; ++i) {
            const InterestPoint& point = model_.Points[i];
            const Refusal refusal = JudgePointDepth(point, tops, model_.LayerCount);
            if (refusal == Refusal::None || (layersRefused_ && refusal != Refusal::NoSuchLayer)) {
                continue;
            }
            const bool number = refusal == Refusal::NoSuchLayer;
            if (!Refuse(AnalysisInputStatus::PointInvalid, ImportFocus::FocusQuit,
                        {DataGroup::Points, i, PointValueNames[number ? 0 : 3],
                         number ? std::to_string(point.LayerNumber) : FormatNumberText(point.PointZ),
                         DepthReasonOf(refusal, point, tops, model_.LayerCount)})) {
                return false;
            }
        }
        return true;
    }
};

Finding OpenFinding(const RuntimeFault& caught) {
    return {DataGroup::File, 0, "", "", caught.what()};
}

}  // namespace

AnalysisInputResult ReadAnalysisInput(const std::string& path) {
    try {
        std::ifstream file = OpenForReading(path);
        return ReadAnalysisInput(file);
    } catch (const RuntimeFault& caught) {
        AnalysisInputResult result;
        result.Failure = OpenFinding(caught);
        return result;
    }
}

AnalysisInputResult ReadAnalysisInput(std::istream& input) {
    InputWalk walk(input, false);
    walk.Run();
    return walk.TakeResult();
}

std::vector<Finding> CheckAnalysisInput(const std::string& path) {
    try {
        std::ifstream file = OpenForReading(path);
        return CheckAnalysisInput(file);
    } catch (const RuntimeFault& caught) {
        return {OpenFinding(caught)};
    }
}

std::vector<Finding> CheckAnalysisInput(std::istream& input) {
    InputWalk walk(input, true);
    walk.Run();
    return walk.TakeFindings();
}

}  // namespace zirvo
