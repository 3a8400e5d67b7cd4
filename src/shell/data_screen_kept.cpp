// What both data screens do so that nothing typed is lost, see kept_data.h: these are the moments at which data begin,
// stand in a file, and go.
#include "platform/files.h"
#include "shell/data_screen.h"
#include "shell/kept_data.h"

namespace zirvo {

DataScreen::~DataScreen() = default;

void DataScreen::KeepIn(KeptStore& store) {
    std::vector<KeptCount> counts;
    for (const DataTable& table : its_->Tables) {
        counts.push_back({.Caption = &table.Count, .Bar = &table.Bar, .Grid = &table.Grid});
    }
    std::vector<forms::TextBox*> names;
    for (const FileNameBox& name : its_->FileNames) {
        names.push_back(&name.Box);
    }
    kept_ = std::make_unique<KeptData>(*this, store, std::move(counts), std::move(names));
}

void DataScreen::BeginKeeping() {
    if (kept_ != nullptr) {
        kept_->Begin(static_cast<int>(Units()), languageBase_, [this](const KeptScreen& kept) { FillFrom(kept); });
    }
}

void DataScreen::StartOtherData() {
    if (kept_ != nullptr) {
        kept_->StartAnother();
    }
}

void DataScreen::DataStandInFile() {
    if (kept_ != nullptr) {
        kept_->StandsInFile();
    }
}

void DataScreen::DataComeBack() {
    if (kept_ != nullptr) {
        kept_->ComeBack();
    }
}

void DataScreen::Form_Unload() {
    if (kept_ != nullptr) {
        kept_->KeepNow();
    }
}

void DataScreen::Form_ProgramEnds() {
    if (kept_ != nullptr) {
        kept_->KeepForTheEnd();
    }
}

/// As an import that is to be updated; the file will lie where that of new data does.
void DataScreen::FillFrom(const KeptScreen& kept) {
    ChangeFolder(WorkFolder());
    SetHeadings();
    kept_->Show(kept);
    DisableSource();
    BeginUpdate();
}

}  // namespace zirvo
