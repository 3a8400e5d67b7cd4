// The notes of the first screen, see start_notes.h.
#include "shell/start_notes.h"

namespace zirvo {
namespace {

constexpr const char* EnglishNotes =
    "ZIRVO serves engineers who analyse the structure of pavements, such as roads and runways, modelled as "
    "multi-layered linear elastic systems.\n"
    "\n"
    "Loads: vertical loads (wheel loads) and horizontal loads (braking loads) act on the surface, over circular "
    "areas.\n"
    "\n"
    "Interfaces: a slip between two layers can be given, in the form of a shear spring.\n"
    "\n"
    "Solution: the theoretical solutions for vertically and for horizontally distributed loads are summed by "
    "superposition.\n"
    "\n"
    "Results: stresses, strains and deflections can be computed at any point.\n"
    "\n"
    "Limits: 100 loads, 100 pavement layers, 10000 points of interest.\n";

constexpr const char* JapaneseNotes =
    "ZIRVO は、道路や滑走路などの舗装構造を多層線形弾性体としてモデル化し、解析する技術者のためのシステムです。\n"
    "\n"
    "荷重：　表面の円形の範囲に、鉛直荷重（輪荷重）と水平荷重（制動荷重）が作用します。\n"
    "\n"
    "層間：　層と層の境界に、せん断ばねの形ですべりを与えることができます。\n"
    "\n"
    "解法：　鉛直・水平の分布荷重に対する理論解を、重ね合わせの原理により足し合わせます。\n"
    "\n"
    "結果：　任意の点の応力、ひずみ、たわみを計算できます。\n"
    "\n"
    "上限：　載荷点 100 点、舗装の層 100 層、着目点 10000 点まで扱えます。\n";

}  // namespace

std::string StartNotes(forms::Language language) {
    return std::string(language == forms::Language::Japanese ? JapaneseNotes : EnglishNotes) + "\n" + RightsLine +
           "\n" + LicenseLine;
}

}  // namespace zirvo
