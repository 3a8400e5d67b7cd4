#include "batch/waiting_solver.h"

#include <filesystem>

#include "platform/utf8_path.h"

namespace zirvo::test {

void PutWaitingSolver(const std::string& folder, const std::string& name) {
    std::filesystem::copy_file(ZIRVO_WAITING_PROGRAM, Utf8Path(folder + "/" + name));
}

}  // namespace zirvo::test
