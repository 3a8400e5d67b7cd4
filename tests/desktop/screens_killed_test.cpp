// The real program is killed while it saves data over an old file, analyzes, and saves a picture over an old one.
//
// When            So often for each act as ZIRVO_KILLS says, twice if it says nothing: in turn when something lies in
// the
//                 folder for a moment only, and at moments spread over the time that the act takes.
// What is checked Behind each kill: every file of the user's is the old one or the new one, whole; a report may be
// gone,
//                 as the solver deletes the old ones first, or lie whole in ZIRVO_SV.TMP. What is left stays for the
//                 next start, but for ZIRVO_SV.TMP, which the program asks the user to remove. At last the act is done
//                 without a kill, among all that is left by then; what it leaves are the new files.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <set>
#include <thread>

#include "desktop/desktop_session.h"
#include "platform/file_lock.h"

namespace zirvo::window_tests {
namespace {

namespace fs = std::filesystem;

constexpr const char* LeftAside = "ZIRVO_SV.TMP";
constexpr const char* RunLockFile = ".zirvo-lock";

/// An act of the user's and the files that it writes.
class KilledAct : public testing::Test {
protected:
    using Files = std::map<std::string, std::string>;
    using Clock = std::chrono::steady_clock;

    DesktopSession Session;

    /// @param goThere    starts the program and goes on to where the act begins
    /// @param begin      the key that the user strikes last
    /// @param passing    names, or their fronts, of what lies in the folder for a moment
    /// @param old        the files that the act writes, before it
    void KillOverAndOver(const std::function<void()>& goThere, const std::string& begin,
                         const std::vector<std::string>& passing, const Files& old) {
        const char* const asked = std::getenv("ZIRVO_KILLS");
        const int kills = std::max(asked == nullptr ? 2 : std::atoi(asked), 1);
        std::vector<Files> found;
        for (int i = 0; i < kills; ++i) {
            PutAll(old);
            goThere();
            const std::set<std::string> before = NamesInTheFolder();
            std::thread user([&] { Strike(begin); });
            const auto turn = static_cast<std::size_t>(i) % (passing.size() + 1);
            if (turn < passing.size()) {
                AwaitPassing(passing[turn], before);
            } else {
                AwaitMoment(std::chrono::milliseconds(300) * i / kills);
            }
            Session.Kill();
            user.join();
            AwaitTheSolver();
            found.push_back(ReadAll(old));
            fs::remove(Session.WorkFolder() / LeftAside);
        }
        PutAll(old);
        goThere();
        Strike(begin);
        Session.WaitFor("all that is written", [&] { return IsDone(old); });
        Session.Kill();
        const Files whole = ReadAll(old);
        for (std::size_t i = 0; i < found.size(); ++i) {
            for (const auto& [name, bytes] : found[i]) {
                EXPECT_TRUE(IsWhole(name, bytes, old, whole)) << "kill " << i << ": " << name << ":\n" << bytes;
            }
        }
    }

    std::string BytesOf(const std::string& name) const {
        std::ifstream in(Session.WorkFolder() / name, std::ios::binary);
        return in ? std::string(std::istreambuf_iterator<char>(in), {}) : "<missing>";
    }

    static std::string SampleBytesOf(const std::string& name) {
        std::ifstream in(fs::path(ZIRVO_SAMPLES) / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    /// To the data screen, with the file imported.
    /// @param answer  to the question whether it is to be updated
    void GoToTheData(const std::string& file, int objective, int answer) {
        const char* const screen = objective == 1 ? "Form3" : "Form5";
        std::ofstream(Session.ProgramFolder() / "zirvo_sv.ini")
            << Session.WorkFolder().string() << "\r\n 3 \r\n " << objective << " \r\n";
        fs::remove_all(Session.StateFolder());  // else it would offer what it has kept
        Session.Launch({file});
        Session.WaitForKeys("Form1");
        Session.Key("Down");
        Session.Language(forms::Language::English);
        Session.Key("Return");
        Session.WaitForKeys("Form2");
        Session.Key("Return");
        Session.AnswerBox(answer);
        Session.WaitForWindow(screen);
    }

    /// Without the line of the version, which is put in front when the solver has ended.
    static std::string Unstamped(const std::string& report) { return report.substr(report.find('\n') + 1); }

private:
    static bool IsReport(const std::string& name) { return name.ends_with(".bre") || name.ends_with(".san"); }

    void PutAll(const Files& files) const {
        for (const auto& [name, bytes] : files) {
            std::ofstream(Session.WorkFolder() / name, std::ios::binary) << bytes;
        }
    }

    Files ReadAll(const Files& names) const {
        Files files;
        for (const auto& [name, bytes] : names) {
            files[name] = BytesOf(name);
        }
        files[LeftAside] = BytesOf(LeftAside);
        return files;
    }

    /// Every file is another one, and nobody works on.
    bool IsDone(const Files& old) const {
        for (const auto& [name, bytes] : old) {
            const std::string now = BytesOf(name);
            if (now == bytes || now == "<missing>") {
                return false;
            }
        }
        return !fs::exists(Session.WorkFolder() / RunLockFile) && !fs::exists(Session.WorkFolder() / LeftAside);
    }

    void Strike(const std::string& key) {
        try {
            Session.Key(key);
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
    }

    std::set<std::string> NamesInTheFolder() const {
        std::set<std::string> names;
        std::error_code gone;
        for (fs::directory_iterator entry(Session.WorkFolder(), gone), last; !gone && entry != last;
             entry.increment(gone)) {
            names.insert(entry->path().filename().string());
        }
        return names;
    }

    /// Until there is such a name that was not there before, or there has been none for too long.
    void AwaitPassing(const std::string& front, const std::set<std::string>& before) const {
        const auto isIt = [&](const std::string& name) {
            return name.starts_with(front) && name != RunLockFile && !before.contains(name);
        };
        for (const auto end = Clock::now() + std::chrono::milliseconds(1500); Clock::now() < end;) {
            const std::set<std::string> now = NamesInTheFolder();
            if (std::any_of(now.begin(), now.end(), isIt)) {
                return;
            }
        }
    }

    static void AwaitMoment(Clock::duration moment) {
        for (const auto then = Clock::now() + moment; Clock::now() < then;) {
            std::this_thread::yield();
        }
    }

    /// A solver whose starter was killed works on to its end and holds the lock until then.
    void AwaitTheSolver() {
        const std::string lock = (Session.WorkFolder() / RunLockFile).string();
        Session.WaitFor("the end of the solver",
                        [&] { return !fs::exists(lock) || FileLock::OfFile(lock) != nullptr; });
    }

    static bool IsWhole(const std::string& name, const std::string& found, const Files& old, const Files& whole) {
        if (name == LeftAside) {
            return found == "<missing>" || std::any_of(whole.begin(), whole.end(), [&](const auto& file) {
                       return IsReport(file.first) && found == Unstamped(file.second);
                   });
        }
        return found == old.at(name) || found == whole.at(name) ||
               (IsReport(name) && (found == "<missing>" || found == Unstamped(whole.at(name))));
    }
};

TEST_F(KilledAct, SaveDataLeavesTheOldFileOrTheNewOne) {
    const std::string road = SampleBytesOf("road.eva");
    KillOverAndOver(
        [&] {
            GoToTheData("road.eva", 1, 0);
            Session.ClickAt("Form3", "MSFlexGrid1", {100, 26});  // the modulus of the first layer
            Session.Key("Home");
            Session.Type("4321");
            Session.Key("Return");
            Session.Click("Form3", "Command5");
            Session.Key("Return");  // SAVE DATA has the focus
            Session.WaitForKeys("MessageBox");
        },
        "Return", {".zirvo-"}, {{"road.eva", road}});
    EXPECT_NE(BytesOf("road.eva").find(" 4321 "), std::string::npos);
}

TEST_F(KilledAct, AnalyzeLeavesReportsAndCopiesOldOrNew) {
    const std::string road = SampleBytesOf("road.eva");
    std::ofstream(Session.WorkFolder() / "road.eva", std::ios::binary) << road;
    KillOverAndOver([&] { GoToTheData("road.eva", 1, 1); }, "Return",  // ANALYZE has the focus
                    {LeftAside, ".zirvo-"},
                    {{"road.san", "old"}, {"road_san.csv", "old"}, {"road.bre", "old"}, {"road_bre.csv", "old"}});
    EXPECT_EQ(BytesOf("road.eva"), road);
    EXPECT_TRUE(BytesOf("road.bre").starts_with("   <ZIRVO Ver2.3>\r\n"));
}

TEST_F(KilledAct, SavePictureLeavesTheOldOneOrTheNewOne) {
    const std::string road = SampleBytesOf("road.ven");
    std::ofstream(Session.WorkFolder() / "road.ven", std::ios::binary) << road;
    QImage shown;
    KillOverAndOver(
        [&] {
            GoToTheData("road.ven", 2, 1);
            Session.Key("Return");  // TO GRAPHICS
            Session.WaitForWindow("Form6");
            const QImage before = Session.Picture("Form6", "Picture1");
            Session.Key("Down");  // EPSx
            Session.Click("Form6", "Option4");
            Session.Type("0");
            Session.Key("Return");
            Session.WaitUntilItChanges("Form6", "Picture1", before);
            shown = Session.Picture("Form6", "Picture1");
            Session.Click("Form6", "Command7");
            Session.WaitForWindow("FileDialog");
            Session.Key("ctrl+a");
            Session.Type((Session.WorkFolder() / "map.bmp").string());
        },
        "Return", {".zirvo-"}, {{"map.bmp", "GIF89a, and an old one"}});
    EXPECT_EQ(BytesOf("road.ven"), road);
    const QImage saved(QString::fromStdString((Session.WorkFolder() / "map.bmp").string()));
    EXPECT_EQ(saved.size(), shown.size());
}

}  // namespace
}  // namespace zirvo::window_tests
