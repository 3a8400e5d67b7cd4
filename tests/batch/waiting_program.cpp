// Stands for a solver that computes nothing and leaves no report: a file "works", which it holds open, tells that it
// runs, and it ends as soon as there is a file "go". Both lie beside it.
#include <filesystem>
#include <fstream>
#include <thread>

int main(int, char* arguments[]) {
    const std::filesystem::path folder = std::filesystem::path(arguments[0]).parent_path();
    const std::ofstream works(folder / "works");
    while (!std::filesystem::exists(folder / "go")) {
        std::this_thread::yield();
    }
}
