// The problems with true values: see tests/data/cases/README.md for their origin.
#include "solver/case_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

namespace zirvo::solver {
namespace {

TEST(TrueValues, EveryCaseIsWithinTheThousandMillionthPart) {
    const auto paths = CaseFilePaths();
    ASSERT_EQ(paths.size(), 15U);
    CaseErrors all;
    for (const std::string& path : paths) {
        const CaseFile file = ReadCaseFile(path);
        const CaseErrors errors = Compare(file, Solve(file.TheProblem, {2}));
        for (std::size_t g = 0; g < 3; ++g) {
            EXPECT_LT(errors.Worst[g], 1) << file.Name << " group " << g << ' ' << errors.Where;
            all.Worst[g] = std::max(all.Worst[g], errors.Worst[g]);
            all.WorstRelative[g] = std::max(all.WorstRelative[g], errors.WorstRelative[g]);
            all.WorstEstimate[g] = std::max(all.WorstEstimate[g], errors.WorstEstimate[g]);
        }
    }
    const char* names[] = {"displacements", "stresses", "strains"};
    for (std::size_t g = 0; g < 3; ++g) {
        std::printf("%-13s worst error %.1e of the allowance, %.1e of the largest; largest estimate %.1e\n", names[g],
                    all.Worst[g], all.WorstRelative[g], all.WorstEstimate[g]);
    }
}

TEST(TrueValues, SkinsFilmsCancellingLoadsFarPointsAndEdgesOfLargeCirclesAreAsGood) {
    const auto paths = CaseFilePaths("hard_cases");
    ASSERT_GE(paths.size(), 10U);
    for (const std::string& path : paths) {
        const CaseFile file = ReadCaseFile(path);
        const Solution solution = Solve(file.TheProblem, {1});
        const CaseErrors errors = Compare(file, solution);
        EXPECT_LT(solution.LargestEstimate, PromisedError) << file.Name;
        for (std::size_t g = 0; g < 3; ++g) {
            EXPECT_LT(errors.Worst[g], 0.02) << file.Name << " group " << g << ' ' << errors.Where;
            EXPECT_LE(errors.OverEstimate[g], 1) << file.Name << " group " << g;
        }
    }
}

TEST(TrueValues, EstimatesKeepThePromiseAndAreNotBelowTheErrors) {
    for (const std::string& path : CaseFilePaths()) {
        const CaseFile file = ReadCaseFile(path);
        const Solution solution = Solve(file.TheProblem, {1});
        EXPECT_LT(solution.LargestEstimate, PromisedError) << file.Name;
        EXPECT_GT(solution.LargestEstimate, 0) << file.Name;
        const CaseErrors errors = Compare(file, solution);
        for (std::size_t g = 0; g < 3; ++g) {
            EXPECT_LE(errors.OverEstimate[g], 1) << file.Name << " group " << g;
        }
    }
}

TEST(TrueValues, NormalStressUnderTheLoadIsMinusThePressureToTheLastDigit) {
    for (const std::string& path : CaseFilePaths()) {
        const CaseFile file = ReadCaseFile(path);
        const Solution solution = Solve(file.TheProblem, {1});
        for (std::size_t p = 0; p < file.Truth.size(); ++p) {
            if (file.TheProblem.Points[p].Z == 0 && file.Truth[p][SIGz]) {
                EXPECT_NEAR(solution.Points[p].Values[SIGz] * file.StressFactor, *file.Truth[p][SIGz],
                            4e-16 * std::fabs(*file.Truth[p][SIGz]))
                    << file.Name << " point " << p + 1;
            }
        }
    }
}

TEST(TrueValues, ValuesThatAreInfiniteAtTheEdgeAreFiniteMeansAndMarked) {
    int marked = 0;
    for (const std::string& path : CaseFilePaths()) {
        const CaseFile file = ReadCaseFile(path);
        const Solution solution = Solve(file.TheProblem, {1});
        for (std::size_t p = 0; p < file.Truth.size(); ++p) {
            for (std::size_t c = 0; c < ComponentCount; ++c) {
                EXPECT_TRUE(std::isfinite(solution.Points[p].Values[c]));
                if (!file.Truth[p][c]) {
                    EXPECT_TRUE(solution.Points[p].OnLoadEdge) << file.Name << " point " << p + 1;
                    ++marked;
                }
            }
        }
    }
    EXPECT_GT(marked, 0);
}

}  // namespace
}  // namespace zirvo::solver
