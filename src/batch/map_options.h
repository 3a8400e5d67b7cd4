// What can be asked of `zirvo-batch map`, and its options on the command line. Callers: the command line, the map
// command.
#pragma once
#include <optional>
#include <string>

#include "base/int16.h"
#include "contour/contour_map.h"
#include "graphics/section.h"
#include "pavement/pavement_model.h"

namespace CLI {
class App;
}

namespace zirvo::batch {

enum class PictureFormat { Png, Bmp, Svg, Pdf };

/// What the graphics screen does from its start button to SAVE PICTURE.
struct MapRequest {
    std::string File;
    zirvo::UnitSystem Units = zirvo::UnitSystem::None;
    Int16 LanguageBase = 0;
    SectionDefinition Section;     ///< its LayerOfInterest is 0 where none was named
    std::string PositionText;      ///< as given
    DisplayItems Items;            ///< as given: the rule of the screen comes later
    Int16 ContourLineCount = 20;   ///< levels
    std::optional<double> Lowest;  ///< ends of the value range; those of the data if not given
    std::optional<double> Highest;
    int PixelsWide = 529;
    int PixelsHigh = 540;
    std::string PictureFile;
    PictureFormat Format = PictureFormat::Png;
};

/// The options that `map` alone has. They fill texts that are judged one by one while the command line is read.
class MapOptions {
public:
    void AddTo(CLI::App& command);

    /// Why the options do not go together; empty if they do.
    std::string Contradiction(const std::string& file) const;

    /// File, units and language are left to the caller.
    MapRequest Read() const;

private:
    std::string section_;
    std::string position_;
    std::string layer_;
    std::string component_;
    std::string lines_ = "20";
    std::string items_ = "fill,legend";
    std::string lowest_;
    std::string highest_;
    std::string size_ = "529x540";
    std::string pictureFile_;
};

}  // namespace zirvo::batch
