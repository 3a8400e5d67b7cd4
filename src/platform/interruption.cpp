// What an interruption undoes, see interruption.h. How the system tells of one stands in the two other halves.
#include "platform/interruption.h"

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

namespace zirvo {
namespace {

struct UnderWay {
    std::recursive_mutex Mutex;
    std::vector<UndoneIfInterrupted*> Undos;  ///< the newest last
};

/// Never destroyed: an interruption may come while the program is ending.
UnderWay& State() {
    static UnderWay& state = *new UnderWay;
    return state;
}

}  // namespace

NotInterrupted::NotInterrupted() {
    State().Mutex.lock();
}

NotInterrupted::~NotInterrupted() {
    State().Mutex.unlock();
}

UndoneIfInterrupted::UndoneIfInterrupted(std::function<void()> undo) : undo_(std::move(undo)) {
    const NotInterrupted whileNoted;
    State().Undos.push_back(this);
}

UndoneIfInterrupted::~UndoneIfInterrupted() {
    const NotInterrupted whileForgotten;
    std::erase(State().Undos, this);
}

void UndoWhatIsUnderWay() noexcept {
    State().Mutex.lock();  // and never unlocked
    std::vector<UndoneIfInterrupted*>& undos = State().Undos;
    while (!undos.empty()) {
        const UndoneIfInterrupted& newest = *undos.back();
        undos.pop_back();
        try {
            newest.undo_();
        } catch (...) {  // the others still have their turn
            continue;
        }
    }
}

}  // namespace zirvo
