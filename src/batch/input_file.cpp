// Opening an input file, see input_file.h.
#include "batch/input_file.h"

#include "platform/open_file.h"
#include "solver/io/report_names.h"

namespace zirvo::batch {

solver::InputError OpenInputFile(const std::string& path, std::ifstream& file) {
    solver::InputError error;
    error.Reason = solver::ReasonAgainstReading(path);
    if (error.Reason == solver::Word::None && !OpenStream(path, file)) {
        error.Reason = solver::Word::FileUnreadable;
    }
    return error;
}

}  // namespace zirvo::batch
