// The picture file of a map, drawn with Qt, see map_picture.h.
#include "batch/map_picture.h"

#include "contour/display_rules.h"
#include "platform/files.h"
#include "qt/image_surface.h"
#include "qt/offscreen.h"
#include "qt/picture_files.h"
#include "qt/picture_fonts.h"

namespace zirvo::batch {
namespace {

std::string PictureBytes(const MapRequest& request, const SectionPlot& plot) {
    const int wide = request.PixelsWide;
    const int high = request.PixelsHigh;
    const auto draw = [&](PlotSurface& surface) {
        DrawSection(surface, plot, JudgeDisplayItems(request.Items).Items, request.ContourLineCount,
                    GeometryOfPixels(wide, high));
    };
    const std::string title = TitleOf(plot);
    switch (request.Format) {
        case PictureFormat::Svg:
            return SvgBytes(wide, high, title, draw);
        case PictureFormat::Pdf:
            return PdfBytes(wide, high, title, draw);
        default:
            break;
    }
    ImageSurface surface(wide, high);
    draw(surface);
    return request.Format == PictureFormat::Bmp ? BitmapBytes(surface.Image()) : PngBytes(surface.Image());
}

}  // namespace

ExitCode WriteMapPicture(const MapRequest& request, const SectionPlot& plot, Console& console) {
    const OffscreenQt qt;
    if (!HasPictureFont(MapFont)) {
        console.Note("", "neither arial nor Liberation Sans is installed: the texts of the map look different");
    }
    WriteWholeFile(request.PictureFile, PictureBytes(request, plot), Flush::ToSystem);
    return ExitCode::Done;
}

}  // namespace zirvo::batch
