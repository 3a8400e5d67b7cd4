// The store of kept screens and its thread, see kept_store.h.
#include "kept/kept_store.h"

#include <algorithm>
#include <exception>
#include <system_error>

namespace zirvo {
namespace {

/// Whatever fails in keeping data must not end the program that holds them.
void RunQuietly(const std::function<void()>& work) {
    try {
        work();
    } catch (const std::exception&) {  // no memory: as if it could not be written
        return;
    }
}

}  // namespace

KeptStore::KeptStore(std::string folder) : folder_(std::move(folder)) {}

KeptStore::~KeptStore() {
    {
        const std::lock_guard hold(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    if (worker_.joinable()) {
        worker_.join();
    }
}

/// Where the system gives no thread the work is done at once.
void KeptStore::Post(Job job) {
    if (!worker_.joinable()) {
        try {
            worker_ = std::thread([this] { Run(); });
        } catch (const std::system_error&) {
            RunQuietly(job.Work);
            return;
        }
    }
    {
        const std::lock_guard hold(mutex_);
        if (!job.Screen.empty() && !jobs_.empty() && jobs_.back().Screen == job.Screen) {
            jobs_.back() = std::move(job);
        } else {
            jobs_.push_back(std::move(job));
        }
    }
    changed_.notify_all();
}

void KeptStore::Run() {
    std::unique_lock hold(mutex_);
    for (;;) {
        changed_.wait(hold, [this] { return ending_ || !jobs_.empty(); });
        if (jobs_.empty()) {
            return;
        }
        Job job = std::move(jobs_.front());
        jobs_.pop_front();
        busy_ = true;
        hold.unlock();
        RunQuietly(job.Work);
        job = {};  // its snapshot goes before anybody is told
        hold.lock();
        busy_ = false;
        changed_.notify_all();
    }
}

void KeptStore::Wait() {
    std::unique_lock hold(mutex_);
    changed_.wait(hold, [this] { return jobs_.empty() && !busy_; });
}

std::optional<bool> KeptStore::IsKept() {
    Wait();
    if (kept_.empty()) {
        return std::nullopt;
    }
    return std::all_of(kept_.begin(), kept_.end(), [](const auto& screen) { return screen.second; });
}

void KeptStore::Keep(Snapshot now, Snapshot inFile) {
    const std::string screen = now->Screen;
    Post({.Screen = screen,
          .Work = [this, now = std::move(now), inFile = std::move(inFile)] { KeepNow(*now, inFile.get()); }});
}

void KeptStore::KeepUndone(Snapshot now, Snapshot inFile) {
    Post({.Screen = "",
          .Work = [this, now = std::move(now), inFile = std::move(inFile)] { KeepNow(*now, inFile.get()); }});
}

void KeptStore::KeepNow(const KeptScreen& now, const KeptScreen* inFile) {
    if (inFile != nullptr && HoldSameData(now, *inFile)) {
        ForgetNow(now.Screen);
        return;
    }
    if (const auto left = left_.find(now.Screen); left != left_.end() && HoldSameData(now, left->second)) {
        folder_.GoOn(now.Screen);  // the other data have been undone
        written_[now.Screen] = std::move(left->second);
        left_.erase(left);
        kept_[now.Screen] = true;
        return;
    }
    const auto before = written_.find(now.Screen);
    if (before != written_.end() && HoldSameData(now, before->second)) {
        return;
    }
    kept_[now.Screen] = false;
    left_.erase(now.Screen);
    if (folder_.Write(now)) {
        written_[now.Screen] = now;
        kept_[now.Screen] = true;
    }
}

void KeptStore::StartAnother(const std::string& screen) {
    Post({.Screen = "", .Work = [this, screen] {
              folder_.StartAnother(screen);
              if (const auto last = written_.find(screen); last != written_.end()) {
                  left_[screen] = std::move(last->second);
                  written_.erase(last);
              }
              kept_.erase(screen);
          }});
}

void KeptStore::Forget(const std::string& screen) {
    Post({.Screen = "", .Work = [this, screen] { ForgetNow(screen); }});
}

void KeptStore::StandsInFile(Snapshot now) {
    Post({.Screen = "", .Work = [this, now = std::move(now)] {
              ForgetNow(now->Screen);
              folder_.ForgetCopies(*now);
          }});
}

void KeptStore::ForgetNow(const std::string& screen) {
    folder_.Forget(screen);
    written_.erase(screen);
    kept_.erase(screen);
}

std::optional<KeptOffer> KeptStore::Newest(const std::string& screen, const KeptFolder::Test& fits) {
    std::optional<KeptOffer> offer;
    Post({.Screen = "", .Work = [&] { offer = folder_.Newest(screen, fits); }});
    Wait();
    return offer;
}

void KeptStore::Take(const KeptOffer& offer) {
    Post({.Screen = "", .Work = [this, offer] {
              folder_.Take(offer);
              written_.erase(offer.Data.Screen);
              left_.erase(offer.Data.Screen);
          }});
}

void KeptStore::Decline(const KeptOffer& offer) {
    Post({.Screen = "", .Work = [this, offer] {
              folder_.Decline(offer);
              left_.erase(offer.Data.Screen);
          }});
}

}  // namespace zirvo
