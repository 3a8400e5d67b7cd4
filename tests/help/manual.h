// The two manuals as they lie beside the programs. Callers: the tests of this folder.
#pragma once
#include <string>

#include "base/int16.h"
#include "help/html_page.h"

namespace zirvo::test {

struct Manual {
    std::string Name;        ///< of the file, without a folder
    Int16 LanguageBase = 0;  ///< of its language
    std::string BatchWord;   ///< the same language for zirvo-batch
    HtmlPage Page;
};

/// The manual of a language: JapaneseBase or EnglishBase.
const Manual& ManualOf(Int16 languageBase);

/// A text of the catalogue in the manual's language, runs of blanks as one.
std::string Message(const Manual& manual, Int16 k);

}  // namespace zirvo::test
