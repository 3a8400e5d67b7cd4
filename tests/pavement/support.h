// What several tests of the analysis path share: a current folder of their own, files, data at hand.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "pavement/pavement_model.h"
#include "pavement/pavement_rules.h"
#include "platform/temporary_folder.h"

namespace zirvo::test {

/// A temporary folder that is the current one while this object lives.
class WorkFolder : public TemporaryFolder {
public:
    WorkFolder();
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    /// The names of all that lies in the folder, sorted.
    std::vector<std::string> Names() const;

private:
    std::string before_;
};

/// Bytes of a file of the current folder, written and read without the code under test.
void PutFile(const std::string& path, std::string_view bytes);
std::string GetFile(const std::string& path);

/// Two layers (35000, 0.35, 5, 0 and 1000, 0.4), 49 kN on radius 15 at the origin, one point in layer 1 at z = 5.
PavementModel ExampleModel();

/// The bytes of that model's file in English under UnitSystem 3, put together by hand.
std::string ExampleFile();

/// The same data as the cells of the screen.
PavementTexts ExampleTexts();

/// `text` with the first `from` replaced; a test whose example no longer holds `from` must not pass unnoticed, so that
/// is a failure of the test.
std::string Replaced(std::string text, std::string_view from, std::string_view to);

}  // namespace zirvo::test
