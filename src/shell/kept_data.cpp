// What stands on a data screen is kept and offered, see kept_data.h.
#include "shell/kept_data.h"

#include <algorithm>
#include <exception>

#include "forms/application.h"
#include "platform/clock.h"
#include "shell/screen_language.h"
#include "text/number_text.h"
#include "text/version_stamp.h"

namespace zirvo {
namespace {

constexpr int MostUnits = 3;

KeptTable TableOf(const forms::MSFlexGrid& grid) {
    KeptTable table{.Columns = grid.Cols - grid.FixedCols, .Cells = {}};
    table.Cells.reserve(static_cast<std::size_t>(grid.Rows) * static_cast<std::size_t>(table.Columns));
    for (int row = grid.FixedRows; row < grid.Rows; ++row) {
        for (int col = grid.FixedCols; col < grid.Cols; ++col) {
            table.Cells.push_back(grid.TextMatrix(row, col));
        }
    }
    return table;
}

/// The names that a screen puts there by itself.
bool IsTyped(const std::string& name) {
    return !name.empty() && name.rfind("Untitled.", 0) != 0;
}

}  // namespace

KeptData::KeptData(forms::Form& form, KeptStore& store, std::vector<KeptCount> counts,
                   std::vector<forms::TextBox*> names)
    : form_(form), store_(store), counts_(std::move(counts)), names_(std::move(names)) {}

KeptData::~KeptData() {
    form_.ControlsChanged = {};
}

void KeptData::Begin(int units, Int16 languageBase, Fill fill) {
    units_ = units;
    languageBase_ = languageBase;
    fill_ = std::move(fill);
    inFile_.reset();
    store_.StartAnother(form_.Name());
    form_.ControlsChanged = [this] { Changed(); };
    form_.App().DispatchBehind([this, alive = std::weak_ptr<const void>(life_)] {
        if (!alive.expired() && form_.IsVisible()) {
            Offer();
        }
    });
}

/// Every change comes through here, one for each cell of a large table: the first one sets the clock, the others wait
/// with it.
void KeptData::Changed() {
    if (waiting_) {
        return;
    }
    waiting_ = true;
    form_.World().CallLater(KeepAfter, [this, alive = std::weak_ptr<const void>(life_)] {
        if (!alive.expired()) {
            waiting_ = false;
            KeepNow();
        }
    });
}

void KeptData::KeepNow() {
    HandIn(&KeptStore::Keep);
}

void KeptData::ComeBack() {
    HandIn(&KeptStore::KeepUndone);
}

void KeptData::HandIn(Handing handing) {
    if (IsBlank()) {
        return;  // what was kept before somebody took the last row away stays
    }
    try {
        (store_.*handing)(std::make_shared<KeptScreen>(Taken()), inFile_);
    } catch (const std::exception&) {  // no memory for a copy: the data themselves are there, and go on
        return;
    }
}

void KeptData::KeepForTheEnd() {
    KeepNow();
    store_.Wait();
}

void KeptData::StartAnother() {
    KeepNow();
    store_.StartAnother(form_.Name());
}

void KeptData::StandsInFile() {
    inFile_ = std::make_shared<KeptScreen>(Taken());
    store_.StandsInFile(inFile_);
}

bool KeptData::IsBlank() const {
    return std::none_of(counts_.begin(), counts_.end(),
                        [](const KeptCount& count) { return count.Grid->HasDataRows(); }) &&
           std::none_of(names_.begin(), names_.end(), [](const forms::TextBox* name) { return IsTyped(name->Text); });
}

KeptScreen KeptData::Taken() const {
    KeptScreen screen;
    screen.Screen = form_.Name();
    screen.Units = units_;
    screen.Japanese = LanguageOf(languageBase_) == forms::Language::Japanese;
    screen.When = MillisecondsSince1970();
    for (const KeptCount& count : counts_) {
        screen.Counts.push_back(count.Grid->Rows - count.Grid->FixedRows);
        screen.Tables.push_back(TableOf(*count.Grid));
    }
    for (const forms::TextBox* name : names_) {
        screen.Names.push_back(name->Text);
    }
    screen.Open = OpenCell();
    return screen;
}

/// A cell's box is a visible box that counts at its grid's place; it lies over the grid's current cell. An emptied box
/// does not hide what its cell still has.
std::optional<KeptOpenCell> KeptData::OpenCell() const {
    for (const forms::Control* control : form_.Controls) {
        const auto* box = dynamic_cast<const forms::TextBox*>(control);
        if (box == nullptr || box->TabPlace() == box || !box->Visible || box->Text.Get().empty()) {
            continue;
        }
        for (std::size_t i = 0; i < counts_.size(); ++i) {
            const forms::MSFlexGrid& grid = *counts_[i].Grid;
            if (box->TabPlace() == &grid && grid.Row >= grid.FixedRows && grid.Col >= grid.FixedCols &&
                grid.Text() != box->Text.Get()) {
                return KeptOpenCell{.Table = static_cast<int>(i),
                                    .Row = grid.Row - grid.FixedRows,
                                    .Column = grid.Col - grid.FixedCols,
                                    .Text = box->Text};
            }
        }
    }
    return std::nullopt;
}

bool KeptData::Fits(const KeptScreen& kept) const {
    if (kept.Units > MostUnits || kept.Counts.size() != counts_.size() || kept.Tables.size() != counts_.size() ||
        kept.Names.size() != names_.size()) {
        return false;
    }
    for (std::size_t i = 0; i < counts_.size(); ++i) {
        const forms::MSFlexGrid& grid = *counts_[i].Grid;
        const int highest = std::max(counts_[i].Bar->Min.Get(), counts_[i].Bar->Max.Get());
        const KeptTable& table = kept.Tables[i];
        if (kept.Counts[i] > highest || table.Rows() != kept.Counts[i] || table.Columns != grid.Cols - grid.FixedCols) {
            return false;
        }
    }
    return true;
}

void KeptData::Offer() {
    const std::optional<KeptOffer> offer =
        store_.Newest(form_.Name(), [this](const KeptScreen& kept) { return Fits(kept); });
    if (!offer) {
        return;
    }
    const forms::Answer answer =
        form_.World().Show({.Text = KeptQuestion(offer->Data, offer->Declined, units_, languageBase_),
                            .Title = MakeVersionStamp(3),
                            .Picture = forms::Icon::Question,
                            .Choice = forms::Buttons::YesNo,
                            .Words = LanguageOf(languageBase_)});
    if (form_.App().HasEnded()) {
        return;  // while the question stood: it was not answered
    }
    if (answer != forms::Answer::Yes) {
        store_.Decline(*offer);
        return;
    }
    fill_(offer->Data);  // a fault in it leaves the kept file where it is
    store_.Take(*offer);
}

void KeptData::Show(const KeptScreen& kept) const {
    for (std::size_t i = 0; i < counts_.size(); ++i) {
        counts_[i].Caption->Caption = CaptionInteger(kept.Counts[i]);  // gives the grid its rows
        counts_[i].Bar->Value = kept.Counts[i];
        forms::MSFlexGrid& grid = *counts_[i].Grid;
        const KeptTable& table = kept.Tables[i];
        for (int row = 0; row < table.Rows(); ++row) {
            for (int column = 0; column < table.Columns; ++column) {
                grid.SetTextMatrix(row + grid.FixedRows, column + grid.FixedCols, table.At(row, column));
            }
        }
        if (kept.Open && kept.Open->Table == static_cast<int>(i)) {
            grid.SetTextMatrix(kept.Open->Row + grid.FixedRows, kept.Open->Column + grid.FixedCols, kept.Open->Text);
        }
    }
    for (std::size_t i = 0; i < names_.size(); ++i) {
        names_[i]->Text = kept.Names[i];
    }
}

}  // namespace zirvo
