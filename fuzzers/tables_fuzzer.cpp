// Tables of text: comma-separated tables of numbers and gears of one's own, transfer functions by their names, and
// blocks of cells from the clipboard.
#include <cmath>
#include <sstream>
#include <string>
#include <variant>

#include "base/utf8.h"
#include "design/gears.h"
#include "design/lives.h"
#include "design/number_table.h"
#include "grid/cell_block.h"
#include "support/fuzzing.h"
#include "support/work_folder.h"

namespace zirvo::fuzz {
namespace {

using design::FileError;
using design::NumberTable;

std::string Written(const NumberTable& table) {
    std::string text;
    for (const std::string& column : table.Columns) {
        text += (text.empty() ? "" : ",") + column;
    }
    for (std::size_t row = 0; row < table.Rows(); ++row) {
        for (std::size_t column = 0; column < table.Columns.size(); ++column) {
            text += (column == 0 ? "\n" : ",") + design::ShortestText(table.At(row, column));
        }
    }
    return text;
}

void RunTable(const std::string& bytes) {
    const auto strict = design::ReadNumberTable(bytes, "a.csv", design::BadCells::Refuse);
    const auto patient = design::ReadNumberTable(bytes, "a.csv", design::BadCells::AreNaN);
    if (const auto* error = std::get_if<FileError>(&strict)) {
        Require(!error->Reason.empty() && error->Text().starts_with("a.csv:"), "what is wrong is said with its file");
        return;
    }
    const auto& table = std::get<NumberTable>(strict);
    Require(std::holds_alternative<NumberTable>(patient) && std::get<NumberTable>(patient).Numbers == table.Numbers,
            "a table of numbers alone is the same to both readings");
    Require(table.Numbers.size() == table.Rows() * table.Columns.size(), "each row is as long as the headings");
    for (const double number : table.Numbers) {
        Require(std::isfinite(number), "a cell is a finite number");
    }
    if (!table.Columns.front().starts_with("\xEF\xBB\xBF")) {
        const auto again = design::ReadNumberTable(Written(table), "a.csv", design::BadCells::Refuse);
        Require(std::holds_alternative<NumberTable>(again), "a table is written so that it reads");
        Require(std::get<NumberTable>(again).Numbers == table.Numbers &&
                    std::get<NumberTable>(again).Columns == table.Columns,
                "a table is written and read as the same");
    }
}

void RunAxleLoads() {
    const auto read = design::ReadAxleLoads("gear.csv");
    if (const auto* loads = std::get_if<std::vector<design::AxleLoad>>(&read)) {
        for (const design::AxleLoad& load : *loads) {
            Require(load.Load > 0 && load.Repetitions >= 0, "an axle load is one");
        }
    } else {
        Require(!std::get<FileError>(read).Reason.empty(), "what is wrong with axle loads is said");
    }
}

void RunGear() {
    const auto read = design::ReadGearFile("gear.csv");
    if (const auto* error = std::get_if<FileError>(&read)) {
        Require(!error->Reason.empty(), "what is wrong with a gear is said");
        return;
    }
    const auto& wheels = std::get<std::vector<design::Wheel>>(read);
    const design::GearFit fit{.Load = 200, .Radius = 15, .Angle = 33.5};
    const auto made = design::LoadsOfWheels(wheels, fit, solver::UnitSystem::KnToMpa);
    if (const auto* reason = std::get_if<std::string>(&made)) {
        Require(!reason->empty(), "why wheels are no loads is said");
        return;
    }
    const auto& loads = std::get<std::vector<solver::Load>>(made);
    Require(loads.size() == wheels.size(), "each wheel is a load");
    for (const solver::Load& load : loads) {
        Require(std::isfinite(load.X) && std::isfinite(load.Y) && std::isfinite(load.Vertical) && load.Radius > 0,
                "each wheel has its place and its size");
    }
}

void RunFunction(const std::string& text) {
    const auto found = design::TransferFunctionOf(text);
    if (const auto* reason = std::get_if<std::string>(&found)) {
        Require(!reason->empty(), "why there is no such function is said");
        return;
    }
    for (const double strain : {-1e-4, 0.0, 1e-9, 1e-4, 1.0}) {
        Require(!std::isnan(design::LifeOf(std::get<design::TransferFunction>(found), strain, 3000)),
                "a life is a number or without an end");
    }
}

/// A row of one empty cell at the very end is no row in a text.
bool EndsInNothing(const CellBlock& block) {
    return !block.empty() && block.back().size() == 1 && block.back().front().empty();
}

/// A text without quotes, cut at tabs and line ends.
CellBlock PiecesOf(const std::string& text) {
    CellBlock block;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::vector<std::string>& row = block.emplace_back();
        std::istringstream cells(line + "\t");
        for (std::string cell; std::getline(cells, cell, '\t');) {
            row.push_back(cell);
        }
    }
    return block;
}

void RunCells(const std::string& text) {
    const CellBlock block = ReadCellBlock(text);
    if (text.find_first_of("\"\r") == std::string::npos) {
        Require(block == PiecesOf(text), "cells without quotes are the pieces between tabs and line ends");
    }
    std::size_t cells = 0;
    for (const std::vector<std::string>& row : block) {
        Require(!row.empty(), "a row has a cell");
        cells += row.size();
        for (const std::string& cell : row) {
            Require(IsValidUtf8(cell) || !IsValidUtf8(text), "a text is not cut within a character");
        }
    }
    Require(cells <= text.size() + 1, "no more cells than there is text");
    if (!EndsInNothing(block)) {
        Require(ReadCellBlock(WriteCellBlock(block)) == block, "what was pasted is copied and pasted as the same");
    }
}

}  // namespace

const int LongestRun = 1;

void RunInput(std::string_view input) {
    const std::string bytes(input);
    RunTable(bytes);
    RunFunction(bytes);
    RunCells(bytes);
    if (bytes.size() % 4 == 0) {  // files cost time
        EmptyWorkFolder();
        PutFile("gear.csv", bytes);
        RunGear();
        RunAxleLoads();
    }
}

}  // namespace zirvo::fuzz
