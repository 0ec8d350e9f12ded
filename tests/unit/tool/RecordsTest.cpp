// Answers as CSV and as JSON.
#include "tool/Records.h"

#include <array>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

namespace velluto::tool {
namespace {

std::string Written(Format format, const std::vector<std::vector<Cell>> &rows)
{
    std::ostringstream out;
    RecordWriter writer(out, format, {"name", "n"});
    for (const std::vector<Cell> &row : rows) {
        writer.Row(row);
    }
    writer.End();
    return out.str();
}

Cell Text(std::string_view text)
{
    return text;
}

const std::string kEveryByte = [] {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}();

TEST(ToolRecords, CsvQuotesWhatAReaderWouldTakeForItsSigns)
{
    EXPECT_EQ(
        Written(Format::Csv, {{Text("a b"), std::uint64_t{3}}, {Text("x,\"y\"\n;"), std::uint64_t{0}}, {Text(" z"), std::uint64_t{1}}}),
        "name,n\na b,3\n\"x,\"\"y\"\"\n;\",0\n\" z\",1\n");
    EXPECT_EQ(Written(Format::Csv, {}), "name,n\n");
}

TEST(ToolRecords, JsonIsAListOfObjects)
{
    EXPECT_EQ(Written(Format::Json, {}), "[]\n");
    EXPECT_EQ(Written(Format::Json, {{Text("a\"\\"), std::uint64_t{3}}, {Text("b"), std::uint64_t{4}}}),
              "[\n{\"name\": \"a\\\"\\\\\", \"n\": 3},\n{\"name\": \"b\", \"n\": 4}\n]\n");
}

TEST(ToolRecords, JsonOfAnyBytesIsValid)
{
    const nlohmann::json parsed = nlohmann::json::parse(Written(Format::Json, {{Text(kEveryByte), std::uint64_t{1} << 63}}));
    EXPECT_EQ(parsed.at(0).at("n"), std::uint64_t{1} << 63);
    const auto name = parsed.at(0).at("name").get<std::string>();
    EXPECT_EQ(name.substr(0, 128), kEveryByte.substr(0, 128));
    EXPECT_EQ(name.substr(128, 3), "\xEF\xBF\xBD");
}

} // namespace
} // namespace velluto::tool
