// Layers and loads in files, see pavement_blocks.h.
#include "pavement/pavement_blocks.h"

#include "platform/code_page.h"
#include "text/catalogue.h"
#include "text/number_text.h"

namespace zirvo {

namespace {

// Widths that put the numbers roughly beneath the words of the headings.
constexpr std::array<std::size_t, LayerColumns> LayerWidths{13, 17, 17, 16};
constexpr std::array<std::size_t, LoadColumns> LoadWidths{10, 17, 17, 16, 15, 19};

}  // namespace

void AppendColumn(std::string& out, double value, std::size_t columns) {
    out += PadLeft(FormatNumberText(value), columns);
}

void AppendColumn(std::string& out, Int16 value, std::size_t columns) {
    out += PadLeft(std::to_string(value), columns);
}

void AppendLine(std::string& out, std::string_view line) {
    out.append(line).append("\r\n");
}

void AppendHeading(std::string& out, Int16 languageBase, Int16 k) {
    AppendLine(out, k == 0 ? std::string() : EncodeText(GetMessage(languageBase, k)));
}

void AppendLayerBlock(std::string& out, std::span<const PavementLayer> layers, UnitSystem units, Int16 languageBase) {
    AppendHeading(out, languageBase, 68);
    AppendHeading(out, languageBase, LayerFileHeading(units));
    for (std::size_t i = 1; i < layers.size(); ++i) {
        const bool last = i + 1 == layers.size();
        for (std::size_t c = 0; c < FieldsOfLayer(last); ++c) {
            AppendColumn(out, layers[i].*LayerFields[c], LayerWidths[c]);
        }
        AppendLine(out, "");
    }
}

void AppendLoadRow(std::string& out, const SurfaceLoad& load) {
    for (std::size_t c = 0; c < LoadColumns; ++c) {
        AppendColumn(out, load.*LoadFields[c], LoadWidths[c]);
    }
    AppendLine(out, "");
}

void AppendLoadBlock(std::string& out, std::span<const SurfaceLoad> loads, UnitSystem units, Int16 languageBase) {
    AppendHeading(out, languageBase, 71);
    AppendHeading(out, languageBase, LoadFileHeading(units));
    for (std::size_t i = 1; i < loads.size(); ++i) {
        AppendLoadRow(out, loads[i]);
    }
}

void SkipTextFields(TextStream& stream, int count) {
    for (int i = 0; i < count; ++i) {
        ReadTextFieldBytes(stream);
    }
}

}  // namespace zirvo
