// Opening an input file, see input_file.h.
#include "batch/input_file.h"

#include <filesystem>
#include <system_error>

#include "platform/open_file.h"
#include "solver/io/report_names.h"

namespace zirvo::batch {

solver::InputError OpenInputFile(const std::string& path, std::ifstream& file) {
    solver::InputError error;
    const std::filesystem::path name(std::u8string(path.begin(), path.end()));
    std::error_code ignored;
    if (!std::filesystem::exists(name, ignored)) {
        error.Reason = solver::Word::FileMissing;
        return error;
    }
    if (solver::IsPlainFile(path)) {  // no folder, and no pipe that might never end
        OpenStream(path, file);
    }
    if (!file.is_open()) {
        error.Reason = solver::Word::FileUnreadable;
    }
    return error;
}

}  // namespace zirvo::batch
