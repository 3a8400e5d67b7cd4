// The file that SAVE PICTURE writes: its name, its format, and what it would replace. Caller: the map screen.
#pragma once
#include <string>
#include <string_view>

namespace zirvo {

enum class MapFileFormat { Bitmap, Png, Svg, Pdf };

/// The name as chosen; ".bmp" behind one that has no extension.
std::string PictureFileName(std::string path);

/// By the extension, in letters of either case; whatever is neither ".png", ".svg" nor ".pdf" becomes a bitmap.
MapFileFormat FormatOfPictureFile(std::string_view path);

/// Whether these bytes begin as those of a picture do: BMP, PNG, SVG, PDF, and the kinds that other programs leave
/// (JPEG, GIF, TIFF, WebP). An empty file is none.
bool LooksLikePicture(std::string_view bytes);

/// Whether a file of that name lies there and is no picture: the user is asked before it goes. One that cannot be read
/// counts as no picture; a folder is left to the writing, which fails.
bool ReplacesOtherThanPicture(const std::string& path);

}  // namespace zirvo
