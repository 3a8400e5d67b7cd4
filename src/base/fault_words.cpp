// The words of what a fault was about, see fault_words.h.
#include "base/fault_words.h"

#include <algorithm>
#include <array>
#include <span>

namespace zirvo {
namespace {

struct Words {
    std::string_view English;
    std::string_view Japanese;

    std::string_view In(FaultLanguage language) const {
        return language == FaultLanguage::Japanese ? Japanese : English;
    }
};

/// Stands for any number of a matter that the rows above it do not name.
constexpr int AnyNumber = 0;

struct Row {
    FaultMatter Matter;
    int Number;
    Words Text;  ///< %1: the name
};

/// In front of the name, for a matter that has one to be shown on a line of its own.
constexpr std::array Labels{
    Row{FaultMatter::File, AnyNumber, {"File: %1", "ファイル: %1"}},
    Row{FaultMatter::Folder, AnyNumber, {"Folder: %1", "フォルダ: %1"}},
    Row{FaultMatter::Program, AnyNumber, {"Program: %1", "プログラム: %1"}},
    Row{FaultMatter::Settings, AnyNumber, {"File: %1", "ファイル: %1"}},
    Row{FaultMatter::Report, AnyNumber, {"File: %1", "ファイル: %1"}},
};

constexpr Words NoRights{
    "It may not be read or written. Please check its permissions and whether another program has "
    "it open.",
    "読み書きができません。アクセス権と、ほかのプログラムで開いていないかをご確認ください。"};
constexpr Words BadContents{"It does not hold what is expected there.", "ファイルの内容が正しくありません。"};
constexpr Words UnreadableSettings{
    "Its contents cannot be read. Please delete this file: folder, units and objective can then be chosen anew.",
    "内容を読み取れません。このファイルを削除すると、フォルダ、単位、目的を選び直せます。"};

/// What is wrong, and what helps. The first row that fits counts.
constexpr std::array Hints{
    Row{FaultMatter::Program,
        fault::FileNotFound,
        {"This program is missing or cannot be started. Please unpack ZIRVO again.",
         "このプログラムがないか、起動できません。ZIRVOを展開し直してください。"}},
    Row{FaultMatter::Program,
        AnyNumber,
        {"This program could not be started. Please check its permissions.",
         "このプログラムを起動できませんでした。アクセス権をご確認ください。"}},
    Row{FaultMatter::Report,
        fault::FileNotFound,
        {"The solver has not written this file.", "ソルバーがこのファイルを書き出しませんでした。"}},
    Row{FaultMatter::Settings, fault::InputPastEnd, UnreadableSettings},
    Row{FaultMatter::Settings, fault::TypeMismatch, UnreadableSettings},
    Row{FaultMatter::Settings, fault::Overflow, UnreadableSettings},
    Row{FaultMatter::Settings, fault::InvalidCall, UnreadableSettings},
    Row{FaultMatter::LoadPositions,
        AnyNumber,
        {"The loads lie so far out that no grid of points can be made. Please check their X, Y and radius.",
         "載荷点が遠すぎるため、着目点の格子を作れません。X座標、Y座標、半径をご確認ください。"}},
    Row{FaultMatter::Thicknesses,
        AnyNumber,
        {"The layers are so thick that no grid of points can be made. Please check their thicknesses.",
         "層が厚すぎるため、着目点の格子を作れません。層厚をご確認ください。"}},
    Row{FaultMatter::LayerCell,
        AnyNumber,
        {"The LAYER cell of point of interest %1 does not hold a number.",
         "着目点 %1 の層番号に数値が入力されていません。"}},
    Row{FaultMatter::LineCount,
        AnyNumber,
        {"The number of contour lines is too large: %1", "コンターの線の数が大きすぎます: %1"}},
    Row{FaultMatter::None, fault::BadFileName, {"This name cannot be used.", "この名前は使えません。"}},
    Row{FaultMatter::None, fault::FileNotFound, {"This file does not exist.", "このファイルはありません。"}},
    Row{FaultMatter::None,
        fault::FileAlreadyOpen,
        {"This file is still open. Please start ZIRVO again.",
         "このファイルは開いたままです。ZIRVOを起動し直してください。"}},
    Row{FaultMatter::None,
        fault::DeviceError,
        {"The drive reports an error.", "ドライブの読み書きでエラーが起きました。"}},
    Row{FaultMatter::None,
        fault::FileAlreadyExists,
        {"A file of this name is in the way. Please move or delete it.",
         "同じ名前のファイルが残っています。移動するか削除してください。"}},
    Row{FaultMatter::None,
        fault::DiskFull,
        {"There is no room left for this file. Please free some space on the drive.",
         "このファイルを書き込む空き容量がありません。ドライブの空き容量を増やしてください。"}},
    Row{FaultMatter::None, fault::InputPastEnd, {"It ends too early.", "ファイルが途中で終わっています。"}},
    Row{FaultMatter::None, fault::PermissionDenied, NoRights},
    Row{FaultMatter::None, fault::PathAccess, NoRights},
    Row{FaultMatter::None, fault::PathNotFound, {"This folder does not exist.", "このフォルダはありません。"}},
    Row{FaultMatter::None, fault::TypeMismatch, BadContents},
    Row{FaultMatter::None, fault::Overflow, BadContents},
    Row{FaultMatter::None, fault::SubscriptOutOfRange, BadContents},
    Row{FaultMatter::None, fault::InvalidCall, BadContents},
};

constexpr Words SolverSays{"The solver's report says:", "ソルバーの報告:"};
constexpr Words Ends{"The program ends now.", "プログラムを終了します。"};
constexpr Words Kept{"What you typed is kept.", "入力した内容は残してあります。"};
constexpr Words NotKept{"What you typed could not be kept.", "入力した内容は残せませんでした。"};

/// The text of the row that is about this matter, or about whatever has a name, and this number.
std::string TextOf(std::span<const Row> rows, const RuntimeFault& caught, FaultLanguage language) {
    const FaultSubject& about = caught.About();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const Row& one) {
        return (one.Matter == about.Matter || one.Matter == FaultMatter::None) &&
               (one.Number == caught.Number() || one.Number == AnyNumber);
    });
    if (row == rows.end()) {
        return {};
    }
    std::string text(row->Text.In(language));
    if (const std::size_t place = text.find("%1"); place != std::string::npos) {
        text.replace(place, 2, about.Name);
    }
    return text;
}

}  // namespace

std::string FaultExplanation(const RuntimeFault& caught, FaultLanguage language) {
    const FaultSubject& about = caught.About();
    std::string lines;
    const auto add = [&lines](const std::string& text) {
        if (!text.empty()) {
            lines += (lines.empty() ? "" : "\n") + text;
        }
    };
    if (!about.Name.empty()) {
        add(TextOf(Labels, caught, language));
    }
    if (about.Matter != FaultMatter::None) {
        add(TextOf(Hints, caught, language));
    }
    if (!about.Reason.empty()) {
        add(std::string(SolverSays.In(language)));
        add(about.Reason);
    }
    return lines;
}

std::string_view ProgramEnds(FaultLanguage language) {
    return Ends.In(language);
}

std::string_view TypedDataKept(FaultLanguage language, bool kept) {
    return (kept ? Kept : NotKept).In(language);
}

}  // namespace zirvo
