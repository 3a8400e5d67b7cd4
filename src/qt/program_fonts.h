// The fonts that travel with the programs. Callers: main of the desktop program, the batch tool, tests of pictures.
#pragma once
#include <string>

namespace zirvo {

/// The fonts of pictures and screens lie here, in the programs' folder.
inline constexpr const char* FontsFolderName = "fonts";

/// Where the machine has no settings of fonts at all, those that lie in the folder hold; the font library would
/// complain. Before Qt is started.
void FindFontSettings(const std::string& folder);

/// Registers every font file of the folder with Qt, which must have been started; a font of the same name that is
/// installed does not count from then on.
/// @return  how many there were; 0 where the folder is missing
int RegisterFonts(const std::string& folder);

}  // namespace zirvo
