"""scripts/tidy on a small tree with faults: what clang-tidy finds in each file alone it finds in their unit, at the same
place; and it looks again at what has changed, and at no more. Skips with a word where clang-tidy is missing, but not on CI,
which has it."""
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

TOP = Path(__file__).resolve().parents[2]
NOT_RUN = 77

HEADER = """#pragma once
#include <memory>
#include <string>
#include <string>
#include <vector>
namespace z {
struct Base {
    virtual ~Base() = default;
    virtual int Size() const = 0;
};
struct Derived : Base {
    virtual int Size() const { return 0; }
};
inline int* Nothing() {
    return 0;
}
inline int Second(int first, int second) {
    return second;
}
int ReadOr(const int* place);
int ReadThrough(const int* place);
}  // namespace z
"""

# What the others use hides nothing of what is wrong in the one between them: std::vector is used in the first and named for
# nothing in the second; ReadThrough is called with a good pointer only, but could be with none.
FIRST = """#include "house/faults.h"
#include <vector>
namespace z {
namespace {
std::vector<int> Numbers() {
    return {1, 2};
}
}  // namespace
int Sum() {
    int sum = 0;
    for (const int number : Numbers()) {
        sum += number;
    }
    return sum + ReadThrough(&sum) + ReadOr(&sum);
}
}  // namespace z
"""

MIDDLE = """#include "house/faults.h"
#include <cstddef>
#include <vector>
#include <vector>
namespace z {
using std::vector;
using std::unique_ptr;
double Share(int part, int whole) {
    return part / whole;
}
int Copied(std::string text) {
    return static_cast<int>(text.size());
}
int Copies(const std::vector<std::string>& texts) {
    int count = 0;
    for (const std::string text : texts) {
        count += static_cast<int>(text.size());
    }
    return texts.size() == 0 ? 0 : count;
}
int ReadThrough(const int* place) {
    if (place == nullptr) {
        Share(1, 2);
    }
    return *place;
}
int Leak() {
    int* const one = new int(1);
    return *one > 0 ? 1 : 0;
}
int Meant() {
    return Copied(std::string()) / (Copies({}) - Copies({}));  // NOLINT
}
bool Grown(std::vector<int>& numbers) {
    std::vector<int> moved = std::move(numbers);
    numbers.push_back(1);
    std::vector<int> again = std::move(moved);
    return moved.size() > again.size();
}
}  // namespace z
"""

LAST = """#include "house/faults.h"
#include <vector>
namespace z {
int ReadOr(const int* place) {
    const std::unique_ptr<int> kept = std::make_unique<int>(3);
    return place != nullptr ? *place : *kept;
}
int Divided(int number) {
    const int zero = number - number;
    return number / zero;
}
}  // namespace z
"""

FINDING = re.compile(r"^(/\S+?):(\d+):\d+: (?:warning|error): .*\[([\w.,-]+?)(?:,-warnings-as-errors)?\]$", re.MULTILINE)


def findings(text, root):
    return {(str(Path(file).relative_to(root)), int(line), check) for file, line, check in FINDING.findall(text)}


def make_tree(root):
    for folder in ("scripts", "build", "src/house"):
        (root / folder).mkdir(parents=True)
    shutil.copy(TOP / "scripts" / "tidy", root / "scripts")
    shutil.copy(TOP / ".clang-tidy", root)
    (root / "src/house/faults.h").write_text(HEADER, encoding="utf-8")
    commands = []
    for name, text in (("first", FIRST), ("middle", MIDDLE), ("third", LAST)):
        file = root / "src/house" / f"{name}.cpp"
        file.write_text(text, encoding="utf-8")
        command = f"ccache /usr/bin/c++ -I{root}/src -std=c++20 -o CMakeFiles/house.dir/{name}.cpp.o -c {file}"
        commands.append({"directory": str(root / "build"), "file": str(file), "command": command})
    (root / "build/compile_commands.json").write_text(json.dumps(commands), encoding="utf-8")


def run(command, root):
    environment = {**os.environ, "XDG_CACHE_HOME": str(root / "cache")}
    return subprocess.run(command, cwd=root, env=environment, capture_output=True, text=True, check=False)


def expect(what, got, wanted):
    if got != wanted:
        sys.exit(f"{what}: {got}, and not {wanted}")


def units_looked_at(root, *arguments):
    return re.search(r"(\d+) units? to look at", run(["scripts/tidy", *arguments], root).stdout).group(1)


def check_findings(root):
    alone = set()
    for file in sorted((root / "src/house").glob("*.cpp")):
        flags = ["--", f"-I{root}/src", "-std=c++20"]
        alone |= findings(run(["clang-tidy", "--quiet", str(file), *flags], root).stdout, root)
    together = run(["scripts/tidy"], root)
    expect("the exit code", together.returncode, 1)
    found = findings(together.stdout, root)
    expect("in the unit", found, alone)
    for group in ("bugprone", "clang-analyzer", "performance", "misc-unused-using", "misc-unused-parameters",
                  "modernize-use-nullptr", "modernize-use-override", "readability-container", "readability-duplicate"):
        expect(f"a finding of {group}", any(check.startswith(group) for _, _, check in found), True)
    expect("found in the header", {check for file, _, check in found if file.endswith(".h")} >=
           {"modernize-use-nullptr", "modernize-use-override", "misc-unused-parameters"}, True)
    line = 1 + MIDDLE.splitlines().index("    return *place;")
    expect("the pointer that may be none", any(file.endswith("middle.cpp") and at == line and check.startswith(
        "clang-analyzer") for file, at, check in found), True)
    return len(found)


def check_memory(root):
    for name in ("first", "middle", "third"):
        (root / "src/house" / f"{name}.cpp").write_text(f"int {name}() {{\n    return 1;\n}}\n", encoding="utf-8")
    expect("units of a tree that has not passed", units_looked_at(root), "1")
    expect("units of one that has", units_looked_at(root), "0")
    expect("units if all are asked for", units_looked_at(root, "--all"), "1")
    commands = root / "build/compile_commands.json"
    (root / "build/pch.hxx.gch").write_text("of another compiler", encoding="utf-8")
    local = f" -fpch-preprocess -Winvalid-pch -include {root}/build/pch.hxx -c "
    commands.write_text(commands.read_text(encoding="utf-8").replace("ccache ", "").replace(" -c ", local),
                        encoding="utf-8")
    expect("units with another launcher and a precompiled header", units_looked_at(root), "0")
    expect("what they say if all are asked for", run(["scripts/tidy", "--all"], root).returncode, 0)
    commands.write_text(commands.read_text(encoding="utf-8").replace("-std=c++20", "-std=c++17"), encoding="utf-8")
    expect("units with other flags", units_looked_at(root), "1")


def check_clash(root):
    """Two files with a name in common do not stand together; what is wrong in one of them is found all the same."""
    for name in ("first", "middle", "third"):
        body = "static int Twice() {\n    return 2;\n}\nint %s(int one) {\n    return Twice();\n}\n" % name
        (root / "src/house" / f"{name}.cpp").write_text(body.replace("int one", "") if name == "third" else body,
                                                        encoding="utf-8")
    expect("findings of files with a name in common", findings(run(["scripts/tidy"], root).stdout, root),
           {(f"src/house/{name}.cpp", 4, "misc-unused-parameters") for name in ("first", "middle")})


def main():
    if shutil.which("clang-tidy") is None and not os.environ.get("ZIRVO_CI"):
        print("No clang-tidy: not tried")
        return NOT_RUN
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder).resolve()
        make_tree(root)
        found = check_findings(root)
        check_memory(root)
        check_clash(root)
    print(f"{found} findings, those of the files alone")
    return 0


if __name__ == "__main__":
    sys.exit(main())
