// One row of a study: its pavement solved, its points on their layers, what is kept.
#include "study/row_work.h"

#include <gtest/gtest.h>

#include "solver/solve.h"
#include "study/study_folder.h"

namespace zirvo::study {
namespace {

RowResult RowOf(const Study& study, std::uint64_t row) {
    RowResult result;
    RowWork(study).Run(row, result);
    return result;
}

/// The 15 values at a point of the road with another thickness of its asphalt, in micro and cm, by the solver itself.
std::array<double, solver::ComponentCount> Solved(double thickness, const solver::Point& point) {
    solver::Problem road;
    road.Layers = {{5000, 0.35, thickness, 0}, {300, 0.35, 30, 0}, {50, 0.4, 0, 0}};
    road.Loads = {{490, 15, 0, 0, 0, 0}};
    road.Points = {point};
    return solver::ToOutputUnits(solver::Solve(road).Points[0].Values, solver::UnitSystem::KnToMpa);
}

constexpr double LastDigits = 1e-9;  // of a solution of one point beside that of twelve

TEST(RowWork, PointsStayOnTheBoundariesOfTheirLayers) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Head() + "[[vary]]\nwhat = \"layer 1 thickness\"\nvalues = [15, 20]\n" +
                                       Keeps() + "[[keep]]\nvalue = \"EPSz\"\npoint = 5\n");
    const RowResult asItIs = RowOf(study, 0);
    ASSERT_EQ(asItIs.Values.size(), 3U);
    EXPECT_NEAR(asItIs.Values[1], 182.12, 0.005);  // samples/README.md
    EXPECT_NEAR(asItIs.Values[2], -502.73, 0.005);
    const RowResult thicker = RowOf(study, 1);
    EXPECT_EQ(thicker.Values[0], 20);
    EXPECT_NEAR(thicker.Values[1] / Solved(20, {1, 0, 0, 20})[solver::EPSx], 1, LastDigits);
    EXPECT_NEAR(thicker.Values[2] / Solved(20, {3, 0, 0, 50})[solver::EPSz], 1, LastDigits);
}

TEST(RowWork, LargestSmallestAndShortestAreOverTheirPoints) {
    const StudyFolder folder;
    const auto kept = [&](const std::string& keep) {
        return RowOf(
                   folder.StudyOf(Head() + "[[vary]]\nwhat = \"layer 1 modulus\"\nvalues = [5000]\n[[keep]]\n" + keep),
                   0)
            .Values[1];
    };
    const double top = Solved(15, {1, 0, 0, 0})[solver::EPSx];      // point 1: compressed
    const double bottom = Solved(15, {1, 0, 0, 15})[solver::EPSx];  // point 2: stretched
    EXPECT_NEAR(kept("value = \"EPSx\"\npoints = [1, 2]\nover = \"largest\"\n") / bottom, 1, LastDigits);
    EXPECT_NEAR(kept("value = \"EPSx\"\npoints = [1, 2]\nover = \"smallest\"\n") / top, 1, LastDigits);
    EXPECT_LT(std::fabs(bottom), std::fabs(top));
    EXPECT_NEAR(kept("value = \"EPSx\"\npoints = [1, 2]\nover = \"largest size\"\n") / top, 1, LastDigits);
    const double life = kept("life = \"ai-fatigue\"\npoint = 2\n");
    EXPECT_NEAR(life / 1.59640e6, 1, 2e-4);  // worked by hand in the tests of the lives command
    EXPECT_NEAR(kept("life = \"ai-fatigue\"\npoints = [1, 2, 6]\nname = \"l\"\n") / life, 1, LastDigits);
}

TEST(RowWork, ARowThatNoPavementCanBeIsBadAndSaysWhy) {
    const StudyFolder folder;
    folder.Put("t.csv", "layer 1 modulus,layer 2 slip\n5000,0\n-1,0\nmany,0\n5000,2\n1E40,0\n");
    const Study study = folder.StudyOf(Head() + "table = \"t.csv\"\n" + Keeps());
    EXPECT_EQ(RowOf(study, 0).Reason, "");
    EXPECT_EQ(RowOf(study, 1).Reason, "layer 1, Modulus -1: is not above 0");
    EXPECT_EQ(RowOf(study, 2).Reason, "layer 1, Modulus nan: is no finite number");
    EXPECT_EQ(RowOf(study, 3).Reason, "layer 2, SlipRate 2: is above 0.99");
    EXPECT_EQ(RowOf(study, 4).Reason, "a result is no finite number: such numbers are no pavement");
    EXPECT_EQ(RowOf(study, 1).Values.size(), 2U);
}

// A film of 0.1 mm at the edge of a load of 1 km asks for more wavenumbers than there is time for: the bound of the
// strains' errors there is thousands of times the strains.
TEST(RowWork, ARowWhoseResultsNobodyKnowsIsBad) {
    const StudyFolder folder;
    // Opposite loads close together on a plate, which floats in the second row.
    folder.Put("plate.eva",
               "h\np.bre\np.san\n\nh\n2 2 2\n\nh\nh\n5000 0.3 10 0\n50 0.3\n\nh\nh\n1000 10 0 0 0 0\n"
               "-1000 10 1E-6 0 0 0\n\nh\nh\n1 300 0 5\n1 5 0 10\n");
    const Study study = folder.StudyOf(
        "base = \"plate.eva\"\nunits = 3\n[[vary]]\nwhat = \"layer 2 modulus\"\n"
        "values = [50, 1E-11]\n" +
        Keeps());
    EXPECT_EQ(RowOf(study, 0).Reason, "");
    const RowResult floating = RowOf(study, 1);
    EXPECT_EQ(floating.Reason.substr(0, 47), "the bound of the relative error of a result is ") << floating.Reason;
    EXPECT_EQ(floating.Values.size(), 1U);
}

}  // namespace
}  // namespace zirvo::study
