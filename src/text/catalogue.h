// The message catalogue: 173 numbered texts in Japanese and English, and the language base that finds them.
#pragma once
#include <string_view>

#include "base/int16.h"

namespace zirvo {

inline constexpr Int16 JapaneseBase = 100;
inline constexpr Int16 EnglishBase = 273;
inline constexpr Int16 LowestMessage = 1;
inline constexpr Int16 HighestMessage = 173;

/// 100 if the Japanese option is set, else 273 if the English one is set, else 0.
Int16 ChooseLanguageBase(bool japaneseSet, bool englishSet);

/// The text of entry languageBase + k, UTF-8, blanks as they stand; empty where the table has no such entry (101 to 446
/// exist). The sum is a 16-bit addition.
std::string_view GetMessage(Int16 languageBase, Int16 k);

}  // namespace zirvo
