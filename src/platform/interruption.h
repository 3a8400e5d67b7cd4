// Ctrl-C, and the system's request to end: what is under way is undone first, so that nothing half done stays behind.
// Callers: the mains of zirvo-batch and of the solver programs, and all who have something under way for a while: a
// temporary file or folder, a file moved aside, a solver that works.
//
// An interruption is handled on a thread of its own, which takes the one lock of this file, undoes, and ends the
// process without letting go. So the program needs not ask anywhere whether it has been interrupted, however long it
// computes; and nothing that has to be undone can begin meanwhile, since whoever makes, moves or deletes files takes
// the lock too.
#pragma once
#include <functional>

namespace zirvo {

/// What a process tells the one who started it, by the custom of shells: 128 and the number of the signal.
inline constexpr int ExitBehindHangUp = 129;
inline constexpr int ExitBehindCtrlC = 130;
inline constexpr int ExitBehindRequest = 143;

/// From here on an interruption undoes what is under way and ends the process with one of the numbers above. Signals
/// that the process was started to ignore stay ignored. For main, before any other thread is started; a program that
/// does not call it ends as the system has it.
void EndCleanlyWhenInterrupted();

/// While it lives an interruption waits. For a few steps that belong together, such as making a file and noting that it
/// has to go. May be nested.
class NotInterrupted {
public:
    NotInterrupted();
    ~NotInterrupted();
    NotInterrupted(const NotInterrupted&) = delete;
    NotInterrupted& operator=(const NotInterrupted&) = delete;
};

/// What an interruption does as long as the object lives, the newest object first. It runs on another thread, in a
/// moment when this one holds no NotInterrupted: what it looks at is written under one.
class UndoneIfInterrupted {
public:
    explicit UndoneIfInterrupted(std::function<void()> undo);
    ~UndoneIfInterrupted();
    UndoneIfInterrupted(const UndoneIfInterrupted&) = delete;
    UndoneIfInterrupted& operator=(const UndoneIfInterrupted&) = delete;

private:
    friend void UndoWhatIsUnderWay() noexcept;
    std::function<void()> undo_;
};

/// Undoes all that is registered, and leaves the program standing wherever it would change a file from now on: the
/// caller ends the process. Called by the handlers of this folder only.
void UndoWhatIsUnderWay() noexcept;

}  // namespace zirvo
