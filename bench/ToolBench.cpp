// What velluto-tool takes for a tree of folders, beside a plain read of the same files.
#include "PlainRead.h"
#include "RatioReporter.h"
#include "platform/posix/PosixFiles.h"
#include "tool/Commands.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <streambuf>

namespace velluto::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kFolders = 250;

// Four files of all kinds in each folder, some 200 KB.
class Tree {
public:
    Tree()
    {
        std::string pattern = (fs::temp_directory_path() / "velluto-bench-XXXXXX").string();
        root_ = ::mkdtemp(pattern.data());
        for (int folder = 0; folder < kFolders; ++folder) {
            const fs::path at = root_ / ("Evening " + std::to_string(folder / 10)) / ("Set " + std::to_string(folder));
            fs::create_directories(at);
            for (const char *name : {"Full-64.pcg", "Full-128.pcg", "Full-8.prf", "Grouped-16.sty"}) {
                fs::copy(fs::path(VELLUTO_SAMPLES) / name, at);
                files_.push_back((at / name).string());
            }
        }
    }
    ~Tree()
    {
        std::error_code ignored;
        fs::remove_all(root_, ignored);
    }
    Tree(const Tree &) = delete;
    Tree &operator=(const Tree &) = delete;

    [[nodiscard]] std::string Root() const { return root_.string(); }
    [[nodiscard]] const std::vector<std::string> &Files() const { return files_; }

private:
    fs::path root_;
    std::vector<std::string> files_;
};

const Tree &TheTree()
{
    static const Tree tree;
    return tree;
}

// Takes everything and keeps nothing.
class Nowhere : public std::streambuf {
    int overflow(int c) override { return c == traits_type::eof() ? 0 : c; }
    std::streamsize xsputn(const char * /*text*/, std::streamsize length) override { return length; }
};

void PlainReadOfTree(benchmark::State &state)
{
    for (auto _ : state) {
        for (const std::string &file : TheTree().Files()) {
            ReadPlainly(file);
        }
    }
}

void OverTree(benchmark::State &state, int (*command)(const tool::Desk &, const tool::Arguments &), tool::Arguments arguments)
{
    PosixFiles files;
    Nowhere nowhere;
    std::ostream out(&nowhere);
    const tool::Desk desk{files, out, std::cerr, {}};
    arguments.paths = {TheTree().Root()};
    for (auto _ : state) {
        if (command(desk, arguments) != tool::ExitCode::Fine) {
            state.SkipWithError("the command has found something wrong");
            return;
        }
    }
}

void ListTree(benchmark::State &state)
{
    OverTree(state, tool::ListFiles, {});
}

void FindInTree(benchmark::State &state)
{
    tool::Arguments arguments;
    arguments.words = "amber";
    OverTree(state, tool::FindItems, arguments);
}

void CheckTree(benchmark::State &state)
{
    OverTree(state, tool::CheckFiles, {});
}

BENCHMARK(PlainReadOfTree)->Unit(benchmark::kMillisecond);
BENCHMARK(ListTree)->Unit(benchmark::kMillisecond);
BENCHMARK(FindInTree)->Unit(benchmark::kMillisecond);
BENCHMARK(CheckTree)->Unit(benchmark::kMillisecond);

const std::vector<Limit> kLimits = {
    {"velluto-tool list of 1,000 files beside a plain read", "ListTree", "PlainReadOfTree", 3.5},
    {"velluto-tool find in them", "FindInTree", "PlainReadOfTree", 2.5},
    {"velluto-tool check of them", "CheckTree", "PlainReadOfTree", 1.6},
};

} // namespace
} // namespace velluto::bench

int main(int argc, char **argv)
{
    return velluto::bench::RunBenchmarks(argc, argv, velluto::bench::kLimits) ? 0 : 1;
}
