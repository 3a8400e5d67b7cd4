// Work that is shared among threads: every part is done once, and no bit of an answer hangs on who did what.
#include "solver/crew.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <new>
#include <random>
#include <vector>

#include "solver/problems.h"

namespace zirvo::solver {
namespace {

TEST(Crew, EveryPartIsDoneOnce) {
    for (const std::size_t threads : {1U, 2U, 5U}) {
        Crew crew(threads);
        for (const std::size_t count : {0U, 1U, 2U, 1000U}) {
            std::vector<std::atomic<int>> done(count);
            crew.Share(count, [&](std::size_t i) { ++done[i]; });
            EXPECT_TRUE(std::all_of(done.begin(), done.end(), [](int times) { return times == 1; })) << threads;
        }
    }
}

TEST(Crew, PartsMayShareTheirOwnParts) {
    for (const std::size_t threads : {1U, 2U, 3U}) {
        Crew crew(threads);
        std::vector<std::atomic<int>> done(40 * 30 * 20);
        crew.Share(40, [&](std::size_t i) {
            crew.Share(30,
                       [&](std::size_t j) { crew.Share(20, [&](std::size_t k) { ++done[(i * 30 + j) * 20 + k]; }); });
        });
        EXPECT_TRUE(std::all_of(done.begin(), done.end(), [](int times) { return times == 1; })) << threads;
    }
}

TEST(Crew, AThreadThatWaitsForItsPartsHelpsWithLaterOnes) {
    Crew crew(2);
    std::atomic<int> met = 0;
    // Two parts that end together only: the inner ones need both threads, whichever of them has the outer part.
    crew.Share(2, [&](std::size_t outer) {
        if (outer == 1) {
            crew.Share(2, [&](std::size_t) {
                ++met;
                while (met < 2) {
                    std::this_thread::yield();
                }
            });
        }
    });
    EXPECT_EQ(met, 2);
}

TEST(Crew, WhatAPartThrowsReachesTheOneWhoSharedIt) {
    for (const std::size_t threads : {1U, 3U}) {
        Crew crew(threads);
        std::atomic<int> behind = 0;
        EXPECT_THROW(crew.Share(10,
                                [&](std::size_t i) {
                                    crew.Share(100, [&](std::size_t j) {
                                        if (i == 3 && j == 50) {
                                            throw std::bad_alloc();
                                        }
                                    });
                                }),
                     std::bad_alloc);
        crew.Share(10, [&](std::size_t) { ++behind; });  // it works on
        EXPECT_EQ(behind, 10);
    }
}

void ExpectNoBitToHangOnThreads(const Problem& problem) {
    const Solution one = Solve(problem, {1});
    for (const int threads : {2, 3, 4}) {
        const Solution more = Solve(problem, {threads});
        ASSERT_EQ(one.LargestEstimate, more.LargestEstimate) << threads;
        for (std::size_t i = 0; i < problem.Points.size(); ++i) {
            ASSERT_EQ(one.Points[i].Values, more.Points[i].Values) << threads << ' ' << i;
            ASSERT_EQ(one.Points[i].Estimates, more.Points[i].Estimates) << threads << ' ' << i;
        }
    }
}

void AddWheels(int count, Problem& problem) {
    for (int i = 0; i < count; ++i) {
        problem.Loads.push_back({245, 9.0 + i % 3, 31.0 * (i % 5), 27.0 * (i / 5), i % 4 == 0 ? 50.0 : 0.0, 10.0 * i});
    }
}

// One chunk: its levels and its places are shared.
TEST(Threads, ASectionAtOneDepthIsTheSameToTheBit) {
    for (const double slip : {0.0, 0.6}) {
        Problem problem = ClassicRoad(slip);
        AddWheels(12, problem);
        for (int i = 0; i < 900; ++i) {
            problem.Points.push_back({2, 7.0 * (i % 30), 5.0 * (i / 30), 15});
        }
        ExpectNoBitToHangOnThreads(problem);
    }
}

// On nodes in z, whose tables are interpolated once for a depth.
TEST(Threads, ManyDepthsAreTheSameToTheBit) {
    Problem problem = ClassicRoad(0.3);
    AddWheels(20, problem);
    for (int i = 0; i < 1200; ++i) {
        const double z = 1.5 * (i % 60);
        problem.Points.push_back({z <= 15 ? 1 : z <= 45 ? 2 : 3, 3.0 * (i / 60), 2.0 * (i / 60), z});
    }
    ExpectNoBitToHangOnThreads(problem);
}

// Places and depths that no two points share, and loads of many radii: pairs one by one.
TEST(Threads, ScatteredPointsUnderManyRadiiAreTheSameToTheBit) {
    for (const double soft : {300.0, 0.3}) {
        Problem problem = ClassicRoad(0.5);
        problem.Layers[1].Modulus = soft;
        AddWheels(24, problem);
        for (std::size_t i = 0; i < problem.Loads.size(); ++i) {
            problem.Loads[i].Radius = 5 + 0.5 * static_cast<double>(i);
        }
        std::mt19937_64 random(5);
        std::uniform_real_distribution<double> plane(-200, 200);
        std::uniform_real_distribution<double> depth(0, 60);
        for (int i = 0; i < 150; ++i) {
            const double z = depth(random);
            problem.Points.push_back({z <= 15 ? 1 : z <= 45 ? 2 : 3, plane(random), plane(random), z});
        }
        ExpectNoBitToHangOnThreads(problem);
    }
}

// Soft films and loads that cancel: much is done again, and at last jointly.
TEST(Threads, WhatIsDoneAgainIsTheSameToTheBit) {
    Problem problem;
    problem.Layers = {{50000, 0.35, 90, 0}, {0.5, 0.5, 0.2, 0.99}, {50000, 0.35, 40, 0}, {5e-4, 0.4, 0, 0}};
    problem.Loads = {{245, 20, 0, 0, 0, 0}, {-245, 20, 0.01, 0, 0, 0}, {100, 30, 50, 0, 50, 45}};
    for (int i = 0; i < 40; ++i) {
        const int layer = 1 + i % 4;
        const double z = layer == 1 ? 45 : layer == 2 ? 90.1 : layer == 3 ? 100 : 150;
        problem.Points.push_back({layer, 60.0 * (i % 7), 11.0 * i, z});
    }
    ExpectNoBitToHangOnThreads(problem);
}

}  // namespace
}  // namespace zirvo::solver
