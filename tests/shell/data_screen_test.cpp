// Tests of what the two data screens share.
#include "shell/data_screen.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "forms/application.h"
#include "forms/scripted_desktop.h"
#include "shell/layout.h"

namespace zirvo {
namespace {

class DataForm : public forms::Form {
public:
    explicit DataForm(forms::Application& application) : Form(application, "DataForm") {
        Grid.Cols = 3;
        Grid.Rows = 3;
        Grid.FixedRows = 1;
        Grid.FixedCols = 1;
    }
    forms::Label Name{*this, "Name"};
    forms::Label Value{*this, "Value"};
    forms::VScrollBar Bar{*this, "Bar"};
    forms::MSFlexGrid Grid{*this, "Grid"};
    forms::ControlArray<forms::CommandButton> Button{*this, "Button", 7};
};

class DataScreenPieces : public testing::Test {
protected:
    forms::ScriptedDesktop desktop_;
    forms::Application application_{desktop_};
    DataForm form_{application_};
};

TEST_F(DataScreenPieces, ARowIsFilledFromItsFirstDataColumnOnAndReadBackByRow) {
    FillRow(form_.Grid, 1, {35000, 0.35});
    FillRow(form_.Grid, 2, {-1e15});
    EXPECT_EQ(form_.Grid.TextMatrix(1, 0), "");
    const auto rows = CellsOf<2>(form_.Grid);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0], (std::array<std::string, 2>{"", ""})) << "the headings are no data";
    EXPECT_EQ(rows[1], (std::array<std::string, 2>{"35000", "0.35"}));
    EXPECT_EQ(rows[2], (std::array<std::string, 2>{"-1E+15", ""}));
}

TEST_F(DataScreenPieces, ARowOrColumnBeyondTheGridIsAFault) {
    EXPECT_EQ(FaultOf([&] { FillRow(form_.Grid, 3, {1}); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { FillRow(form_.Grid, 1, {1, 2, 3}); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { CellsOf<3>(form_.Grid); }), fault::SubscriptOutOfRange);
}

TEST_F(DataScreenPieces, ACountStandsOverItsBarWhichCountsUpwardsAndWaitsToBeEnabled) {
    PlaceCount(10, 20, 70, 100, form_.Name, form_.Value, form_.Bar);
    EXPECT_EQ(form_.Bar.Min, 100);
    EXPECT_EQ(form_.Bar.Max, 0);
    EXPECT_FALSE(form_.Bar.Enabled);
    EXPECT_GT(form_.Name.Left, Pixels(10));  // headings side by side keep apart
    EXPECT_LT(form_.Name.Left + form_.Name.Width, Pixels(10 + CountColumnWidth));
    EXPECT_EQ(2 * form_.Name.Left + form_.Name.Width, 2 * form_.Value.Left + form_.Value.Width);
    EXPECT_LE(form_.Name.Top + form_.Name.Height, form_.Value.Top);
    EXPECT_LE(form_.Value.Top + form_.Value.Height, form_.Bar.Top);
    EXPECT_EQ(form_.Bar.Height, Pixels(70));
}

TEST_F(DataScreenPieces, TheButtonsStandInOneRowWithinTheScreen) {
    std::array<forms::CommandButton*, 7> row{};
    for (int i = 0; i < 7; ++i) {
        row[static_cast<std::size_t>(i)] = &form_.Button(i);
    }
    PlaceButtonRow(row);
    for (int i = 1; i < 7; ++i) {
        EXPECT_EQ(form_.Button(i).Top, form_.Button(0).Top);
        EXPECT_LT(form_.Button(i - 1).Left + form_.Button(i - 1).Width, form_.Button(i).Left);
    }
    EXPECT_LE(form_.Button(6).Left + form_.Button(6).Width, 11730);
    EXPECT_LE(form_.Button(6).Top + form_.Button(6).Height, 8505);
}

}  // namespace
}  // namespace zirvo
