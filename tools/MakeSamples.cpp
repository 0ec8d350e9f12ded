// Makes the files of data/samples: valid containers of Programs, Styles and Performances with invented names and made-up
// bodies.
//
//     make-samples FOLDER            writes the files there
//     make-samples --check FOLDER    says which files there differ from what it would write
#include "tools/Delivery.h"
#include "tools/SampleItems.h"

#include <iostream>
#include <string>
#include <vector>

int main(int argc, char **argv)
{
    const std::vector<std::string> words(argv + 1, argv + argc);
    const bool check = !words.empty() && words.front() == "--check";
    if (words.size() != (check ? 2U : 1U)) {
        std::cerr << "usage: make-samples [--check] FOLDER\n";
        return 2;
    }
    std::vector<makers::MadeFile> files;
    for (const samples::Sample &sample : samples::MakeSamples()) {
        files.push_back({std::string(sample.file), makers::MakeKorfFile(sample.items)});
    }
    return makers::Deliver(files, words.back(), check, "make-samples") == 0 ? 0 : 1;
}
