// Pictures as the bytes of files. Callers: SAVE PICTURE of the map screen, the batch tool.
#pragma once
#include <QImage>
#include <functional>
#include <string>

#include "contour/plot_surface.h"

namespace zirvo {

/// A bitmap with 24 bits a pixel. Fault 57 if it cannot be made, as below.
std::string BitmapBytes(const QImage& image);

std::string PngBytes(const QImage& image);

/// Draws on the surface that it is handed, once.
using DrawPicture = std::function<void(PlotSurface&)>;

/// A drawing of so many pixels at 96 to the inch; the same drawing gives the same bytes.
/// @param title  of the document, UTF-8
std::string SvgBytes(int pixelsWide, int pixelsHigh, const std::string& title, const DrawPicture& draw);

/// The same on one page of that size. It holds no date, so that the bytes stay the same; for that from one process to
/// the next too Qt must have been started by OffscreenQt.
std::string PdfBytes(int pixelsWide, int pixelsHigh, const std::string& title, const DrawPicture& draw);

/// Writes the bitmap, replacing a file of that name: whole or not at all. Faults as WriteWholeFile.
void SaveBitmap(const QImage& image, const std::string& path);

}  // namespace zirvo
