#include "solver/case_file.h"

#include <algorithm>
#include <boost/property_tree/json_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#include <cmath>
#include <filesystem>

namespace zirvo::solver {

namespace {

constexpr const char* ComponentNames[ComponentCount] = {"U",    "V",     "W",     "SIGx",  "SIGy",
                                                        "SIGz", "TAUxy", "TAUyz", "TAUzx", "EPSx",
                                                        "EPSy", "EPSz",  "GAMxy", "GAMyz", "GAMzx"};
constexpr double Pi = 3.14159265358979323846;

}  // namespace

CaseFile ReadCaseFile(const std::string& path) {
    boost::property_tree::ptree tree;
    boost::property_tree::read_json(path, tree);
    CaseFile file;
    file.Name = tree.get<std::string>("name");
    const int units = tree.get<int>("unit_system");
    const double force = units == 3 ? 10 : 1;  // kN to MPa cm2; kgf stays with kgf/cm2
    file.StressFactor = units == 2 ? 0.0980665 : 1;
    for (const auto& [key, layer] : tree.get_child("layers")) {
        file.TheProblem.Layers.push_back({layer.get<double>("E"), layer.get<double>("nu"), layer.get<double>("h", 0),
                                          layer.get<double>("alpha", 0)});
    }
    for (const auto& [key, load] : tree.get_child("loads")) {
        file.TheProblem.Loads.push_back({load.get<double>("P", 0) * force, load.get<double>("a"),
                                         load.get<double>("x", 0), load.get<double>("y", 0),
                                         load.get<double>("H", 0) * force, load.get<double>("theta_deg", 0)});
    }
    for (const auto& [key, point] : tree.get_child("points")) {
        file.TheProblem.Points.push_back(
            {point.get<int>("layer"), point.get<double>("x"), point.get<double>("y"), point.get<double>("z")});
        auto& truth = file.Truth.emplace_back();
        for (std::size_t c = 0; c < ComponentCount; ++c) {
            if (point.get<std::string>(ComponentNames[c]) != "null") {
                truth[c] = point.get<double>(ComponentNames[c]);
            }
        }
    }
    return file;
}

std::vector<std::string> CaseFilePaths(const std::string& folder) {
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(std::string(ZIRVO_TEST_DATA "/") + folder)) {
        if (entry.path().extension() == ".json") {
            paths.push_back(entry.path().string());
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

CaseErrors Compare(const CaseFile& file, const Solution& solution) {
    CaseErrors errors;
    double pressure = 0;
    double radius = 0;
    for (const Load& load : file.TheProblem.Loads) {
        const double area = Pi * load.Radius * load.Radius;
        pressure = std::max({pressure, std::fabs(load.Vertical) / area, std::fabs(load.Horizontal) / area});
        radius = std::max(radius, load.Radius);
    }
    constexpr std::size_t First[4] = {U, SIGx, EPSx, ComponentCount};
    double worst = 0;
    for (std::size_t p = 0; p < file.Truth.size(); ++p) {
        const Point& point = file.TheProblem.Points[p];
        const double modulus = file.TheProblem.Layers[static_cast<std::size_t>(point.Layer - 1)].Modulus;
        const double unit[3] = {pressure * radius / modulus, pressure * file.StressFactor, pressure / modulus * 1e6};
        for (std::size_t g = 0; g < 3; ++g) {
            double largest = 0;
            double off = 0;
            std::size_t at = 0;
            for (std::size_t c = First[g]; c < First[g + 1]; ++c) {
                if (!file.Truth[p][c]) {
                    continue;
                }
                const double factor = g == 0 ? 1 : g == 1 ? file.StressFactor : 1e6;
                largest = std::max(largest, std::fabs(*file.Truth[p][c]));
                const double error = std::fabs(solution.Points[p].Values[c] * factor - *file.Truth[p][c]);
                if (!(error <= off)) {
                    off = error;
                    at = c;
                }
            }
            const double share = off / (1e-9 * largest + 1e-13 * unit[g]);
            if (!(share <= worst)) {
                worst = share;
                errors.Where =
                    "point " + std::to_string(p + 1) + " " + ComponentNames[at] + " off " + std::to_string(share);
            }
            errors.Worst[g] = share <= errors.Worst[g] ? errors.Worst[g] : share;  // NaN stays
            // The estimate is a share of the same size, 1E-9 of which is the allowance; below 1E-15 are last digits.
            const double ofEstimate = share * 1e-9 / (solution.Points[p].Estimates[g] + 1e-15);
            errors.OverEstimate[g] = ofEstimate <= errors.OverEstimate[g] ? errors.OverEstimate[g] : ofEstimate;
            errors.WorstRelative[g] =
                std::max(errors.WorstRelative[g], (off - 1e-13 * unit[g]) / std::max(largest, 1e-300));
            errors.WorstEstimate[g] = std::max(errors.WorstEstimate[g], solution.Points[p].Estimates[g]);
        }
    }
    return errors;
}

}  // namespace zirvo::solver
