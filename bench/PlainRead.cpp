#include "PlainRead.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <memory>

namespace velluto::bench {

void ReadPlainly(const std::string &path)
{
    std::FILE *file = std::fopen(path.c_str(), "rb");
    std::fseek(file, 0, SEEK_END);
    const auto length = static_cast<std::size_t>(std::ftell(file));
    std::rewind(file);
    std::setvbuf(file, nullptr, _IONBF, 0);
    const auto buffer = std::make_unique_for_overwrite<std::uint8_t[]>(length);
    benchmark::DoNotOptimize(std::fread(buffer.get(), 1, length, file));
    benchmark::DoNotOptimize(buffer.get());
    std::fclose(file);
}

} // namespace velluto::bench
