// Keeps what stands on a data screen, and offers what was kept when the screen comes up. Caller: DataScreen.
//
// The screen tells where its data begin and end (StartAnother, StandsInFile); every change in between is noticed by
// itself and handed to the store at most KeepAfter later, at once before the data go. Nothing here raises a fault but
// what filling the screen raises.
#pragma once
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/int16.h"
#include "forms/form.h"
#include "forms/ms_flex_grid.h"
#include "kept/kept_store.h"

namespace zirvo {

/// A count of a screen: its caption, its bar, and the grid that has so many data rows.
struct KeptCount {
    forms::Label* Caption;
    forms::VScrollBar* Bar;
    forms::MSFlexGrid* Grid;
};

class KeptData {
public:
    using Fill = std::function<void(const KeptScreen&)>;

    /// @param store   must outlive it
    /// @param counts  in the order of the screen
    /// @param names   boxes of the file names
    KeptData(forms::Form& form, KeptStore& store, std::vector<KeptCount> counts, std::vector<forms::TextBox*> names);
    ~KeptData();
    KeptData(const KeptData&) = delete;
    KeptData& operator=(const KeptData&) = delete;

    /// The screen is loaded. Once it stands, the user is asked about what was kept of it; Yes calls fill within a
    /// handler.
    /// @param units  number of the screen's unit system
    void Begin(int units, Int16 languageBase, Fill fill);
    /// What stands on the screen goes, and other data begin. Behind this call it is in the store.
    void StartAnother();
    /// What stands on the screen now stands in a file of the user's too: there is nothing to keep before it changes.
    void StandsInFile();
    /// What stands on the screen has come back by undoing: where it is what went last, no other data have begun.
    void ComeBack();
    /// Hands what stands on the screen to the store.
    void KeepNow();
    /// The same, and it is on the disk behind this call, if it can be.
    void KeepForTheEnd();

    /// Puts the counts, names and cells of a kept screen on this one; the text of an open cell goes into its cell.
    void Show(const KeptScreen& kept) const;

    /// Longest time between a change and the moment when the store has it [ms]: together with the write itself it stays
    /// below 2 s.
    static constexpr int KeepAfter = 1000;

private:
    using Handing = void (KeptStore::*)(KeptStore::Snapshot now, KeptStore::Snapshot inFile);
    void HandIn(Handing handing);
    void Changed();
    void Offer();
    bool Fits(const KeptScreen& kept) const;
    KeptScreen Taken() const;
    std::optional<KeptOpenCell> OpenCell() const;
    bool IsBlank() const;

    forms::Form& form_;
    KeptStore& store_;
    std::vector<KeptCount> counts_;
    std::vector<forms::TextBox*> names_;
    int units_ = 0;
    Int16 languageBase_ = 0;
    Fill fill_;
    KeptStore::Snapshot inFile_;  ///< what the user's file holds; nothing where there is none yet
    bool waiting_ = false;        ///< a change waits for its time
    std::shared_ptr<const void> life_ = std::make_shared<char>();
};

/// The question whether kept data are to be put on the screen, in its language: when they were typed, how many rows
/// they have, the first file name and the units; what No does.
/// @param declined  the user has said No to them once
/// @param units     number of the screen's own unit system
std::string KeptQuestion(const KeptScreen& kept, bool declined, int units, Int16 languageBase);

}  // namespace zirvo
