// Makes the factory tables and the factory Performance banks of data/ from the readable sources in tools/tables.
//
//     make-tables SOURCES FOLDER            writes the files there
//     make-tables --check SOURCES FOLDER    says which files there differ from what it would write
#include "tools/FactoryFiles.h"
#include "tools/SourceLines.h"

#include <iostream>
#include <string>
#include <vector>

namespace {

std::vector<makers::MadeFile> MakeAll(const std::filesystem::path &sources)
{
    std::vector<makers::MadeFile> files = makers::MakePerformanceBanks(sources / "performances.txt");
    files.push_back(makers::MakeProgramTable(sources / "programs.txt"));
    files.push_back(makers::MakeStyleTable(sources / "styles.txt"));
    return files;
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> words(argv + 1, argv + argc);
    const bool check = !words.empty() && words.front() == "--check";
    if (words.size() != (check ? 3U : 2U)) {
        std::cerr << "usage: make-tables [--check] SOURCES FOLDER\n";
        return 2;
    }
    try {
        return makers::Deliver(MakeAll(words[words.size() - 2]), words.back(), check, "make-tables") == 0 ? 0 : 1;
    } catch (const makers::SourceError &error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
