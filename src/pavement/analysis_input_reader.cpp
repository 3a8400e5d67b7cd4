// Reading and checking the analysis input file, see analysis_input.h.
#include <array>
#include <string>
#include <utility>

#include "pavement/analysis_input.h"
#include "pavement/input_walk.h"
#include "pavement/pavement_rules.h"
#include "platform/code_page.h"
#include "text/number_text.h"

namespace zirvo {

namespace {

class AnalysisWalk : public InputWalk {
public:
    AnalysisWalk(std::istream& input, bool listAll) : InputWalk(input, model_, listAll) {}

    AnalysisInputResult Read() {
        Run();
        return Result(std::move(model_));
    }

    std::vector<Finding> Check() {
        Run();
        return TakeFindings();
    }

private:
    PavementModel model_;
    int pointsRead_ = 0;

    void Run() {
        const bool unbroken = Unbroken([this] {
            (void)(ReadHead() && JudgeNames() && JudgeCounts() && ReadLayers(ImportFocus::FocusUnchanged) &&
                   ReadLoads() && ReadPoints() && JudgeDepths());
        });
        if (!unbroken && ListsAll()) {
            JudgeDepths();  // of the points before the place where the read ended
        }
    }

    bool ReadHead() {
        SkipHeadings(1);
        ReadName("ResultFileName", model_.ResultFileName);
        ReadName("PrincipalFileName", model_.PrincipalFileName);
        SkipHeadings(2);
        if (!ReadCount("LayerCount", model_.LayerCount) || !ReadCount("LoadCount", model_.LoadCount) ||
            !ReadCount("PointCount", model_.PointCount)) {
            return false;
        }
        SkipHeadings(3);
        return true;
    }

    void ReadName(const char* value, std::string& name) {
        At(DataGroup::Names, 0, value);
        name = DecodeName(ReadTextFieldBytes(Stream()));
    }

    /// Both names are tested for being there before either is tested further. The focus follows the test that failed: a
    /// principal name without a point leaves it where it is, a result name without one does not.
    bool JudgeNames() {
        const Refusal result = JudgeReportName(model_.ResultFileName, ".bre");
        const Refusal principal = JudgeReportName(model_.PrincipalFileName, ".san");
        const ImportFocus ofPrincipal =
            principal == Refusal::WrongExtension ? ImportFocus::FocusQuit : ImportFocus::FocusUnchanged;
        return (result != Refusal::Empty || RefuseResultName(result, ImportFocus::FocusUnchanged)) &&
               (principal != Refusal::Empty || RefusePrincipalName(principal, ImportFocus::FocusUnchanged)) &&
               (!FailsFurther(result) || RefuseResultName(result, ImportFocus::FocusQuit)) &&
               (!FailsFurther(principal) || RefusePrincipalName(principal, ofPrincipal));
    }

    static bool FailsFurther(Refusal refusal) { return refusal != Refusal::None && refusal != Refusal::Empty; }

    bool RefuseResultName(Refusal refusal, ImportFocus focus) {
        return RefuseName("ResultFileName", model_.ResultFileName, refusal, focus);
    }

    bool RefusePrincipalName(Refusal refusal, ImportFocus focus) {
        return RefuseName("PrincipalFileName", model_.PrincipalFileName, refusal, focus);
    }

    bool RefuseName(const char* value, const std::string& name, Refusal refusal, ImportFocus focus) {
        return Refuse(InputError::NamesInvalid, focus,
                      {DataGroup::Names, 0, value, name, std::string(ReasonOf(refusal))});
    }

    bool JudgeCounts() {
        return JudgeCount("LayerCount", model_.LayerCount) && JudgeCount("LoadCount", model_.LoadCount) &&
               JudgeCount("PointCount", model_.PointCount);
    }

    bool ReadPoints() {
        SkipHeadings(3);
        for (int i = 1; i <= model_.PointCount; ++i) {
            ReadPoint(i);
            pointsRead_ = i;
        }
        return true;
    }

    void ReadPoint(int i) {
        At(DataGroup::Points, i, "");
        InterestPoint& point = model_.Points[i];
        At(DataGroup::Points, i, PointValueNames[0]);
        point.LayerNumber = ReadIntegerField(Stream());
        At(DataGroup::Points, i, PointValueNames[1]);
        point.PointX = ReadNumberField(Stream());
        At(DataGroup::Points, i, PointValueNames[2]);
        point.PointY = ReadNumberField(Stream());
        At(DataGroup::Points, i, PointValueNames[3]);
        point.PointZ = ReadNumberField(Stream());
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
            if (refusal == Refusal::None || (LayersRefused() && refusal != Refusal::NoSuchLayer)) {
                continue;
            }
            const bool number = refusal == Refusal::NoSuchLayer;
            if (!Refuse(InputError::PointInvalid, ImportFocus::FocusQuit,
                        {DataGroup::Points, i, PointValueNames[number ? 0 : 3],
                         number ? std::to_string(point.LayerNumber) : FormatNumberText(point.PointZ),
                         DepthReasonOf(refusal, point, tops, model_.LayerCount)})) {
                return false;
            }
        }
        return true;
    }
};

}  // namespace

AnalysisInputResult ReadAnalysisInput(const std::string& path) {
    return ReadByWalk<AnalysisWalk>(path);
}

AnalysisInputResult ReadAnalysisInput(std::istream& input) {
    return AnalysisWalk(input, false).Read();
}

std::vector<Finding> CheckAnalysisInput(const std::string& path) {
    return CheckByWalk<AnalysisWalk>(path);
}

std::vector<Finding> CheckAnalysisInput(std::istream& input) {
    return AnalysisWalk(input, true).Check();
}

}  // namespace zirvo
