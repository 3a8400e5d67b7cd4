// The model: bounds, depths of the layer tops, headings by unit system.
#include "pavement/pavement_model.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "pavement/support.h"

namespace zirvo {
namespace {

TEST(PavementModel, RowsZeroExistAndHoldZeros) {
    const PavementModel model;
    EXPECT_EQ(model.Layers[0], PavementLayer{});
    EXPECT_EQ(model.Loads[0], SurfaceLoad{});
    EXPECT_EQ(model.Points[0], InterestPoint{});
    EXPECT_EQ(model.Layers[0].Modulus, 0);
    EXPECT_EQ(model.Points[0].LayerNumber, 0);
}

TEST(PavementModel, AnIndexAboveTheBoundIsFaultNineAndNotAResizing) {
    PavementModel model;
    EXPECT_EQ(FaultOf([&] { model.Layers[100].Modulus = 1; }), 0);
    EXPECT_EQ(FaultOf([&] { model.Layers[101].Modulus = 1; }), 9);
    EXPECT_EQ(FaultOf([&] { model.Loads[100].Radius = 1; }), 0);
    EXPECT_EQ(FaultOf([&] { model.Loads[101].Radius = 1; }), 9);
    EXPECT_EQ(FaultOf([&] { model.Points[10000].PointX = 1; }), 0);
    EXPECT_EQ(FaultOf([&] { model.Points[10001].PointX = 1; }), 9);
    EXPECT_EQ(FaultOf([&] { model.Points[-1].PointX = 1; }), 9);
}

TEST(PavementModel, ASpanOfRowsBeginsWithRowZero) {
    const PavementModel model = test::ExampleModel();
    const auto layers = model.Layers.UpTo(2);
    ASSERT_EQ(layers.size(), 3U);
    EXPECT_EQ(layers[1].Modulus, 35000);
    EXPECT_EQ(layers[2].PoissonRatio, 0.4);
    EXPECT_EQ(FaultOf([&] { (void)model.Layers.UpTo(101); }), 9);
}

TEST(ComputeLayerTops, FirstTwoEntriesAreZeroAndEachFurtherOneAddsTheThicknessAbove) {
    std::vector<PavementLayer> layers(4);
    layers[0].Thickness = 1000;  // row 0 is no layer
    layers[1].Thickness = 5;
    layers[2].Thickness = 10.5;
    layers[3].Thickness = 77;  // of the last layer, which has none
    const LayerTops tops = ComputeLayerTops(layers);
    EXPECT_EQ(tops[0], 0);
    EXPECT_EQ(tops[1], 0);
    EXPECT_EQ(tops[2], 5);
    EXPECT_EQ(tops[3], 15.5);
    EXPECT_EQ(tops[4], 0);
}

TEST(ComputeLayerTops, AddsFromTheTopSoThatRoundingIsReproducible) {
    std::vector<PavementLayer> layers(12);
    for (PavementLayer& layer : layers) {
        layer.Thickness = 0.1;
    }
    const LayerTops tops = ComputeLayerTops(layers);
    // Ten times 0.1 added one by one is the double below 1; ten times 0.1 multiplied is 1.
    EXPECT_EQ(tops[11], 0.99999999999999989);
}

TEST(ComputeLayerTops, TakesAHundredLayersAndFaultsAtMore) {
    std::vector<PavementLayer> layers(101, PavementLayer{1, 0.3, 2, 0});
    EXPECT_EQ(ComputeLayerTops(layers)[100], 198);  // 99 layers of 2 cm above the last
    layers.push_back({});
    EXPECT_EQ(FaultOf([&] { ComputeLayerTops(layers); }), 9);
}

TEST(UnitSystem, NumbersOutsideOneToThreeAreNone) {
    EXPECT_EQ(UnitSystemOf(1), UnitSystem::KgfToKgf);
    EXPECT_EQ(UnitSystemOf(2), UnitSystem::KgfToMPa);
    EXPECT_EQ(UnitSystemOf(3), UnitSystem::KnToMPa);
    for (const int number : {-1, 0, 4, 32767}) {
        EXPECT_EQ(UnitSystemOf(number), UnitSystem::None) << number;
    }
}

TEST(Headings, FollowTheUnitSystemWhereTheyNameAUnitOfForce) {
    const std::array<Int16, 4> kgfLayers{37, 39, 40, 41};
    const std::array<Int16, 4> knLayers{38, 39, 40, 41};
    const std::array<Int16, 6> kgfLoads{42, 44, 45, 46, 48, 50};
    const std::array<Int16, 6> knLoads{43, 44, 45, 46, 49, 50};
    EXPECT_EQ(LayerHeadings(UnitSystem::KgfToKgf), kgfLayers);
    EXPECT_EQ(LayerHeadings(UnitSystem::KgfToMPa), kgfLayers);
    EXPECT_EQ(LayerHeadings(UnitSystem::KnToMPa), knLayers);
    EXPECT_EQ(LoadHeadings(UnitSystem::KgfToKgf), kgfLoads);
    EXPECT_EQ(LoadHeadings(UnitSystem::KgfToMPa), kgfLoads);
    EXPECT_EQ(LoadHeadings(UnitSystem::KnToMPa), knLoads);
    EXPECT_EQ(PointHeadings(), (std::array<Int16, 4>{51, 45, 46, 47}));
    EXPECT_EQ(LayerFileHeading(UnitSystem::KgfToKgf), 69);
    EXPECT_EQ(LayerFileHeading(UnitSystem::KgfToMPa), 69);
    EXPECT_EQ(LayerFileHeading(UnitSystem::KnToMPa), 70);
    EXPECT_EQ(LoadFileHeading(UnitSystem::KgfToKgf), 72);
    EXPECT_EQ(LoadFileHeading(UnitSystem::KgfToMPa), 72);
    EXPECT_EQ(LoadFileHeading(UnitSystem::KnToMPa), 73);
}

TEST(Headings, WithoutAUnitSystemNeitherOfAPairIsSet) {
    EXPECT_EQ(LayerHeadings(UnitSystem::None)[0], 0);
    EXPECT_EQ(LoadHeadings(UnitSystem::None)[0], 0);
    EXPECT_EQ(LoadHeadings(UnitSystem::None)[4], 0);
    EXPECT_EQ(LoadHeadings(UnitSystem::None)[1], 44);
    EXPECT_EQ(LayerFileHeading(UnitSystem::None), 0);
    EXPECT_EQ(LoadFileHeading(UnitSystem::None), 0);
}

}  // namespace
}  // namespace zirvo
