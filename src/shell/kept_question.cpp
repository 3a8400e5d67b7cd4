// The words of the question about kept data, see kept_data.h.
#include <algorithm>
#include <string_view>

#include "platform/clock.h"
#include "shell/kept_data.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

constexpr Int16 FirstCountCaption = 20;  // layers, loads, points

std::string_view UnitsText(int units) {
    return units == 0 ? "" : units == 3 ? "kN, MPa, cm" : "kgf, kgf/cm2, cm";
}

/// The name of a count without the gaps by which it is spread on the screen.
std::string CountName(Int16 caption, Int16 languageBase) {
    constexpr std::string_view gap = "　";
    std::string name(GetMessage(languageBase, caption));
    for (std::size_t at = name.find(gap); at != std::string::npos; at = name.find(gap)) {
        name.erase(at, gap.size());
    }
    return name;
}

std::string CountsText(const std::vector<int>& counts, Int16 languageBase) {
    std::string text;
    Int16 caption = FirstCountCaption;
    for (const int count : counts) {
        text.append(text.empty() ? "" : ", ");
        text.append(CountName(caption++, languageBase)).append(" ").append(std::to_string(count));
    }
    return text;
}

/// What was kept, a line for each thing that is known of it.
std::string DataText(const KeptScreen& kept, Int16 languageBase) {
    std::string text = CountsText(kept.Counts, languageBase);
    const auto name =
        std::find_if(kept.Names.begin(), kept.Names.end(), [](const std::string& one) { return !one.empty(); });
    if (name != kept.Names.end()) {
        text.append("\n").append(*name);
    }
    if (kept.Units != 0) {
        text.append("\n").append(UnitsText(kept.Units));
    }
    return text;
}

}  // namespace

std::string KeptQuestion(const KeptScreen& kept, bool declined, int units, Int16 languageBase) {
    const std::string data = DataText(kept, languageBase);
    const std::string when = LocalTimeText(kept.When);
    const bool otherUnits = kept.Units != 0 && UnitsText(kept.Units) != UnitsText(units);
    const std::string now(UnitsText(units));
    if (languageBase == JapaneseBase) {
        return when + " のデータが、保存されないまま残っています。\n\n" + data + "\n\n" +
               (otherUnits ? "現在の画面の単位は " + now + " です。数値は換算されません。\n\n" : "") +
               "このデータを画面に読み込みますか？\n" +
               (declined ? "（一度「いいえ」を選んだデータです。もう一度「いいえ」を選ぶと削除されます。）"
                         : "（「いいえ」を選んでもデータは残り、あと一度だけ確認します。）");
    }
    return "Data of " + when + " were kept and never saved:\n\n" + data + "\n\n" +
           (otherUnits ? "The screen is now set to " + now + "; no number is converted.\n\n" : "") +
           "Put them on the screen?\n" +
           (declined ? "(You have said No to them once: No now deletes them.)"
                     : "(No keeps them, and they are offered once more.)");
}

}  // namespace zirvo
