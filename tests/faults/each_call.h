// The same act over and over, each time with another call to the system that fails. Callers: the tests of this folder.
#pragma once
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

#include "faults/failing_calls.h"

namespace zirvo::test {

/// What has gone wrong, for the judge of what is left.
struct Failure {
    std::string Call;  ///< "rename /folder/a /folder/b"
    Trouble What = Trouble::Denied;
};

/// @tparam Scene  made anew for each act: Folder() is where the calls count, Act() what is done, Judge(Failure) looks
///                at what is left, Done() says whether the act went through
///                Calls that only look at something fail in one of the ways, each in another one; with
///                ZIRVO_ALL_FAULTS in all of them
template <class Scene, class Troubles = decltype(AllTroubles)>
void FailEachCall(const std::function<Scene()>& make, const Troubles& troubles = AllTroubles) {
    constexpr int mostCalls = 500;
    const bool all = std::getenv("ZIRVO_ALL_FAULTS") != nullptr;
    int failures = 0;
    for (int number = 1; number < mostCalls; ++number) {
        const int before = failures;
        for (std::size_t way = 0; way < troubles.size(); ++way) {
            const Trouble trouble = troubles[(static_cast<std::size_t>(number) + way) % troubles.size()];
            Scene scene = make();
            std::string call;
            {
                const FailingCall failing(scene.Folder(), number, trouble);
                scene.Act();
                call = FailingCall::Failed();
            }
            if (call.empty()) {
                continue;
            }
            ++failures;
            const testing::ScopedTrace trace(__FILE__, __LINE__, call + ": " + NameOf(trouble));
            scene.Judge({.Call = call, .What = trouble});
            if (trouble == Trouble::Interrupted) {
                EXPECT_TRUE(scene.Done()) << "an interrupted call is made again";
            }
            if (!all && OnlyLooks(call)) {
                break;
            }
        }
        if (failures == before) {
            break;
        }
    }
    EXPECT_GE(failures, 5 * static_cast<int>(troubles.size())) << "hardly a call was seen";
}

/// The act in a process that is killed before each call in turn.
/// @tparam Scene  Whole() says whether what is left is old or new, whole; then, behind Recover() where there is such a
///                thing for the user to do, the act must go through, and Done() say so
template <class Scene>
void KillBeforeEachCall(const std::function<Scene()>& make) {
    constexpr int mostCalls = 500;
    prctl(PR_SET_CHILD_SUBREAPER, 1);  // a solver whose starter was killed works on to its end
    int number = 1;
    for (; number < mostCalls; ++number) {
        Scene scene = make();
        const pid_t child = fork();
        if (child == 0) {
            const FailingCall killing(scene.Folder(), number, Trouble::Killed);
            scene.Act();
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        while (waitpid(-1, nullptr, 0) > 0) {
        }
        const testing::ScopedTrace trace(__FILE__, __LINE__, "killed before call " + std::to_string(number));
        EXPECT_TRUE(scene.Whole());
        if constexpr (requires { scene.Recover(); }) {
            scene.Recover();
        }
        scene.Act();
        EXPECT_TRUE(scene.Done()) << "the next one works";
        EXPECT_TRUE(scene.Whole());
        if (!WIFSIGNALED(status)) {
            break;
        }
    }
    prctl(PR_SET_CHILD_SUBREAPER, 0);
    EXPECT_GT(number, 5) << "hardly a call was seen";
}

/// No file lies in the folder, or below it, under a name for a moment.
inline void ExpectNoTemporary(const std::string& folder) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        EXPECT_NE(entry.path().extension(), ".tmp") << entry.path();
    }
}

/// The bytes of the old file or of the new one.
inline void ExpectOldOrNew(const std::string& found, const std::string& old, const std::string& whole, bool done) {
    EXPECT_TRUE(found == whole || (!done && found == old)) << found;
}

}  // namespace zirvo::test
