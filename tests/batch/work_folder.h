// A fresh folder with a pavement in it, and zirvo-batch run there. Callers: the tests of this folder.
#pragma once
#include <string>
#include <vector>

#include "batch/process_run.h"
#include "platform/temporary_folder.h"

namespace zirvo::test {

class WorkFolder : public TemporaryFolder {
public:
    WorkFolder() {}  // a constant member needs one that is written out, as clang reads the standard

    /// Runs zirvo-batch in the folder.
    Outcome Batch(const std::vector<std::string>& arguments) const { return Batch(arguments, {}); }
    Outcome Batch(const std::vector<std::string>& arguments, Surroundings surroundings) const;

    /// Copies a sample; gives its name.
    std::string PutSample(const std::string& name) const;

    /// The names of all entries, sorted.
    std::vector<std::string> Names() const;
};

/// zirvo-batch in that folder, with what it cannot start without and without the solvers; gives its path.
std::string PutBatch(const std::string& folder);

/// The bytes of a sample.
std::string SampleBytes(const std::string& name);

/// The names of all samples, sorted.
std::vector<std::string> SampleNames();

/// The text with the first `from` replaced; the test fails where it has none.
std::string With(std::string text, const std::string& from, const std::string& to);

/// The lines of a text without their ends.
std::vector<std::string> LinesOf(const std::string& text);

/// The fields of a line between the separators.
std::vector<std::string> FieldsOf(const std::string& line, char separator = ',');

}  // namespace zirvo::test
