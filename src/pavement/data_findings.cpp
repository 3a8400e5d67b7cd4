// Findings in words, see data_findings.h.
#include "pavement/data_findings.h"

#include <cmath>

#include "text/number_text.h"

namespace zirvo {

namespace {

std::string_view GroupText(DataGroup group) {
    switch (group) {
        case DataGroup::Names:
            return "report names";
        case DataGroup::Counts:
            return "counts";
        case DataGroup::Layers:
            return "layer";
        case DataGroup::Loads:
            return "load";
        case DataGroup::Points:
            return "point";
        case DataGroup::File:
            break;
    }
    return "file";
}

}  // namespace

std::string FindingText(const Finding& finding) {
    std::string text(GroupText(finding.Group));
    if (finding.Row > 0) {
        text.append(" ").append(std::to_string(finding.Row));
    }
    if (!finding.Value.empty()) {
        text.append(", ").append(finding.Value);
    }
    if (!finding.Text.empty()) {
        text.append(" ").append(finding.Text);
    }
    return text.append(": ").append(finding.Reason);
}

std::string_view ReasonOf(Refusal refusal) {
    switch (refusal) {
        case Refusal::Empty:
            return "is empty";
        case Refusal::NotPositive:
            return "is not above 0";
        case Refusal::Negative:
            return "is below 0";
        case Refusal::AbovePoissonLimit:
            return "is above 0.5";
        case Refusal::AboveSlipLimit:
            return "is above 0.99";
        case Refusal::NoLoad:
            return "is 0, and so is HorizontalLoad: the load does nothing";
        case Refusal::OutsideSixteenBits:
            return "is outside -32768 to 32767";
        case Refusal::NoSuchLayer:
            return "names no layer of this pavement";
        case Refusal::AboveItsLayer:
            return "lies above the top of the layer that the point names";
        case Refusal::BelowItsLayer:
            return "lies below the bottom of the layer that the point names";
        case Refusal::NoPoint:
            return "has no point, so no extension";
        case Refusal::WrongExtension:
            return "has another extension";
        case Refusal::Zero:
            return "is 0";
        case Refusal::None:
            break;
    }
    return "passes";
}

std::string DepthReasonOf(Refusal refusal, const InterestPoint& point, const LayerTops& tops, int layerCount) {
    const int layer = point.LayerNumber;
    const std::string layerText = std::to_string(layer);
    const auto depthText = [&tops](int of) {
        const double depth = tops[static_cast<std::size_t>(of)];
        // Thicknesses of any size are let through, and their sum can leave the range of a double.
        return std::isfinite(depth) ? FormatNumberText(depth) + " cm" : std::string("no depth that a number can hold");
    };
    switch (refusal) {
        case Refusal::NoSuchLayer:
            return "names no layer: there are " + std::to_string(layerCount);
        case Refusal::AboveItsLayer:
            return "lies above the top of layer " + layerText + " at " + depthText(layer);
        case Refusal::BelowItsLayer:
            return "lies below the bottom of layer " + layerText + " at " + depthText(layer + 1);
        default:
            return std::string(ReasonOf(refusal));
    }
}

std::string ReasonOf(const RuntimeFault& caught) {
    switch (caught.Number()) {
        case fault::InvalidCall:
            return "is longer than any field may be";
        case fault::Overflow:
            return "is outside -32768 to 32767";
        case fault::SubscriptOutOfRange:
            return "more rows than an analysis can have";
        case fault::TypeMismatch:
            return "is not a number of the kind that belongs here, or two numbers touch";
        case fault::InputPastEnd:
            return "the file ends here";
        default:
            return caught.what();
    }
}

void AddRowFindings(DataGroup group, int row, std::span<const char* const> names, std::span<const double> values,
                    std::span<const Refusal> refusals, std::vector<Finding>& findings) {
    for (std::size_t c = 0; c < refusals.size(); ++c) {
        if (refusals[c] != Refusal::None) {
            findings.push_back({group, row, names[c], FormatNumberText(values[c]), std::string(ReasonOf(refusals[c]))});
        }
    }
}

}  // namespace zirvo
