// The file that the program was started with: told at once where it can be none of the program's, else kept until the
// screen comes up that takes such files. Callers: main of the desktop program, the data screens.
#pragma once
#include <string>
#include <string_view>

#include "forms/desktop.h"

namespace zirvo {

class StartFile {
public:
    /// Nothing was named.
    StartFile() = default;
    /// @param name  as it stands on the command line; without a folder it lies in the current one
    explicit StartFile(const std::string& name);

    /// A box, in both languages since none is chosen yet, where nothing can come of the name.
    void TellWhatIsWrong(forms::Desktop& desktop) const;

    /// Whether such a file waits to be imported.
    bool Waits(std::string_view extension) const;
    /// With its folder; "" where none waits.
    const std::string& Path() const { return path_; }
    std::string Folder() const;
    /// It waits no longer.
    void Take() { path_.clear(); }

private:
    std::string path_;
    std::string complaint_;
};

}  // namespace zirvo
