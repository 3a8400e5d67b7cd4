// The text of the box that ends the program, see fault_box.h.
#include "forms/fault_box.h"

#include "base/fault_words.h"

namespace zirvo::forms {
namespace {

void AppendBlock(std::string& text, const FaultBox& box, FaultLanguage language) {
    const std::string explanation = box.Caught == nullptr ? std::string() : FaultExplanation(*box.Caught, language);
    if (!explanation.empty()) {
        text.append("\n\n").append(explanation);
    }
    text.append("\n\n").append(ProgramEnds(language));
    if (box.Kept) {
        text.append("\n").append(TypedDataKept(language, *box.Kept));
    }
}

}  // namespace

std::string FaultBoxText(const FaultBox& box) {
    std::string text = box.Heading + "\n\n" + box.Description;
    if (box.Words != Language::English) {
        AppendBlock(text, box, FaultLanguage::Japanese);
    }
    if (box.Words != Language::Japanese) {
        AppendBlock(text, box, FaultLanguage::English);
    }
    return text;
}

}  // namespace zirvo::forms
