// The two manuals, see manual.h.
#include "help/manual.h"

#include "platform/files.h"
#include "text/catalogue.h"

namespace zirvo::test {
namespace {

Manual Read(const std::string& name, Int16 languageBase, const std::string& batchWord) {
    return {name, languageBase, batchWord, HtmlPage(ReadFileBytes(std::string(ZIRVO_BIN "/") + name))};
}

}  // namespace

const Manual& ManualOf(Int16 languageBase) {
    static const Manual japanese = Read("ZIRVO1.html", JapaneseBase, "ja");
    static const Manual english = Read("ZIRVO2.html", EnglishBase, "en");
    return languageBase == JapaneseBase ? japanese : english;
}

std::string Message(const Manual& manual, Int16 k) {
    return Squeezed(GetMessage(manual.LanguageBase, k));
}

}  // namespace zirvo::test
