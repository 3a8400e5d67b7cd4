// Writing, reading and checking the graphics input file, see graphics_input.h.
#include "pavement/graphics_input.h"

#include <utility>

#include "pavement/input_walk.h"
#include "pavement/pavement_blocks.h"

namespace zirvo {

namespace {

// Widths that put the numbers roughly beneath the words of the heading.

class GraphicsWalk : public InputWalk {
public:
    GraphicsWalk(std::istream& input, bool listAll) : InputWalk(input, data_, listAll) {}

    GraphicsInputResult Read() {
        Run();
        return Result(std::move(data_));
    }

    std::vector<Finding> Check() {
        Run();
        return TakeFindings();
    }

private:
    GraphicsInputData data_;

    /// Where the values are wrong, and not the file, the user is led to leave or to choose anew.
    void Run() {
        Unbroken([this] { (void)(ReadHead() && JudgeCounts() && ReadLayers(ImportFocus::FocusQuit) && ReadLoads()); });
    }

    /// The headings behind the counts are read before the counts are judged: a file that ends there is no file,
    /// whatever its counts are.
    bool ReadHead() {
        SkipHeadings(1);
        if (!ReadCount("LayerCount", data_.LayerCount) || !ReadCount("LoadCount", data_.LoadCount)) {
            return false;
        }
        SkipHeadings(3);
        return true;
    }

    bool JudgeCounts() {
        return JudgeCount("LayerCount", data_.LayerCount) && JudgeCount("LoadCount", data_.LoadCount);
    }
};

}  // namespace

std::string WriteGraphicsInput(const GraphicsInputData& data, UnitSystem unitSystem, Int16 languageBase) {
    std::string out;
    AppendHeading(out, languageBase, 166);
    AppendColumn(out, data.LayerCount, LayerCountWidth);
    AppendColumn(out, data.LoadCount, LoadCountWidth);
    AppendLine(out, "");
    AppendLine(out, "");
    AppendLayerBlock(out, data.Layers.UpTo(data.LayerCount), unitSystem, languageBase);
    AppendLine(out, "");
    AppendLoadBlock(out, data.Loads.UpTo(data.LoadCount), unitSystem, languageBase);
    return out;
}

GraphicsInputResult ReadGraphicsInput(const std::string& path) {
    return ReadByWalk<GraphicsWalk>(path);
}

GraphicsInputResult ReadGraphicsInput(std::istream& input) {
    return GraphicsWalk(input, false).Read();
}

std::vector<Finding> CheckGraphicsInput(const std::string& path) {
    return CheckByWalk<GraphicsWalk>(path);
}

std::vector<Finding> CheckGraphicsInput(std::istream& input) {
    return GraphicsWalk(input, true).Check();
}

}  // namespace zirvo
