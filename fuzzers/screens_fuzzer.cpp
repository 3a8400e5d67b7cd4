// The seven screens without a toolkit: bytes drive a user, and behind every act the rules of the screens hold. A
// program that ends may be started again over the same files, as its user would.
#include "screens_program.h"
#include "screens_rules.h"
#include "screens_user.h"
#include "support/fuzzing.h"

namespace zirvo::fuzz {
namespace {

constexpr int MostStarts = 3;
constexpr int MostActs = 400;

void RunProgram(ByteSource& source, const ProgramFolders& folders) {
    ScreensProgram program(source, folders, source.Byte() >= 192);
    program.App.Show(Form1::FormName);
    RequireRules(program);
    RandomUser user(source, program, folders);
    for (int acts = 0; acts < MostActs && !source.IsEmpty() && !program.App.HasEnded(); ++acts) {
        user.Act();
        program.WaitForKept();
        RequireRules(program);
    }
    program.Desktop.RunWaiting();  // calls that come too late find nothing to do, or a form that is there
}

}  // namespace

const int LongestRun = 20;

void RunInput(std::string_view bytes) {
    const ProgramFolders folders = ProgramFolders::MakeAll();
    ByteSource source(bytes);
    for (int start = 0; start < MostStarts && !source.IsEmpty(); ++start) {
        RunProgram(source, folders);
    }
}

}  // namespace zirvo::fuzz
