#include "solver/wavenumbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "solver/tables.h"

namespace zirvo::solver {

namespace {
constexpr double Margin = 50;  // K: decay of the trapezoid's error in the mapped variable
constexpr double SlipMargin = 58;
constexpr double PhaseRange = 40;   // c times the reach
constexpr double LowShare = 1e-4;   // of the reciprocal thickness: the kernel is constant below
constexpr double StartBelow = 4;    // the doubly exponential end: exp(-exp(4)) is nothing
constexpr double WindowSigma = 16;  // sigma times the gap
constexpr double MildWindowSigma = 13;
constexpr double CarefulWindowSigma = 20;  // where the step has been halved
constexpr double WindowMiddle = 6;         // centre and half width of the window in sigmas
constexpr double CarefulWindowMiddle = 7;
}  // namespace

NodeRule MakeNodeRule(const WaveRange& range, int refinement, bool slips) {
    NodeRule rule;
    // Few digits, so that nodes are known beyond a double.
    const auto Shortened = [](double x) { return static_cast<double>(static_cast<float>(x)); };
    rule.C = Shortened(std::min(PhaseRange / range.Reach, 0.25 * range.Largest));
    rule.LowEnd = std::min(std::log(LowShare / (range.Thickness * rule.C)), -8.0);
    rule.Start = Shortened(rule.LowEnd - StartBelow);
    rule.Step = Shortened(2 * 3.14159265358979323846 / ((slips ? SlipMargin : Margin) + rule.C * range.Reach));
    for (int i = 0; i < refinement; ++i) {
        rule.Step *= 0.5;
    }
    if (range.Gap > 0) {
        const double sigma = range.Mild ? MildWindowSigma : WindowSigma;
        rule.WindowWidth = (refinement == 0 ? sigma : CarefulWindowSigma) / range.Gap;
        rule.WindowCentre = (refinement == 0 ? WindowMiddle : CarefulWindowMiddle) * rule.WindowWidth;
    }
    return rule;
}

double WindowEnd(const NodeRule& rule) {
    return rule.WindowWidth > 0 ? 2 * rule.WindowCentre : std::numeric_limits<double>::infinity();
}

void FillNodes(const Engine& engine, const NodeRule& rule, long first, int count, double* xi, double* xiLow,
               double* weight) {
    const NodeMap map{rule.C,    std::exp(rule.LowEnd), rule.Start,
                      rule.Step, rule.WindowCentre,     rule.WindowWidth > 0 ? 1 / rule.WindowWidth : 0};
    engine.Nodes(NodeParts(), map, static_cast<double>(first), count, xi, xiLow, weight);
}

double NodesBelow(const NodeRule& rule, double largest) {
    const double ratio = largest / rule.C;
    const double s = ratio > 30 ? ratio : std::log(std::expm1(ratio));
    return (s - rule.Start) / rule.Step;
}

double RoughNodes(const NodeRule& rule, double largest) {
    const double ratio = largest / rule.C;
    return ((ratio > 1.5 ? ratio : std::log(ratio) + 0.5 * ratio) - rule.Start) / rule.Step;
}

}  // namespace zirvo::solver
