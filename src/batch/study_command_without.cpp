// In the place of study_command.cpp in a build without studies.
#include "batch/study_command.h"

namespace zirvo::batch {

ExitCode RunStudy(const StudyRequest& request, Console& console) {
    console.Complain(request.File, "cannot be run: this zirvo-batch was built without studies");
    return ExitCode::BadInput;
}

}  // namespace zirvo::batch
