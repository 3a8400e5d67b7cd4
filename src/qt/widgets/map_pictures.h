// The pictures of maps and the controls that show them. Callers: the desktop makes them for the map screen, the widget
// of a picture control paints them.
#pragma once
#include <QImage>
#include <functional>
#include <map>
#include <memory>

#include "graphics/map_picture.h"

namespace zirvo::widgets {

class MapPictures {
public:
    /// A black picture of the control's size, which the control shows from then on, until it is destroyed. This object
    /// must outlive it.
    std::unique_ptr<MapPicture> Make(forms::PictureBox& control);
    /// What the control shows of its map; nullptr if it has none.
    const QImage* ImageOf(const forms::PictureBox& control) const;

private:
    class Shown;
    std::map<const forms::PictureBox*, QImage> images_;
};

}  // namespace zirvo::widgets
