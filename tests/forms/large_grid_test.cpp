// Tests that a grid of ten thousand rows stays light: no object for each cell, no memory for what does not grow.
#include <gtest/gtest.h>

#include "forms/allocations.h"
#include "forms/grid_form.h"

namespace zirvo::forms {
namespace {

constexpr int DataRows = 10000;

struct LargeGrid : GridScreen {
    void SetUp() override {
        grid.Cols = 5;
        grid.Rows = 1;
    }
};

TEST_F(LargeGrid, TakesNoMoreMemoryThanItsTexts) {
    const Allocations before = AllocationsSoFar();
    grid.Rows = DataRows + 1;
    const Allocations after = AllocationsSoFar();
    EXPECT_LT(after.Count - before.Count, 10U);
    EXPECT_LE(after.Bytes - before.Bytes, sizeof(std::string) * 5 * (DataRows + 1) + 1000);
}

TEST_F(LargeGrid, ShortTextsTakeNoMemoryOfTheirOwn) {
    grid.Rows = DataRows + 1;
    const Allocations before = AllocationsSoFar();
    for (int row = 1; row <= DataRows; ++row) {
        for (int col = 0; col < 5; ++col) {
            grid.SetTextMatrix(row, col, "POINT 10000");
        }
    }
    EXPECT_EQ(AllocationsSoFar().Count, before.Count);
}

TEST_F(LargeGrid, GrowingRowByRowMovesTheTextsSeldom) {
    const Allocations before = AllocationsSoFar();
    for (int rows = 2; rows <= DataRows + 1; ++rows) {
        grid.Rows = rows;
    }
    EXPECT_LT(AllocationsSoFar().Count - before.Count, 100U);
}

TEST_F(LargeGrid, ScrollingAndReadingPlacesTakesNoMemory) {
    grid.Rows = DataRows + 1;
    grid.Row = DataRows;
    grid.Scroll = nullptr;
    const Allocations before = AllocationsSoFar();
    for (int i = 0; i < 1000; ++i) {
        grid.TopRow = i;
        grid.CellTop();
    }
    EXPECT_TRUE(grid.RowIsVisible(DataRows));
    EXPECT_EQ(AllocationsSoFar().Count, before.Count);
}

}  // namespace
}  // namespace zirvo::forms
