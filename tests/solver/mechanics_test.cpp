// Checks that need no table: what any solution of the layered problem must satisfy.
#include <gtest/gtest.h>

#include <boost/math/quadrature/gauss.hpp>
#include <cmath>

#include "solver/problems.h"

namespace zirvo::solver {
namespace {

TEST(Mechanics, OneMaterialCutIntoManyLayersIsOneLayer) {
    Problem one;
    one.Layers = {{400, 0.3, 0, 0}};
    one.Loads = {{490, 15, 0, 0, 120, 35}, {-100, 4, 30, 5, 0, 0}};
    Problem many = one;
    many.Layers.assign(60, {400, 0.3, 1.5, 0});
    for (const double z : {0.0, 0.001, 0.7, 1.5, 20.25, 88.5, 150.0}) {
        for (const double x : {0.0, 14.9, 15.0, 33.0, 400.0}) {
            const int layer = std::min(60, 1 + static_cast<int>(z / 1.5));
            Problem point = many;
            point.Points = {{layer, x, 2, z}};
            EXPECT_LT(Disagreement(point, 0, At(one, {1, x, 2, z}), At(many, {layer, x, 2, z})), 0.1) << x << ' ' << z;
        }
    }
}

// The whole load goes through every horizontal plane: the integral of SIGz over it is -P, that of TAUzx is -H.
TEST(Mechanics, EveryHorizontalPlaneCarriesTheWholeLoad) {
    for (const double slip : {0.0, 0.8}) {
        for (const double z : {3.0, 15.0, 45.0, 100.0}) {
            Problem problem = ClassicRoad(slip);
            problem.Loads = {Wheel()};
            problem.Loads[0].Horizontal = 100;
            const int layer = z <= 15 ? 1 : z <= 45 ? 2 : 3;
            // r = 40 u / (1 - u), u in 0..1 in 12 panels; the mean of TAUzx over a ring is that of the values at 0 and
            // 90 degrees, since it varies with twice the angle.
            std::vector<double> weights;
            using Rule = boost::math::quadrature::gauss<double, 30>;
            constexpr int Panels = 12;
            for (int panel = 0; panel < Panels; ++panel) {
                const auto add = [&](double s, double weight) {
                    const double u = (panel + s) / Panels;
                    const double r = 40 * u / (1 - u);
                    weights.push_back(weight / Panels * 2 * Pi * r * 40 / ((1 - u) * (1 - u)));
                    problem.Points.push_back({layer, r, 0, z});
                    problem.Points.push_back({layer, 0, r, z});
                };
                for (std::size_t i = 0; i < Rule::abscissa().size(); ++i) {
                    add(0.5 + 0.5 * Rule::abscissa()[i], 0.5 * Rule::weights()[i]);
                    add(0.5 - 0.5 * Rule::abscissa()[i], 0.5 * Rule::weights()[i]);
                }
            }
            const Solution solution = Solve(problem, {1});
            double normal = 0;
            double shear = 0;
            for (std::size_t i = 0; i < weights.size(); ++i) {
                // SIGz of the horizontal part has no mean round the ring and vanishes at 90 degrees.
                normal += weights[i] * solution.Points[2 * i + 1].Values[SIGz];
                shear += weights[i] * 0.5 *
                         (solution.Points[2 * i].Values[TAUzx] + solution.Points[2 * i + 1].Values[TAUzx]);
            }
            // TAUzx of the vertical part at 0 degrees is radial and does not belong to the sum.
            Problem vertical = problem;
            vertical.Loads[0].Horizontal = 0;
            const Solution apart = Solve(vertical, {1});
            for (std::size_t i = 0; i < weights.size(); ++i) {
                shear -= weights[i] * 0.5 * apart.Points[2 * i].Values[TAUzx];
            }
            EXPECT_NEAR(normal, -490, 490 * 2e-6) << "slip " << slip << " z " << z;
            EXPECT_NEAR(shear, -100, 100 * 2e-4) << "slip " << slip << " z " << z;
        }
    }
}

// Betti and Rayleigh: the work of one load's traction on the displacements of the other is the same both ways. Vertical
// load at A, horizontal load at B, one radius (the springs hold it), means over the circles by Gauss nodes.
TEST(Mechanics, VerticalAndHorizontalLoadsAreReciprocal) {
    for (const double slip : {0.0, 0.6}) {
        Problem vertical = ClassicRoad(slip);
        Problem horizontal = vertical;
        vertical.Loads = {{490, 15, 0, 0, 0, 0}};
        horizontal.Loads = {{0, 15, 50, 20, 490, 15}};
        using Rule = boost::math::quadrature::gauss<double, 20>;
        std::vector<double> weights;
        for (std::size_t i = 0; i < Rule::abscissa().size(); ++i) {
            for (const double sign : {-1.0, 1.0}) {
                const double share = 0.5 + 0.5 * sign * Rule::abscissa()[i];
                for (int k = 0; k < 40; ++k) {
                    const double angle = 2 * Pi * k / 40;
                    weights.push_back(0.5 * Rule::weights()[i] * 2 * share / 40);
                    const double dx = 15 * share * std::cos(angle);
                    const double dy = 15 * share * std::sin(angle);
                    vertical.Points.push_back({1, 50 + dx, 20 + dy, 0});
                    horizontal.Points.push_back({1, dx, dy, 0});
                }
            }
        }
        const Solution ofVertical = Solve(vertical, {1});
        const Solution ofHorizontal = Solve(horizontal, {1});
        double one = 0;
        double other = 0;
        for (std::size_t i = 0; i < weights.size(); ++i) {
            one += weights[i] * (ofVertical.Points[i].Values[U] * std::cos(15 * Pi / 180) +
                                 ofVertical.Points[i].Values[V] * std::sin(15 * Pi / 180));
            other += weights[i] * ofHorizontal.Points[i].Values[W];
        }
        EXPECT_NEAR(one / other, 1, 1e-10) << slip;
    }
}

TEST(Mechanics, TurningTheHorizontalLoadTurnsTheFields) {
    const double turn = 37;
    const double c = std::cos(turn * Pi / 180);
    const double s = std::sin(turn * Pi / 180);
    Problem straight = ClassicRoad(0.5);
    Problem turned = straight;
    straight.Loads = {{490, 15, 0, 0, 200, 10}};
    turned.Loads = {{490, 15, 0, 0, 200, 10 + turn}};
    for (const Point& p : {Point{1, 5, 3, 0}, Point{1, 20, -8, 10}, Point{2, 3, 40, 20}, Point{3, -70, 9, 60}}) {
        const PointResult a = At(straight, p);
        const PointResult b = At(turned, {p.Layer, c * p.X - s * p.Y, s * p.X + c * p.Y, p.Z});
        const auto& v = a.Values;
        const double size = std::fabs(v[SIGx]) + std::fabs(v[SIGy]) + std::fabs(v[SIGz]);
        EXPECT_NEAR(b.Values[U], c * v[U] - s * v[V], 1e-12);
        EXPECT_NEAR(b.Values[V], s * v[U] + c * v[V], 1e-12);
        EXPECT_NEAR(b.Values[W], v[W], 1e-12);
        EXPECT_NEAR(b.Values[SIGx], c * c * v[SIGx] + s * s * v[SIGy] - 2 * s * c * v[TAUxy], 1e-10 * size);
        EXPECT_NEAR(b.Values[TAUxy], s * c * (v[SIGx] - v[SIGy]) + (c * c - s * s) * v[TAUxy], 1e-10 * size);
        EXPECT_NEAR(b.Values[TAUzx], c * v[TAUzx] - s * v[TAUyz], 1e-10 * size);
        EXPECT_NEAR(b.Values[TAUyz], s * v[TAUzx] + c * v[TAUyz], 1e-10 * size);
    }
}

TEST(Mechanics, SurfaceIsFreeOfTractionOutsideTheLoadsAndCarriesThemInside) {
    Problem problem = ClassicRoad(0.3);
    problem.Loads = {{490, 15, 0, 0, 60, 90}};
    const double area = Pi * 225;
    const PointResult inside = At(problem, {1, 5, 5, 0});
    EXPECT_DOUBLE_EQ(inside.Values[SIGz], -490 / area);
    EXPECT_DOUBLE_EQ(inside.Values[TAUyz], -60 / area);
    EXPECT_EQ(inside.Values[TAUzx], 0);
    const PointResult outside = At(problem, {1, 16, 0, 0});
    EXPECT_EQ(outside.Values[SIGz], 0);
    EXPECT_EQ(outside.Values[TAUyz], 0);
    EXPECT_EQ(outside.Values[TAUzx], 0);
    // The sums themselves come near that just below the surface.
    const PointResult below = At(problem, {1, 5, 5, 1e-7});
    EXPECT_NEAR(below.Values[SIGz], -490 / area, 1e-8);
    EXPECT_NEAR(below.Values[TAUyz], -60 / area, 1e-8);
}

// Below layer i: SIGz, W and both shear tractions continuous, horizontal displacements jump by AK tau with
// AK = alpha / (1 - alpha) (1 + nu) / E a.
TEST(Mechanics, InterfacesAreContinuousButForTheSpringOfTheSlip) {
    for (const double slip : {0.0, 0.1, 0.5, 0.9, 0.99}) {
        Problem problem = ClassicRoad(slip);
        problem.Loads = {{490, 15, 0, 0, 150, -30}};
        for (const int layer : {1, 2}) {
            const double z = layer == 1 ? 15 : 45;
            const Layer& above = problem.Layers[static_cast<std::size_t>(layer - 1)];
            const double spring = slip / (1 - slip) * (1 + above.PoissonRatio) / above.Modulus * 15;
            for (const double x : {0.0, 9.0, 15.0, 60.0}) {
                const auto top = At(problem, {layer, x, 4, z}).Values;
                const auto bottom = At(problem, {layer + 1, x, 4, z}).Values;
                EXPECT_NEAR(top[SIGz], bottom[SIGz], 1e-12);
                EXPECT_NEAR(top[TAUzx], bottom[TAUzx], 1e-12);
                EXPECT_NEAR(top[TAUyz], bottom[TAUyz], 1e-12);
                EXPECT_NEAR(top[W], bottom[W], 1e-13);
                EXPECT_NEAR(bottom[U] - top[U], spring * top[TAUzx], 1e-12) << slip;
                EXPECT_NEAR(bottom[V] - top[V], spring * top[TAUyz], 1e-12) << slip;
            }
        }
    }
}

TEST(Mechanics, MoreSlipMeansMoreDeflectionAndNeverMoreThanWithoutFriction) {
    double before = 0;
    for (const double slip : {0.0, 0.2, 0.5, 0.8, 0.9, 0.95, 0.99}) {
        Problem problem = ClassicRoad(slip);
        problem.Loads = {Wheel()};
        const double deflection = At(problem, {1, 0, 0, 0}).Values[W];
        EXPECT_GT(deflection, before) << slip;
        before = deflection;
    }
    // The limit without friction, from springs that transmit nothing to speak of.
    Problem free = ClassicRoad(0.999999999);
    free.Loads = {Wheel()};
    EXPECT_LT(before, At(free, {1, 0, 0, 0}).Values[W]);
}

TEST(Mechanics, StressesAndStrainsObeyTheLawOfElasticity) {
    Problem problem;
    problem.Layers = {{3000, 0.5, 10, 0.2}, {200, 0.05, 30, 0}, {60, 0.5, 0, 0}};
    problem.Loads = {{490, 15, 0, 0, 100, 0}};
    for (const Point& p : {Point{1, 3, 4, 6}, Point{2, 10, 0, 30}, Point{3, 0, 25, 55}}) {
        const auto v = At(problem, p).Values;
        const Layer& layer = problem.Layers[static_cast<std::size_t>(p.Layer - 1)];
        const double e = layer.Modulus;
        const double nu = layer.PoissonRatio;
        EXPECT_NEAR(v[EPSx], (v[SIGx] - nu * (v[SIGy] + v[SIGz])) / e, 1e-16);
        EXPECT_NEAR(v[EPSy], (v[SIGy] - nu * (v[SIGx] + v[SIGz])) / e, 1e-16);
        EXPECT_NEAR(v[EPSz], (v[SIGz] - nu * (v[SIGx] + v[SIGy])) / e, 1e-16);
        EXPECT_NEAR(v[GAMzx], 2 * (1 + nu) / e * v[TAUzx], 1e-16);
        if (nu == 0.5) {
            EXPECT_NEAR(v[EPSx] + v[EPSy] + v[EPSz], 0, 1e-16);
        }
    }
}

}  // namespace
}  // namespace zirvo::solver
