// The main routine of a fuzz target where there is no fuzzer: feeds it with each file of the folders that are named, in their order.
// A target that fails ends the program; its input is the one told last.
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

int main(int count, char **words)
{
    std::vector<std::filesystem::path> inputs;
    for (int i = 1; i < count; ++i) {
        for (const auto &entry : std::filesystem::directory_iterator(words[i])) {
            if (entry.is_regular_file()) {
                inputs.push_back(std::filesystem::absolute(entry.path())); // a target may go to another folder
            }
        }
    }
    std::ranges::sort(inputs);
    for (const std::filesystem::path &input : inputs) {
        std::cerr << input.filename().string() << std::endl;
        std::ifstream file(input, std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
    }
    std::cout << inputs.size() << " inputs\n";
    return inputs.empty() ? 1 : 0;
}
