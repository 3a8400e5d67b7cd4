// In the place of map_picture.cpp in a build without Qt.
#include "batch/map_picture.h"

namespace zirvo::batch {

ExitCode WriteMapPicture(const MapRequest& request, const SectionPlot& /*plot*/, Console& console) {
    console.Complain(request.PictureFile, "cannot be drawn: this zirvo-batch was built without Qt");
    return ExitCode::BadInput;
}

}  // namespace zirvo::batch
