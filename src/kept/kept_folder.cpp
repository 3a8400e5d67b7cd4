// The folder of kept screens, see kept_folder.h.
#include "kept/kept_folder.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "base/runtime_fault.h"
#include "kept/kept_json.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/folders.h"

namespace zirvo {
namespace {

constexpr const char* LockName = "lock";
constexpr const char* LastEnd = ".json";
constexpr const char* BeforeEnd = "-before.json";
constexpr const char* DeclinedEnd = "-declined.json";
/// So many stand beside each other, each asked once more; a further No takes the place of the last of them.
constexpr int MostDeclined = 20;

/// Beyond any screen: 10000 points take 1 MB.
constexpr std::uint64_t LongestKept = 64U << 20U;
/// Other programs that begin in the same millisecond take a name each.
constexpr int MostAttempts = 20;

bool EndsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

/// "-declined.json", "-declined-2.json" and so on.
std::string DeclinedEndOf(int number) {
    return number == 1 ? DeclinedEnd : "-declined-" + std::to_string(number) + ".json";
}

/// The ends of all copies that are offered only once, or once more.
std::vector<std::string> EndsOfCopies() {
    std::vector<std::string> ends{BeforeEnd};
    for (int number = 1; number <= MostDeclined; ++number) {
        ends.push_back(DeclinedEndOf(number));
    }
    return ends;
}

std::optional<KeptScreen> ReadKept(const std::string& file) {
    try {
        if (FileLength(file) > LongestKept) {
            return std::nullopt;
        }
        return ReadKeptJson(ReadFileBytes(file));
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}  // namespace

struct KeptFolder::Candidate {
    std::string File;
    bool Last = false;
    bool Declined = false;
    std::int64_t Written = 0;
    std::shared_ptr<FileLock> Owner;
};

KeptFolder::KeptFolder(std::string folder) : folder_(std::move(folder)) {}

KeptFolder::~KeptFolder() {
    if (lock_ != nullptr) {
        RemoveIfDone(own_, *lock_);
    }
}

/// This program's own folder and its lock, made anew where somebody has taken them away. A folder may be found by
/// another program between its making and its locking, and be removed as one that nobody needs: then the next name is
/// tried.
bool KeptFolder::OpenOwn() {
    if (lock_ != nullptr && !IsGone(JoinPath(own_, LockName))) {
        return true;
    }
    lock_.reset();
    if (folder_.empty() || !MakePrivateFolders(folder_)) {
        return false;
    }
    for (int attempt = 0; attempt < MostAttempts && lock_ == nullptr; ++attempt) {
        own_ = JoinPath(folder_, std::to_string(MillisecondsSince1970()) + "-" + std::to_string(attempt));
        if (MakeNewFolder(own_)) {
            lock_ = FileLock::OfNewFile(JoinPath(own_, LockName));
            if (lock_ == nullptr) {
                RemoveIfThere(own_);
            }
        }
    }
    return lock_ != nullptr;
}

std::string KeptFolder::Own(const std::string& screen) const {
    return JoinPath(own_, screen);
}

bool KeptFolder::Write(const KeptScreen& screen) {
    try {
        if (!OpenOwn()) {
            return false;
        }
        const std::string file = Own(screen.Screen) + LastEnd;
        if (another_.erase(screen.Screen) != 0) {
            MoveOver(file, Own(screen.Screen) + BeforeEnd);
        }
        WriteWholeFile(file, KeptJson(screen));
        return true;
    } catch (const std::exception&) {  // a full disk, a folder that may not be written, no memory
        return false;
    }
}

void KeptFolder::StartAnother(const std::string& screen) {
    another_.insert(screen);
}

void KeptFolder::GoOn(const std::string& screen) {
    another_.erase(screen);
}

void KeptFolder::Forget(const std::string& screen) {
    if (lock_ != nullptr && !another_.contains(screen)) {
        RemoveIfThere(Own(screen) + LastEnd);
    }
}

void KeptFolder::ForgetCopies(const KeptScreen& saved) {
    if (lock_ == nullptr) {
        return;
    }
    for (const std::string& end : EndsOfCopies()) {
        const std::string file = Own(saved.Screen) + end;
        if (const auto kept = WrittenAt(file) ? ReadKept(file) : std::nullopt; kept && HoldSameData(*kept, saved)) {
            RemoveIfThere(file);
        }
    }
}

/// The files of one program that has ended, or of this one. What a killed program left half written goes.
void KeptFolder::AddCandidates(const std::string& run, const std::string& screen, std::vector<Candidate>& candidates) {
    std::shared_ptr<FileLock> owner;
    if (lock_ == nullptr || run != own_) {
        const std::string lock = JoinPath(run, LockName);
        owner = WrittenAt(lock) ? FileLock::OfFile(lock) : nullptr;
        if (owner == nullptr) {
            if (IsFolder(run)) {     // and no file that somebody has put here
                RemoveIfThere(run);  // goes only if it is empty: killed before it had a lock
            }
            return;
        }
        for (const std::string& name : NamesIn(run)) {
            if (EndsWith(name, ".tmp")) {
                RemoveIfThere(JoinPath(run, name));
            }
        }
        RemoveIfDone(run, *owner);
    }
    const std::string base = JoinPath(run, screen);
    const auto add = [&](const std::string& end, bool last, bool declined) {
        if (const auto written = WrittenAt(base + end)) {
            candidates.push_back(
                {.File = base + end, .Last = last, .Declined = declined, .Written = *written, .Owner = owner});
        }
    };
    if (const bool stands = owner == nullptr && !another_.contains(screen); !stands) {
        add(LastEnd, true, false);
    }
    for (const std::string& end : EndsOfCopies()) {
        add(end, false, end != BeforeEnd);
    }
}

/// A program that has ended and left nothing goes with its lock.
void KeptFolder::RemoveIfDone(const std::string& run, FileLock& owner) {
    if (NamesIn(run) == std::vector<std::string>{LockName}) {
        owner.RemoveFile();
        RemoveIfThere(run);
    }
}

std::optional<KeptOffer> KeptFolder::Newest(const std::string& screen, const Test& fits) {
    if (folder_.empty()) {
        return std::nullopt;
    }
    std::vector<Candidate> candidates;
    for (const std::string& name : NamesIn(folder_)) {
        AddCandidates(JoinPath(folder_, name), screen, candidates);
    }
    std::sort(candidates.begin(), candidates.end(), [](const Candidate& left, const Candidate& right) {
        return std::tie(left.Last, left.Written) > std::tie(right.Last, right.Written);
    });
    for (const Candidate& candidate : candidates) {
        std::optional<KeptScreen> data = ReadKept(candidate.File);
        if (data && data->Screen == screen && fits(*data)) {
            return KeptOffer{.Data = std::move(*data),
                             .Declined = candidate.Declined,
                             .File = candidate.File,
                             .Owner = candidate.Owner};
        }
    }
    return std::nullopt;
}

void KeptFolder::Take(const KeptOffer& offer) {
    const std::string& screen = offer.Data.Screen;
    if (offer.Owner != nullptr) {
        another_.insert(screen);
        if (Write(offer.Data)) {  // else it stays where it is
            RemoveIfThere(offer.File);
            RemoveIfDone(FolderOf(offer.File), *offer.Owner);
        }
        return;
    }
    if (offer.File == Own(screen) + LastEnd || MoveOver(offer.File, Own(screen) + LastEnd)) {
        another_.erase(screen);
    }
}

/// What was declined before is still to be offered once more, and keeps its name.
void KeptFolder::Decline(const KeptOffer& offer) {
    if (offer.Declined) {
        RemoveIfThere(offer.File);
    } else {
        const std::string base = JoinPath(FolderOf(offer.File), offer.Data.Screen);
        int number = 1;
        while (number < MostDeclined && !IsGone(base + DeclinedEndOf(number))) {
            ++number;
        }
        MoveOver(offer.File, base + DeclinedEndOf(number));
    }
    if (offer.Owner != nullptr) {
        RemoveIfDone(FolderOf(offer.File), *offer.Owner);
    }
}

}  // namespace zirvo
