// The words of the solver programs in their two languages: reports, messages on standard error, names of values.
// Callers: everything in this folder. To add a word, add an enumerator here and its row, at the same place, in
// words.cpp.
#pragma once
#include <initializer_list>
#include <string>
#include <string_view>

namespace zirvo::solver {

/// The language number of the control file.
enum class Language { Japanese = 1, English = 2 };

/// A text of the table. %1, %2 in it stand for what FillIn puts there.
enum class Word : int {
    None,
    // Heads and tails of the reports
    TitleResults,
    TitlePrincipal,
    TitleSection,
    InputFile,
    InputUnits,
    OutputUnits,
    Signs,
    SignsOfStrains,
    SignsOfPrincipal,
    LayersTitle,
    LoadsTitle,
    NumberOfPoints,
    EdgeNote1,
    EdgeNote2,
    EdgeNote3,
    EdgeNote4,
    EdgePoints,
    MovedPoints,
    PointsOnBoundary,
    LargestBound,
    PointAbovePromise,
    UnknownBound,
    EndOfReport,
    // Headings of the tables
    HeadPoisson,
    HeadThickness,
    HeadSlip,
    HeadVertical,
    HeadRadius,
    HeadHorizontal,
    HeadAngle,
    GroupPoint,
    GroupDisplacement,
    GroupStress,
    GroupShearStress,
    GroupStrain,
    GroupShearStrain,
    GroupPrincipalStress,
    GroupPrincipalStrain,
    GroupLargestShear,
    GroupFirstDirection,
    GroupThirdDirection,
    HeadLayer,
    // Reports of bad input
    BadInput,
    ErrorFile,
    ErrorRow,
    ErrorLine,
    ErrorValue,
    ErrorReason,
    // Rows
    RowNames,
    RowHeading,
    RowCounts,
    RowLayer,
    RowLoad,
    RowPoint,
    // Values
    ResultName,
    PrincipalName,
    LanguageNumber,
    UnitNumber,
    InputName,
    LayerCount,
    LoadCount,
    PointCount,
    Modulus,
    PoissonRatio,
    Thickness,
    SlipRate,
    VerticalLoad,
    Radius,
    LoadX,
    LoadY,
    HorizontalLoad,
    Angle,
    LayerNumber,
    PointX,
    PointY,
    PointZ,
    // Reasons
    FileMissing,
    FileUnreadable,
    EndsEarly,
    TextTooLong,
    NotANumber,
    NotAnInteger,
    NumbersTouch,
    OutsideRange,
    MustBeAbove,
    MustBeAtMost,
    NoLoadAtAll,
    AboveItsLayer,
    BelowItsLayer,
    DoesNotFit,
    NameEmpty,
    NameHasFolder,
    NameIsFolder,
    NameIsWorkFile,
    NamesEqual,
    NameUnusable,
    NotWritable,
    NotWritten,
    NotFinite,
    TooLarge,
    OutOfMemory,
    InternalFault,
    WordCount
};

/// The text of a word in the language, UTF-8. None is the empty text.
std::string_view TextOf(Language language, Word word);

/// The text with %1, %2, ... replaced by the arguments in their order.
std::string FillIn(std::string_view text, std::initializer_list<std::string_view> arguments);

/// A name or a text of the user as the reports print it, UTF-8: a comma becomes ";", a run of blanks and tabs one
/// blank, any other control character "?". With `longest` above 0 a longer text is cut to so many characters and "..."
/// is put behind it.
std::string PrintableText(std::string_view text, std::size_t longest = 0);

}  // namespace zirvo::solver
