// The two-language table behind words.h. Every text can be written in code page 932 and holds no comma and no run of
// blanks, so that the comma copies of the reports come out right.
#include "solver/io/words.h"

#include <array>
#include <cstddef>

#include "base/utf8.h"

namespace zirvo::solver {
namespace {

struct WordRow {
    Word Id;
    std::string_view English;
    std::string_view Japanese;
};

constexpr std::array WordTable{
    WordRow{Word::None, "", ""},
    // Heads and tails of the reports
    WordRow{Word::TitleResults, "MULTI-LAYERED ELASTIC ANALYSIS - RESULTS", "多層弾性解析 - 計算結果"},
    WordRow{Word::TitlePrincipal, "MULTI-LAYERED ELASTIC ANALYSIS - PRINCIPAL VALUES",
            "多層弾性解析 - 主応力と主ひずみ"},
    WordRow{Word::TitleSection, "MULTI-LAYERED ELASTIC ANALYSIS - CROSS SECTION", "多層弾性解析 - 断面"},
    WordRow{Word::InputFile, "INPUT FILE: %1", "入力ファイル: %1"},
    WordRow{Word::InputUnits, "INPUT UNITS: %1", "入力単位: %1"},
    WordRow{Word::OutputUnits, "OUTPUT UNITS: %1", "出力単位: %1"},
    WordRow{Word::Signs, "SIGNS: TENSION IS POSITIVE; X AND Y LIE IN THE SURFACE; Z AND W POINT DOWN",
            "符号: 引張が正; XとYは表面内; ZとWは下向きが正"},
    WordRow{Word::SignsOfStrains, "STRAINS IN MICRO (1E-6); SHEAR STRAINS ARE ENGINEERING STRAINS",
            "ひずみの単位はmicro (1E-6); せん断ひずみは工学ひずみ"},
    WordRow{Word::SignsOfPrincipal,
            "PRINCIPAL VALUES: 1 IS THE LARGEST AND 3 THE SMALLEST; L M N ARE DIRECTION COSINES",
            "主値: 1が最大 3が最小; L M N は方向余弦"},
    WordRow{Word::LayersTitle, "LAYERS", "層"},
    WordRow{Word::LoadsTitle, "LOADS", "荷重"},
    WordRow{Word::NumberOfPoints, "NUMBER OF POINTS: %1", "着目点数: %1"},
    WordRow{Word::EdgeNote1, "NOTE: POINTS ON THE EDGE OF A LOAD AT THE SURFACE: %1",
            "注: 表面で荷重円の縁上にある着目点の数: %1"},
    WordRow{Word::EdgeNote2, "VALUES THAT JUMP THERE ARE THE MEAN OF THE TWO SIDES.",
            "そこで不連続な値は両側の平均です。"},
    WordRow{Word::EdgeNote3,
            "VALUES THAT A HORIZONTAL LOAD MAKES INFINITE THERE (SIGx SIGy TAUxy EPSx EPSy EPSz GAMxy)",
            "水平荷重により無限大となる値 (SIGx SIGy TAUxy EPSx EPSy EPSz GAMxy) は"},
    WordRow{Word::EdgeNote4, "TAKE FOR ITS SHARE THE MEAN OF THOSE AT 0.999 AND 1.001 OF THE RADIUS.",
            "その荷重の分について半径の0.999倍と1.001倍での値の平均です。"},
    WordRow{Word::EdgePoints, "THESE POINTS ARE NUMBER:", "着目点の番号:"},
    WordRow{Word::MovedPoints, "NOTE: DEPTHS OUTSIDE THE NAMED LAYER BY AT MOST 0.01 cm TAKEN ON ITS BOUNDARY: %1",
            "注: 指定層から0.01cm以内で外れ 境界上とした着目点の数: %1"},
    WordRow{Word::PointsOnBoundary, "NOTE: DEPTHS OUTSIDE THE NAMED LAYER TAKEN ON ITS NEAREST BOUNDARY: %1",
            "注: 指定層から外れ 最も近い境界上とした着目点の数: %1"},
    WordRow{Word::LargestBound, "LARGEST BOUND OF THE RELATIVE ERROR: %1 (PROMISED: %2)",
            "相対誤差の上限値の最大: %1 (保証値: %2)"},
    WordRow{Word::PointAbovePromise, "NOTE: POINT %1: BOUND OF THE RELATIVE ERROR %2 IS ABOVE THE PROMISE",
            "注: 着目点 %1: 相対誤差の上限値 %2 が保証値を超えています"},
    WordRow{Word::UnknownBound, "UNKNOWN", "不明"},
    WordRow{Word::EndOfReport, "END OF REPORT", "報告終わり"},
    // Headings of the tables
    WordRow{Word::HeadPoisson, "POISSON", "ポアソン比"},
    WordRow{Word::HeadThickness, "THICK(cm)", "層厚(cm)"},
    WordRow{Word::HeadSlip, "SLIP-RATE", "すべり率"},
    WordRow{Word::HeadVertical, "VERT(%1)", "鉛直(%1)"},
    WordRow{Word::HeadRadius, "RADIUS(cm)", "半径(cm)"},
    WordRow{Word::HeadHorizontal, "HORIZ(%1)", "水平(%1)"},
    WordRow{Word::HeadAngle, "ANGLE(deg)", "角度(deg)"},
    WordRow{Word::GroupPoint, "POINT(cm)", "ﾁｬｸﾓｸﾃﾝ(cm)"},
    WordRow{Word::GroupDisplacement, "DISPLACEMENT(cm)", "ﾍﾝｲ(cm)"},
    // In Japanese exactly three double-width characters each: the viewer cuts this line by those widths.
    WordRow{Word::GroupStress, "STRESS(%1)", "応　力SIG(%1)"},
    WordRow{Word::GroupShearStress, "SHEAR-STRESS(%1)", "応　力TAU(%1)"},
    WordRow{Word::GroupStrain, "STRAIN(micro)", "ひずみEPS(micro)"},
    WordRow{Word::GroupShearStrain, "SHEAR-STRAIN(micro)", "ひずみGAM(micro)"},
    // Half-width only: the table of the principal values has no double-width character in either language.
    WordRow{Word::GroupPrincipalStress, "PRINCIPAL-STRESS(%1)", "ｼｭｵｳﾘｮｸ(%1)"},
    WordRow{Word::GroupPrincipalStrain, "PRINCIPAL-STRAIN(micro)", "ｼｭﾋｽﾞﾐ(micro)"},
    WordRow{Word::GroupLargestShear, "SHEAR(%1;micro)", "ｾﾝﾀﾞﾝ(%1;micro)"},
    WordRow{Word::GroupFirstDirection, "DIRECTION-OF-SIG1(cosines)", "SIG1-ﾎｳｺｳﾖｹﾞﾝ(-)"},
    WordRow{Word::GroupThirdDirection, "DIRECTION-OF-SIG3(cosines)", "SIG3-ﾎｳｺｳﾖｹﾞﾝ(-)"},
    WordRow{Word::HeadLayer, "LAYER", "ｿｳ"},
    // Reports of bad input
    WordRow{Word::BadInput, "ERROR - THIS REPORT HOLDS NO RESULTS", "エラー - この報告に計算結果はありません"},
    WordRow{Word::ErrorFile, "FILE: %1", "ファイル: %1"},
    WordRow{Word::ErrorRow, "ROW: %1", "行: %1"},
    WordRow{Word::ErrorLine, "line %1", "%1行目"},
    WordRow{Word::ErrorValue, "VALUE: %1", "値: %1"},
    WordRow{Word::ErrorReason, "REASON: %1", "理由: %1"},
    // Rows
    WordRow{Word::RowNames, "output file names", "出力ファイル名"},
    WordRow{Word::RowHeading, "heading", "見出し"},
    WordRow{Word::RowCounts, "counts", "個数"},
    WordRow{Word::RowLayer, "layer", "層"},
    WordRow{Word::RowLoad, "load", "載荷点"},
    WordRow{Word::RowPoint, "point of interest", "着目点"},
    // Values
    WordRow{Word::ResultName, "name of the result file", "計算結果ファイル名"},
    WordRow{Word::PrincipalName, "name of the file of principal values", "主応力ファイル名"},
    WordRow{Word::LanguageNumber, "language number", "言語番号"},
    WordRow{Word::UnitNumber, "unit system", "単位系"},
    WordRow{Word::InputName, "name of the input file", "入力ファイル名"},
    WordRow{Word::LayerCount, "number of layers", "層数"},
    WordRow{Word::LoadCount, "number of loads", "載荷点数"},
    WordRow{Word::PointCount, "number of points", "着目点数"},
    WordRow{Word::Modulus, "modulus", "弾性係数"},
    WordRow{Word::PoissonRatio, "Poisson ratio", "ポアソン比"},
    WordRow{Word::Thickness, "thickness", "層厚"},
    WordRow{Word::SlipRate, "slip rate", "層間すべり率"},
    WordRow{Word::VerticalLoad, "vertical load", "鉛直荷重"},
    WordRow{Word::Radius, "radius", "半径"},
    WordRow{Word::LoadX, "X of the load", "載荷点のX座標"},
    WordRow{Word::LoadY, "Y of the load", "載荷点のY座標"},
    WordRow{Word::HorizontalLoad, "horizontal load", "水平荷重"},
    WordRow{Word::Angle, "angle from X", "X軸との角度"},
    WordRow{Word::LayerNumber, "layer number", "層番号"},
    WordRow{Word::PointX, "X", "X座標"},
    WordRow{Word::PointY, "Y", "Y座標"},
    WordRow{Word::PointZ, "Z", "Z座標"},
    // Reasons
    WordRow{Word::FileMissing, "the file does not exist", "ファイルが存在しません"},
    WordRow{Word::FileUnreadable, "the file cannot be read", "ファイルを読み込めません"},
    WordRow{Word::EndsEarly, "the file ends too early", "ファイルが途中で終わっています"},
    WordRow{Word::TextTooLong, "the text is too long", "文字列が長すぎます"},
    WordRow{Word::NotANumber, "is not a number", "数値ではありません"},
    WordRow{Word::NotAnInteger, "is not a whole number", "整数ではありません"},
    WordRow{Word::NumbersTouch, "numbers touch and the line is too long to be cut at its columns",
            "数値が続いており 行が長すぎるため桁位置で区切れません"},
    WordRow{Word::OutsideRange, "must be %1 to %2", "%1から%2まででなければなりません"},
    WordRow{Word::MustBeAbove, "must be above %1", "%1より大きくなければなりません"},
    WordRow{Word::MustBeAtMost, "must be at most %1", "%1以下でなければなりません"},
    WordRow{Word::NoLoadAtAll, "vertical and horizontal load are both 0", "鉛直荷重と水平荷重がともに0です"},
    WordRow{Word::AboveItsLayer, "lies above layer %1 (its top is at %2 cm)",
            "第%1層より上にあります (層の上面は%2cm)"},
    WordRow{Word::BelowItsLayer, "lies below layer %1 (its bottom is at %2 cm)",
            "第%1層より下にあります (層の下面は%2cm)"},
    WordRow{Word::DoesNotFit, "is too large for its column in the report", "報告の欄に入りません"},
    WordRow{Word::NameEmpty, "is empty", "空です"},
    WordRow{Word::NameHasFolder, "must not hold a folder", "フォルダを含んではなりません"},
    WordRow{Word::NameIsFolder, "is a folder", "フォルダです"},
    WordRow{Word::NameIsWorkFile, "is the input file or the control file", "入力ファイルまたは制御ファイルと同じです"},
    WordRow{Word::NamesEqual, "the two output files have the same name", "二つの出力ファイル名が同じです"},
    WordRow{Word::NameUnusable, "cannot be the name of a file", "ファイル名として使えません"},
    WordRow{Word::NotWritable, "may not be written", "書き込みが許されていません"},
    WordRow{Word::NotWritten, "could not be written: %1", "書き込めませんでした: %1"},
    WordRow{Word::NotFinite, "the result is not a finite number", "計算結果が有限の数値ではありません"},
    WordRow{Word::TooLarge, "the result is above 9.9999E+99", "計算結果が9.9999E+99を超えています"},
    WordRow{Word::OutOfMemory, "there is not enough memory", "メモリが足りません"},
    WordRow{Word::InternalFault, "the program failed: %1", "プログラムの異常: %1"},
};

constexpr bool WordTableIsInOrder() {
    for (std::size_t i = 0; i < WordTable.size(); ++i) {
        if (WordTable[i].Id != static_cast<Word>(i)) {
            return false;
        }
    }
    return true;
}

static_assert(WordTable.size() == static_cast<std::size_t>(Word::WordCount));
static_assert(WordTableIsInOrder());

}  // namespace

std::string_view TextOf(Language language, Word word) {
    const WordRow& row = WordTable[static_cast<std::size_t>(word)];
    return language == Language::Japanese ? row.Japanese : row.English;
}

std::string FillIn(std::string_view text, std::initializer_list<std::string_view> arguments) {
    std::string filled;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 1 < text.size() && text[i + 1] >= '1' && text[i + 1] <= '9') {
            const auto place = static_cast<std::size_t>(text[i + 1] - '1');
            if (place < arguments.size()) {
                filled += *(arguments.begin() + place);
            }
            ++i;
        } else {
            filled += text[i];
        }
    }
    return filled;
}

std::string PrintableText(std::string_view text, std::size_t longest) {
    std::string printable;
    for (const char c : text) {
        if (c == ' ' || c == '\t') {
            if (printable.empty() || printable.back() != ' ') {
                printable += ' ';
            }
        } else if (c == ',') {
            printable += ';';
        } else {
            printable += static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? '?' : c;
        }
    }
    if (longest > 0 && CharacterCount(printable) > longest) {
        printable = std::string(CharacterSlice(printable, 0, longest)) + "...";
    }
    return printable;
}

}  // namespace zirvo::solver
