// Type-ahead of a combo box, see combo_auto_complete.h.
#include "shell/combo_auto_complete.h"

#include <algorithm>
#include <string>

#include "base/runtime_fault.h"
#include "base/utf8.h"

namespace zirvo {
namespace {

constexpr int FirstPrintable = 33;
constexpr int AllBehind = 9999;

std::u32string TextWithKey(const forms::ComboBox& combo, char32_t key) {
    const std::u32string text = ToCharacters(combo.Text.Get());
    const auto length = static_cast<int>(text.size());
    const int start = std::clamp(combo.SelStart.Get(), 0, length);
    const int end = start + std::clamp(combo.SelLength.Get(), 0, length - start);
    return text.substr(0, static_cast<std::size_t>(start)) + key + text.substr(static_cast<std::size_t>(end));
}

/// The first entry that begins with the text; -1 where none does.
int EntryWith(const forms::ComboBox& combo, const std::string& beginning) {
    for (int i = 0; i < combo.ListCount(); ++i) {
        if (combo.List(i).starts_with(beginning)) {
            return i;
        }
    }
    return -1;
}

}  // namespace

void ComboAutoComplete(forms::ComboBox& combo, int& keyCode, int searchStart) {
    if (keyCode < FirstPrintable) {
        return;
    }
    if (searchStart < 1) {
        throw RuntimeFault(fault::InvalidCall);
    }
    const std::u32string characters = TextWithKey(combo, static_cast<char32_t>(keyCode));
    const std::string built = FromCharacters(characters);
    keyCode = 0;
    const int entry = searchStart == 1 ? EntryWith(combo, built) : -1;
    if (entry >= 0) {
        combo.ListIndex = entry;
    } else {
        combo.Text = built;
    }
    combo.SelStart = static_cast<int>(characters.size());
    combo.SelLength = AllBehind;
}

}  // namespace zirvo
