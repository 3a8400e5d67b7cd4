// The message catalogue as a table of identifiers. Called by every screen for its captions and messages.
#include "text/catalogue.h"

#include <algorithm>

#include "text/catalogue_table.h"

namespace zirvo {
namespace {

static_assert(JapaneseBase + HighestMessage == EnglishBase, "the English entries follow the Japanese ones");
static_assert(std::all_of(CatalogueTable.begin(), CatalogueTable.end(),
                          [](const CatalogueRow& row) { return !row.Japanese.empty() && !row.English.empty(); }));

}  // namespace

Int16 ChooseLanguageBase(bool japaneseSet, bool englishSet) {
    if (japaneseSet) {
        return JapaneseBase;
    }
    return englishSet ? EnglishBase : Int16{0};
}

std::string_view GetMessage(Int16 languageBase, Int16 k) {
    const Int16 entry = AddInt16(languageBase, k);
    if (languageBase == 0 || entry < JapaneseBase + LowestMessage || entry > EnglishBase + HighestMessage) {
        return {};
    }
    const bool japanese = entry <= JapaneseBase + HighestMessage;
    const int row = entry - LowestMessage - (japanese ? JapaneseBase : EnglishBase);
    const CatalogueRow& texts = CatalogueTable[static_cast<std::size_t>(row)];
    return japanese ? texts.Japanese : texts.English;
}

}  // namespace zirvo
