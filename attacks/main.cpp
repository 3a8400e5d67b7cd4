// The attack: random pavements of four families and hill climbing from the worst of them, the solver against the
// reference, with all loops that this machine can run in turn. attack [SECONDS] [SEED] [FOLDER] [PLOT] [LOOPS]: what
// breaks a promise or a bound is written to FOLDER, and the exit code is then 1; errors and bounds are drawn to the
// file PLOT; LOOPS are the only ones that are tried (baseline, avx2, avx512).
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <span>
#include <string>
#include <vector>

#include "climb.h"
#include "families.h"
#include "finds.h"
#include "measure.h"
#include "plot.h"
#include "solver/engine.h"

namespace {

using namespace zirvo::attack;
using zirvo::solver::Engine;
using Clock = std::chrono::steady_clock;

struct Wishes {
    double Seconds = 60;
    unsigned long Seed = 1;
    std::string Folder = ".";
    std::string Plot;
    std::string Loops;
};

/// The loops that are to be tried.
std::vector<const Engine*> EnginesOf(const Wishes& wishes) {
    const Engine* runnable[4];
    std::vector<const Engine*> engines(runnable, runnable + zirvo::solver::RunnableEngines(runnable));
    if (!wishes.Loops.empty()) {
        std::erase_if(engines, [&](const Engine* engine) { return engine->Name != wishes.Loops; });
    }
    return engines;
}

/// Writes one find; at most so many of a run, worst kinds tend to come in herds.
class FindWriter {
public:
    explicit FindWriter(const Wishes& wishes) : wishes_(wishes) {}

    /// @param promise  the find is told with all its points where the worst alone shows nothing
    void Write(const Engine& engine, const zirvo::solver::Problem& problem, std::span<const zirvo::solver::Point> crowd,
               const GroupError& worst, Family family, double promise) {
        constexpr int Most = 20;
        if (count_ == Most) {
            return;
        }
        zirvo::solver::Problem one = problem;
        one.Points = {problem.Points[worst.Point]};
        const auto alone = Measure(engine, one);
        if (std::none_of(alone.begin(), alone.end(), [&](const GroupError& e) { return Broken(e, promise); })) {
            one.Points = problem.Points;
            one.Points.insert(one.Points.end(), crowd.begin(), crowd.end());
        }
        const std::string name = "found_" + std::string(NameOf(family)) + "_" + std::to_string(wishes_.Seed) + "_" +
                                 std::to_string(++count_);
        char about[140];
        std::snprintf(about, sizeof about, "group %zu: error %.2e, bound %.2e (%s)", worst.Group, worst.Error,
                      worst.Bound, engine.Name);
        std::ofstream(wishes_.Folder + "/" + name + ".json") << CaseText(one, name, about);
        std::printf("FOUND %s: %s\n", name.c_str(), about);
        std::fflush(stdout);
    }

private:
    const Wishes& wishes_;
    int count_ = 0;
};

/// One random problem, and now and then a climb from its worst point.
void Round(const Engine& engine, Family family, Random& random, Tally& tally, FindWriter& finds) {
    const double promise = PromiseOf(family);
    auto problem = RandomProblem(family, random);
    const auto kind = random() % 64;
    if (kind == 0) {
        AddWheels(problem, random);
    } else if (kind == 1) {
        SetEdgePoints(problem, random);
    }
    if (problem.Points.empty()) {
        return;
    }
    std::vector<zirvo::solver::Point> crowd;
    if (random() % 8 == 0) {
        crowd = CrowdFor(problem, random);
    }
    const auto errors = Measure(engine, problem, crowd);
    tally.Add(errors, promise);
    GroupError worst;
    for (const GroupError& e : errors) {
        if (Broken(e, promise)) {
            finds.Write(engine, problem, crowd, e, family, promise);
        }
        worst = e.Ratio() > worst.Ratio() ? e : worst;
    }
    if (!errors.empty() && random() % 32 == 0) {
        const Goal goal = random() % 2 == 0 ? Goal::Error : Goal::Ratio;
        // A climb may leave its family: what it meets is held to what all legal input is promised.
        const Climbed top = Climb(engine, problem, worst.Point, goal, 30, random, tally, PromiseOf(Family::Extreme));
        if (Broken(top.Worst, PromiseOf(Family::Extreme))) {
            finds.Write(engine, top.Problem, {}, top.Worst, family, PromiseOf(Family::Extreme));
        }
    }
}

}  // namespace

int main(int count, char** arguments) {
    Wishes wishes;
    if (count > 1) {
        wishes.Seconds = std::atof(arguments[1]);
    }
    if (count > 2) {
        wishes.Seed = std::strtoul(arguments[2], nullptr, 10);
    }
    if (count > 3) {
        wishes.Folder = arguments[3];
    }
    if (count > 4) {
        wishes.Plot = arguments[4];
    }
    if (count > 5) {
        wishes.Loops = arguments[5];
    }
    const auto engines = EnginesOf(wishes);
    if (engines.empty()) {
        std::fprintf(stderr, "attack: this machine cannot run the loops \"%s\"\n", wishes.Loops.c_str());
        return 2;
    }
    const auto start = Clock::now();
    std::array<Tally, FamilyCount> tallies;
    FindWriter finds(wishes);
    for (unsigned long i = 0; std::chrono::duration<double>(Clock::now() - start).count() < wishes.Seconds; ++i) {
        Random random(wishes.Seed * 1000003 + i);
        const auto family = static_cast<Family>(i % FamilyCount);
        const Engine& engine = *engines[i / FamilyCount % engines.size()];
        Round(engine, family, random, tallies[i % FamilyCount], finds);
    }
    bool clean = true;
    for (int i = 0; i < FamilyCount; ++i) {
        std::fputs(tallies[static_cast<std::size_t>(i)].Report(static_cast<Family>(i)).c_str(), stdout);
        clean = clean && tallies[static_cast<std::size_t>(i)].Clean();
    }
    if (!wishes.Plot.empty()) {
        std::vector<std::pair<double, double>> pairs;
        for (const Tally& tally : tallies) {
            tally.AddPairs(pairs);
        }
        std::ofstream(wishes.Plot) << PlotText(pairs);
    }
    return clean ? 0 : 1;
}
