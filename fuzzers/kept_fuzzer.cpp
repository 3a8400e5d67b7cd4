// Kept screens: any bytes are a screen or none, a screen is written and read as the same, and no file in the folder of
// kept screens stops it.
#include <string>

#include "kept/kept_folder.h"
#include "kept/kept_json.h"
#include "platform/folders.h"
#include "support/byte_source.h"
#include "support/fuzzing.h"
#include "support/work_folder.h"

namespace zirvo::fuzz {
namespace {

void RequireRoundTrip(const KeptScreen& screen) {
    const std::string text = KeptJson(screen);
    const std::optional<KeptScreen> again = ReadKeptJson(text);
    Require(again.has_value(), "a screen is written so that it reads");
    Require(HoldSameData(screen, *again) && again->When == screen.When && again->Japanese == screen.Japanese &&
                again->Screen == screen.Screen,
            "a screen is written and read as the same");
    RequireEqual(KeptJson(*again), text, "and as the same bytes");
}

std::string SomeText(ByteSource& source) {
    return std::string(source.Text(source.Below(20)));
}

/// A screen as its user may leave it, with texts of any bytes.
KeptScreen SomeScreen(ByteSource& source) {
    KeptScreen screen;
    screen.Screen = source.Flag() ? "Form3" : "Form5";
    screen.Units = source.Between(0, 3);
    screen.Japanese = source.Flag();
    screen.When = 1795300200000 + source.Between(0, 60000);
    for (int i = source.Between(0, 3); i > 0; --i) {
        KeptTable table;
        table.Columns = source.Between(1, 6);
        const int rows = source.Between(0, 4);
        for (int cell = 0; cell < rows * table.Columns; ++cell) {
            table.Cells.push_back(SomeText(source));
        }
        screen.Counts.push_back(rows);
        screen.Names.push_back(SomeText(source));
        screen.Tables.push_back(table);
        if (rows > 0 && source.Flag()) {
            screen.Open = KeptOpenCell{.Table = static_cast<int>(screen.Tables.size()) - 1,
                                       .Row = source.Between(0, rows - 1),
                                       .Column = source.Between(0, table.Columns - 1),
                                       .Text = SomeText(source)};
        }
    }
    return screen;
}

/// The file as another program may have left it; ours is offered all the same once it stands.
void RunFolder(const std::string& bytes) {
    EmptyWorkFolder();
    const std::string folder = WorkFolder() + "/kept";
    KeptScreen screen;
    screen.Screen = "Form3";
    screen.Counts = {1};
    screen.Tables = {{.Columns = 2, .Cells = {"1", bytes.substr(0, 40)}}};
    const auto any = [](const KeptScreen&) { return true; };
    {
        KeptFolder earlier(folder);
        Require(earlier.Write(screen), "a screen is kept");
    }
    for (const std::string& run : NamesIn(folder)) {
        PutFile(folder + "/" + run + "/Form3-before.json", bytes);
        PutFile(folder + "/" + run + "/Form5.json", bytes);
    }
    KeptFolder now(folder);
    const std::optional<KeptOffer> offer = now.Newest("Form3", any);
    Require(offer && (HoldSameData(offer->Data, screen) || ReadKeptJson(bytes)), "what was kept is offered");
    const std::optional<KeptOffer> other = now.Newest("Form5", any);
    Require(!other || ReadKeptJson(bytes), "what is no screen is not offered");
    now.Decline(*offer);
    static_cast<void>(now.Newest("Form3", any));
}

}  // namespace

const int LongestRun = 1;

void RunInput(std::string_view bytes) {
    if (const std::optional<KeptScreen> screen = ReadKeptJson(bytes)) {
        RequireRoundTrip(*screen);
    }
    ByteSource source(bytes);
    RequireRoundTrip(SomeScreen(source));
    if (bytes.size() % 8 == 0) {  // files cost time
        RunFolder(std::string(bytes));
    }
}

}  // namespace zirvo::fuzz
