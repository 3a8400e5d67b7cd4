// Keeps what stands on the data screens, so that nothing typed goes with the program: a thread of its own writes it,
// off the path of every stroke. Callers: the program, which owns one; the data screens, which hand in what they show.
#pragma once
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "kept/kept_folder.h"

namespace zirvo {

/// All calls come from one thread and none raises a fault. What cannot be written is not kept, and is tried again at
/// the next change.
class KeptStore {
public:
    /// @param folder  of KeptFolder; "" keeps nothing
    explicit KeptStore(std::string folder);
    /// Waits until all is written.
    ~KeptStore();
    KeptStore(const KeptStore&) = delete;
    KeptStore& operator=(const KeptStore&) = delete;

    using Snapshot = std::shared_ptr<const KeptScreen>;
    /// Keeps what stands on a screen now. Nothing is written where it holds the same data as the last time; where it
    /// holds the same as a file of the user's, it is forgotten.
    /// @param inFile  what stands in a file of the user's, imported or saved; may be nullptr
    void Keep(Snapshot now, Snapshot inFile);
    /// The same of data that have come back by undoing: no later Keep makes it needless, since it may tell that the
    /// other data were none.
    void KeepUndone(Snapshot now, Snapshot inFile);
    /// See KeptFolder.
    void StartAnother(const std::string& screen);
    void Forget(const std::string& screen);
    /// What stands on a screen stands in a file of the user's too, and no copy of it needs be kept.
    void StandsInFile(Snapshot now);
    std::optional<KeptOffer> Newest(const std::string& screen, const KeptFolder::Test& fits);
    void Take(const KeptOffer& offer);
    void Decline(const KeptOffer& offer);

    /// Comes back when all that was asked for is done.
    void Wait();
    /// Whether all that stands on the screens and in no file of the user's is on the disk; nothing where there is no
    /// such thing. Waits.
    std::optional<bool> IsKept();

private:
    struct Job {
        std::string Screen;  ///< of a Keep, which a later one of the same screen makes needless; else ""
        std::function<void()> Work;
    };
    void Post(Job job);
    void Run();
    void KeepNow(const KeptScreen& now, const KeptScreen* inFile);
    void ForgetNow(const std::string& screen);

    // The worker's own.
    KeptFolder folder_;
    std::map<std::string, KeptScreen> written_;  ///< by screen: what its last file holds
    std::map<std::string, KeptScreen>
        left_;                          ///< by screen: the same of data that others follow, until they are written
    std::map<std::string, bool> kept_;  ///< by screen with data that stand in no file: whether it is written

    // Shared, under the mutex.
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Job> jobs_;
    bool busy_ = false;
    bool ending_ = false;

    std::thread worker_;
};

}  // namespace zirvo
