// The history of changes, see update_history.h.
#include "shell/update_history.h"

#include <span>
#include <string_view>

namespace zirvo {
namespace {

// Blanks are part of the lines.
// clang-format off
constexpr std::string_view EnglishHistory[] = {
    "[ Ver2.2 -> Ver2.3 ]",
    "・Added Previous and Help buttons on the Graphics window",
    "・File extension for input file in graphics only -> *.ven",
    "・File extension for in/output file -> Fixed",
    "・In/Output file: Slip coefficient in the comment line -> changed to slip rate",
    "・Input file: Load in the comment line -> changed to vert. load",
    "",
    "[ Ver2.1 -> Ver2.2 ]",
    "・Modification of layout of the window for initial setting (analysis only)",
    "・Introduction of default file extensions for input and output files",
    "  - Input file (*.eva)",
    "  - Output file (*.bre)",
    "  - Principal stresses & strains (*.san)",
    "・Addition of a line with software name and version number in all output files",
    "・Others - minor adjustments",
    "",
    "[ Ver2.0 -> Ver2.1 ]",
    "・Correction of output error when different loads(vertical and horizontal) are separately considered as multiple loads",
    "",
    "[ Ver1.2 -> Ver2.0 ]",
    "・Improvement of computational accuracy near surface",
    "・Improvement of GUI",
    "・Possibility to change value in [Max./Min. values] frame located in the graphics page",
    "",
    "[ Ver1.1 -> Ver1.2 ]",
    "・Incorrect layer number identification at the boundary due ",
    "  to inexact floating point arithmetic in many computers    -> modified data precision",
    "",
    "[ Ver1.0 -> Ver1.1 ]",
    "・Added button for ZIRVO - Version Info",
    "・Can not properly name file for principal values -> corrected",
    "・Incorrect data values saved in input file -> modify and corrected data format",
    "・Program does not start when user specified folder does not exist anymore -> corrected",
};

constexpr std::string_view JapaneseHistory[] = {
    "[ Ver2.2 -> Ver2.3 ]",
    "・ｸﾞﾗﾌｨｯｸｽ画面に「戻る」ﾎﾞﾀﾝと「ﾍﾙﾌﾟ」ﾎﾞﾀﾝを追加",
    "・ｸﾞﾗﾌｨｯｸｽ用の入力ﾌｧｲﾙの拡張子 -> *.ven",
    "・入力・出力ﾌｧｲﾙの拡張子 -> 固定",
    "・入力・出力ﾌｧｲﾙの拡張子は変更できません",
    "・入力・出力ﾌｧｲﾙ：　ｺﾒﾝﾄ行のすべり係数 -> すべり率に変更",
    "・入力ﾌｧｲﾙ：　ｺﾒﾝﾄ行の荷重 -> 鉛直荷重に変更",
    "",
    "[ Ver2.1 -> Ver2.2 ]",
    "・初期設定（解析用）画面のﾚｲｱｳﾄを変更",
    "・入力ﾌｧｲﾙと出力ﾌｧｲﾙに既定の拡張子を導入",
    "  - 入力ﾌｧｲﾙ (*.eva)",
    "  - 出力ﾌｧｲﾙ (*.bre)",
    "  - 主応力・主ひずみ (*.san)",
    "・すべての出力ﾌｧｲﾙにｿﾌﾄ名とﾊﾞｰｼﾞｮﾝ番号の行を追加",
    "・その他 - 細部の調整",
    "",
    "[ Ver2.0 -> Ver2.1 ]",
    "・種類の異なる荷重（鉛直・水平）を別々の載荷点として複数載荷したときの出力の誤りを修正",
    "",
    "[ Ver1.2 -> Ver2.0 ]",
    "・表面付近の計算精度を改善",
    "・GUI を改善",
    "・ｸﾞﾗﾌｨｯｸｽ画面の［最小値・最大値］枠で値を変更可能",
    "",
    "[ Ver1.1 -> Ver1.2 ]",
    "・多くの計算機では浮動小数点演算に誤差があるため、",
    "  境界の点の層番号が正しく判定されない    -> ﾃﾞｰﾀの精度を変更",
    "",
    "[ Ver1.0 -> Ver1.1 ]",
    "・ZIRVO のﾊﾞｰｼﾞｮﾝ情報のﾎﾞﾀﾝを追加",
    "・主応力・主ひずみのﾌｧｲﾙ名が正しく付けられない -> 修正",
    "・入力ﾌｧｲﾙに保存されるﾃﾞｰﾀの値が正しくない -> ﾃﾞｰﾀの書式を修正",
    "・指定したﾌｫﾙﾀﾞが存在しなくなるとﾌﾟﾛｸﾞﾗﾑが起動しない -> 修正",
};
// clang-format on

std::string Lines(std::span<const std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines) {
        text += line;
        text += "\r\n";
    }
    return text;
}

}  // namespace

std::string UpdateHistory(forms::Language language) {
    return language == forms::Language::Japanese ? Lines(JapaneseHistory) : Lines(EnglishHistory);
}

}  // namespace zirvo
