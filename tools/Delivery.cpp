#include "tools/Delivery.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>

namespace makers {

namespace {

bool Write(const std::filesystem::path &path, const Bytes &bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    std::copy(bytes.begin(), bytes.end(), std::ostreambuf_iterator<char>(out));
    out.flush();
    return static_cast<bool>(out);
}

bool SameAs(const std::filesystem::path &path, const Bytes &bytes)
{
    std::ifstream in(path, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    return in && std::equal(content.begin(), content.end(), bytes.begin(), bytes.end(),
                            [](char have, std::uint8_t want) { return static_cast<std::uint8_t>(have) == want; });
}

} // namespace

int Deliver(const std::vector<MadeFile> &files, const std::filesystem::path &folder, bool check, const std::string &maker)
{
    int wrong = 0;
    for (const MadeFile &file : files) {
        const std::filesystem::path path = folder / file.name;
        if (check && !SameAs(path, file.bytes)) {
            std::cerr << path.string() << ": not what " << maker << " writes\n";
            ++wrong;
        } else if (!check && !Write(path, file.bytes)) {
            std::cerr << path.string() << ": cannot be written\n";
            ++wrong;
        }
    }
    return wrong;
}

} // namespace makers
