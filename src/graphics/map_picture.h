// The picture of the graphics screen: the map is drawn on its surface and stays until it is cleared. Declared here,
// implemented by the toolkit's side, since nothing of a toolkit is known here. Caller: the graphics screen.
#pragma once
#include <functional>
#include <memory>
#include <string>

#include "contour/plot_layout.h"
#include "contour/plot_surface.h"
#include "graphics/picture_file.h"

namespace zirvo::forms {
class PictureBox;
}

namespace zirvo {

/// A point of the picture in the coordinates of the last Scale.
struct PicturePoint {
    float X = 0;
    float Y = 0;
};

class MapPicture {
public:
    MapPicture(const MapPicture&) = delete;
    MapPicture& operator=(const MapPicture&) = delete;
    virtual ~MapPicture() = default;

    /// Drawing on it persists: a picture survives covering and hiding, and is saved as it stands.
    virtual PlotSurface& Surface() = 0;
    /// Brings what has been drawn since the last call before the user.
    virtual void Present() = 0;
    /// Writes the picture as a bitmap of 24 bits, whole or not at all; an existing file is replaced. Faults: those of a
    /// file that cannot be written.
    virtual void SaveBitmap(const std::string& path) = 0;
    /// The same in another format: PNG holds the pixels as they stand; SVG and PDF hold what `draw` draws, once, on a
    /// surface of the same size.
    /// @param title  of the document, UTF-8
    virtual void Save(const std::string& path, MapFileFormat format, const std::string& title,
                      const std::function<void(PlotSurface&)>& draw) = 0;
    /// Puts the pixels as they stand on the clipboard.
    virtual void Copy() = 0;

    /// The upper left corner of a pixel, counted from the upper left corner of the picture.
    PicturePoint PointAt(int xPixel, int yPixel) {
        const PictureScale& scale = Surface().Picture();
        return {scale.X1 + scale.WidthOf(xPixel), scale.Y1 + scale.HeightOf(yPixel)};
    }
    /// The picture in twips, as it is before any scale is set.
    PlotGeometry Geometry() {
        const PictureScale& scale = Surface().Picture();
        return GeometryOfPixels(scale.PixelsWide, scale.PixelsHigh);
    }

protected:
    MapPicture() = default;
};

/// Makes the picture that a control of the graphics screen shows. The control has its final size; the picture is as
/// large as it, in pixels of PixelsOfTwips, and lives as long as the screen.
using MapPictureFactory = std::function<std::unique_ptr<MapPicture>(forms::PictureBox& control)>;

}  // namespace zirvo
