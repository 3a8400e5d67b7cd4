// The folder of kept screens: which file holds what, which program it belongs to, what is offered next.
// Caller: the store, from its own thread.
//
// What is stored  Each running program that keeps anything has a folder of its own in here, made at its first write,
// with
//                 a "lock" that it holds while it lives: so two programs never write each other's files, and the folder
//                 of one that was killed is known by its free lock. In it, for each screen:
//                     Form3.json           the last: what stands on the screen, or stood there last
//                     Form3-before.json    the last but one: what stood there before CLEAR FORM, NEW DATA and the like
//                     Form3-declined.json  what the user did not want when he was asked; the next such data beside it
//                                          stand in Form3-declined-2.json, and so on
//                 Each is written under a temporary name and renamed, so that it is whole at any moment.
// What is offered Of this program and of those that have ended: the newest "last", else the newest of the others. Yes
//                 makes it this program's own last. No makes it "declined", which is offered once more; a second No
//                 deletes it.
// Failures        Whatever cannot be read is not there; whatever cannot be written is not kept. Nothing is a fault.
#pragma once
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "kept/kept_screen.h"
#include "platform/file_lock.h"

namespace zirvo {

/// A kept screen that may be filled in again. While it lives no other program is offered the same.
struct KeptOffer {
    KeptScreen Data;
    bool Declined = false;  ///< the user has said No to it once
    std::string File;
    std::shared_ptr<FileLock> Owner;  ///< of the program that has ended; nothing where it is this program's own
};

class KeptFolder {
public:
    /// @param folder  made at the first write; "" keeps nothing
    explicit KeptFolder(std::string folder);
    ~KeptFolder();
    KeptFolder(const KeptFolder&) = delete;
    KeptFolder& operator=(const KeptFolder&) = delete;

    /// Makes it the last of its screen. Gives whether it is on the disk.
    bool Write(const KeptScreen& screen);
    /// What is written next on that screen are other data: the last becomes the last but one then.
    void StartAnother(const std::string& screen);
    /// The data that stood there when StartAnother was called stand there again, undone: the last goes on.
    void GoOn(const std::string& screen);
    /// What stands on the screen needs not be kept any more.
    void Forget(const std::string& screen);
    /// These data stand in a file of the user's: neither as the last but one nor as declined are they offered any more.
    void ForgetCopies(const KeptScreen& saved);

    using Test = std::function<bool(const KeptScreen&)>;
    /// What is to be offered on that screen.
    /// @param fits  what can be filled in; other files are passed over
    std::optional<KeptOffer> Newest(const std::string& screen, const Test& fits);
    void Take(const KeptOffer& offer);
    void Decline(const KeptOffer& offer);

private:
    struct Candidate;
    bool OpenOwn();
    std::string Own(const std::string& screen) const;
    void AddCandidates(const std::string& run, const std::string& screen, std::vector<Candidate>& candidates);
    static void RemoveIfDone(const std::string& run, FileLock& owner);

    std::string folder_;
    std::string own_;  ///< this program's folder in it; "" before the first write
    std::unique_ptr<FileLock> lock_;
    std::set<std::string> another_;  ///< screens of which the next write is of other data
};

}  // namespace zirvo
