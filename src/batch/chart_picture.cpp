// The picture file of a chart, drawn with Qt, see study_chart.h.
#include "batch/study_chart.h"
#include "platform/files.h"
#include "qt/image_surface.h"
#include "qt/offscreen.h"
#include "qt/picture_files.h"
#include "text/file_helpers.h"

namespace zirvo::batch {

ExitCode WriteChartPicture(const PlotRequest& plot, const Chart& chart, Console& /*console*/) {
    const OffscreenQt qt;
    const auto draw = [&](PlotSurface& surface) { DrawChart(surface, chart, plot.PixelsWide, plot.PixelsHigh); };
    std::string bytes;
    if (HasExtension(plot.Picture, ".svg")) {
        bytes = SvgBytes(plot.PixelsWide, plot.PixelsHigh, chart.YLabel + " / " + chart.XLabel, draw);
    } else {
        ImageSurface surface(plot.PixelsWide, plot.PixelsHigh);
        draw(surface);
        bytes = PngBytes(surface.Image());
    }
    WriteWholeFile(plot.Picture, bytes, Flush::ToSystem);
    return ExitCode::Done;
}

}  // namespace zirvo::batch
