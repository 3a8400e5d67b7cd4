// In the place of chart_picture.cpp in a build without Qt.
#include "batch/study_chart.h"

namespace zirvo::batch {

ExitCode WriteChartPicture(const PlotRequest& plot, const Chart& /*chart*/, Console& console) {
    console.Complain(plot.Picture, "cannot be drawn: this zirvo-batch was built without Qt");
    return ExitCode::BadInput;
}

}  // namespace zirvo::batch
