// The picture of the map screen and that of the batch tool: one road, the same bytes.
#include <gtest/gtest.h>

#include <fstream>

#include "batch/process_run.h"
#include "graphics/section_plot.h"
#include "platform/files.h"
#include "platform/temporary_folder.h"
#include "qt/image_surface.h"
#include "qt/picture_files.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

/// What the screen does between its start button and SAVE PICTURE, with the picture at its design size.
class Screen {
public:
    Screen(const std::string& sample, const SectionDefinition& section, const std::string& position) {
        before_ = CurrentFolder();
        ChangeFolder(folder_.Path());
        plot_.Units = UnitSystem::KnToMPa;
        plot_.LanguageBase = EnglishBase;
        plot_.Section = section;
        plot_.PositionText = position;
        const GraphicsInputResult read = ReadGraphicsInput(ZIRVO_SAMPLES "/" + sample);
        EXPECT_TRUE(read.Passed());
        EXPECT_EQ(StartSection(plot_, *read), SectionInputStatus::Written);
        EXPECT_EQ(SolveSection(plot_, ZIRVO_BIN, *MakeProcessService(), {}), GraphicsRunResult::Finished);
        Convert();
    }
    ~Screen() { ChangeFolder(before_); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// RE-DRAW with the other component.
    void Redraw(Int16 component) {
        plot_.Section.OutputComponent = component;
        Convert();
    }

    std::string Saved(const DisplayItems& items) const {
        ImageSurface surface(PixelsOfTwips(7935), PixelsOfTwips(8100));
        DrawSection(surface, plot_, items, 20, {});
        SaveBitmap(surface.Image(), "saved.bmp");
        return folder_.Get("saved.bmp");
    }

private:
    TemporaryFolder folder_;
    std::string before_;
    SectionPlot plot_;

    void Convert() {
        ConvertSection(plot_);
        const ReadOuts texts = LoadSection(plot_);
        EXPECT_NE(texts.ValueMin, texts.ValueMax);
    }
};

std::string BatchBitmap(std::vector<std::string> options) {
    const TemporaryFolder folder;
    options.insert(options.begin(), "map");
    for (const char* option : {"--units", "3", "--language", "en", "-o"}) {
        options.emplace_back(option);
    }
    options.push_back(folder.Path("map.bmp"));
    const test::Outcome outcome = test::RunProcess(options, {});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(outcome.Err, "");
    return folder.Get("map.bmp");
}

TEST(SectionPicture, TheBatchToolDrawsTheBytesThatTheScreenSaves) {
    const std::string road = ZIRVO_SAMPLES "/road.ven";
    {
        Screen screen("road.ven", {ComponentEpsX, SectionKind::XY, 0, 1}, "0");
        const DisplayItems all{true, true, true, true, false};
        EXPECT_EQ(screen.Saved({}), BatchBitmap({road, "--section", "xy", "--position", "0", "--component", "EPSx"}));
        EXPECT_EQ(screen.Saved(all), BatchBitmap({road, "--section", "xy", "--position", "0", "--component", "EPSx",
                                                  "--items", "fill,lines,legend,points"}));
        screen.Redraw(ComponentEpsZ);
        EXPECT_EQ(screen.Saved({}), BatchBitmap({road, "--section", "xy", "--position", "0", "--component", "EPSz"}));
    }
    Screen screen("road.ven", {ComponentEpsZ, SectionKind::XZ, 7.5, 0}, "7.50");
    EXPECT_EQ(screen.Saved({}), BatchBitmap({road, "--section", "xz", "--position", "7.50", "--component", "EPSz"}));
    EXPECT_NE(screen.Saved({}), BatchBitmap({road, "--section", "xz", "--position", "7.5", "--component", "EPSz"}))
        << "the title shows the position as typed";
}

TEST(GeometryOfPixels, TheDesignSizeIs529By540) {
    EXPECT_EQ(GeometryOfPixels(529, 540), PlotGeometry());
    EXPECT_EQ(PixelsOfTwips(7935), 529);
    EXPECT_EQ(PixelsOfTwips(8100), 540);
    EXPECT_EQ(PixelsOfTwips(22.4), 1);
    EXPECT_EQ(PixelsOfTwips(22.5), 2) << "a half goes up";
}

}  // namespace
}  // namespace zirvo
