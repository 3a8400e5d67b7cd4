// The rules of a problem, see check_problem.h.
#include "solver/check_problem.h"

#include <array>
#include <charconv>
#include <cmath>

namespace zirvo::solver {
namespace {

using Part = ProblemFault::Part;

constexpr double HighestPoissonRatio = 0.5;
constexpr double HighestSlipRate = 0.99;
constexpr double DepthRounding = 1e-9;  // of the sums of thicknesses [cm]

std::string NumberText(double x) {
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), x).ptr};
}

class Judge {
public:
    explicit Judge(Problem& problem) : problem_(problem) {}

    std::vector<ProblemFault> Run() {
        JudgeCounts();
        for (std::size_t i = 0; i < problem_.Layers.size(); ++i) {
            JudgeLayer(i);
        }
        layersFail_ = !faults_.empty();
        for (std::size_t i = 0; i < problem_.Loads.size(); ++i) {
            JudgeLoad(i);
        }
        MakeTops();
        for (std::size_t i = 0; i < problem_.Points.size(); ++i) {
            JudgePoint(i);
        }
        return std::move(faults_);
    }

private:
    Problem& problem_;
    std::vector<ProblemFault> faults_;
    std::vector<double> tops_;
    bool layersFail_ = false;

    void Refuse(Part part, std::size_t index, const char* value, double number, std::string reason) {
        const int row = part == Part::Counts ? 0 : static_cast<int>(index) + 1;
        faults_.push_back({part, row, value, number, std::move(reason)});
    }

    /// True if the number is one; what is none is refused here.
    bool IsNumber(Part part, std::size_t index, const char* value, double number) {
        if (!std::isfinite(number)) {
            Refuse(part, index, value, number, "is no finite number");
            return false;
        }
        return true;
    }

    void RequirePositive(Part part, std::size_t index, const char* value, double number) {
        if (IsNumber(part, index, value, number) && !(number > 0)) {
            Refuse(part, index, value, number, "is not above 0");
        }
    }

    void JudgeCounts() {
        const std::size_t layers = problem_.Layers.size();
        if (layers == 0 || layers > MostLayers) {
            Refuse(Part::Counts, 0, "LayerCount", static_cast<double>(layers), layers == 0 ? "is 0" : "is above 100");
        }
        if (problem_.Loads.empty()) {
            Refuse(Part::Counts, 0, "LoadCount", 0, "is 0");
        }
    }

    void JudgeLayer(std::size_t i) {
        const Layer& layer = problem_.Layers[i];
        RequirePositive(Part::Layer, i, "Modulus", layer.Modulus);
        RequirePositive(Part::Layer, i, "PoissonRatio", layer.PoissonRatio);
        if (layer.PoissonRatio > HighestPoissonRatio && std::isfinite(layer.PoissonRatio)) {
            Refuse(Part::Layer, i, "PoissonRatio", layer.PoissonRatio, "is above 0.5");
        }
        if (i + 1 == problem_.Layers.size()) {
            return;
        }
        RequirePositive(Part::Layer, i, "Thickness", layer.Thickness);
        if (IsNumber(Part::Layer, i, "SlipRate", layer.SlipRate)) {
            if (layer.SlipRate < 0) {
                Refuse(Part::Layer, i, "SlipRate", layer.SlipRate, "is below 0");
            } else if (layer.SlipRate > HighestSlipRate) {
                Refuse(Part::Layer, i, "SlipRate", layer.SlipRate, "is above 0.99");
            }
        }
    }

    void JudgeLoad(std::size_t i) {
        const Load& load = problem_.Loads[i];
        IsNumber(Part::Load, i, "VerticalLoad", load.Vertical);
        RequirePositive(Part::Load, i, "Radius", load.Radius);
        IsNumber(Part::Load, i, "LoadX", load.X);
        IsNumber(Part::Load, i, "LoadY", load.Y);
        IsNumber(Part::Load, i, "HorizontalLoad", load.Horizontal);
        IsNumber(Part::Load, i, "AngleFromX", load.Angle);
        if (load.Vertical == 0 && load.Horizontal == 0) {
            Refuse(Part::Load, i, "VerticalLoad", 0, "is 0, and so is HorizontalLoad: the load does nothing");
        }
    }

    void MakeTops() {
        double top = 0;
        for (const Layer& layer : problem_.Layers) {
            tops_.push_back(top);
            top += layer.Thickness;
        }
    }

    void JudgePoint(std::size_t i) {
        Point& point = problem_.Points[i];
        const bool x = IsNumber(Part::Point, i, "PointX", point.X);  // each is told
        const bool y = IsNumber(Part::Point, i, "PointY", point.Y);
        const bool z = IsNumber(Part::Point, i, "PointZ", point.Z);
        if (point.Layer == 0 && std::fabs(point.Z) <= DepthRounding) {
            point.Layer = 1;
        }
        if (point.Layer < 1 || static_cast<std::size_t>(point.Layer) > tops_.size()) {
            Refuse(Part::Point, i, "LayerNumber", point.Layer,
                   "names no layer: there are " + std::to_string(tops_.size()));
        } else if (x && y && z && !layersFail_) {
            JudgeDepth(i, static_cast<std::size_t>(point.Layer) - 1);
        }
    }

    void JudgeDepth(std::size_t i, std::size_t layer) {
        double& z = problem_.Points[i].Z;
        const bool last = layer + 1 == tops_.size();
        const std::string name = "layer " + std::to_string(layer + 1) + " at ";
        if (z < tops_[layer] - DepthRounding) {
            Refuse(Part::Point, i, "PointZ", z, "lies above the top of " + name + NumberText(tops_[layer]) + " cm");
        } else if (!last && z > tops_[layer + 1] + DepthRounding) {
            Refuse(Part::Point, i, "PointZ", z,
                   "lies below the bottom of " + name + NumberText(tops_[layer + 1]) + " cm");
        } else if (z < tops_[layer]) {
            z = tops_[layer];
        } else if (!last && z > tops_[layer + 1]) {
            z = tops_[layer + 1];
        }
    }
};

}  // namespace

std::string ProblemFault::Text() const {
    constexpr std::array Parts{"counts", "layer", "load", "point"};
    std::string text = Parts[static_cast<std::size_t>(Where)];
    if (Row > 0) {
        text += ' ' + std::to_string(Row);
    }
    return text + ", " + Value + ' ' + NumberText(Number) + ": " + Reason;
}

std::vector<ProblemFault> CheckProblem(Problem& problem) {
    return Judge(problem).Run();
}

}  // namespace zirvo::solver
