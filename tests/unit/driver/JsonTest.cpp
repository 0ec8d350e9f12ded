#include "driver/Json.h"

#include <gtest/gtest.h>

#include <set>

namespace velluto::driver {
namespace {

TEST(Json, ShowsABytesWindows1252Character)
{
    EXPECT_EQ(Utf8FromWindows1252("Pi\xE9no \x80 \x9F \xFF"), "Piéno € Ÿ ÿ");
}

TEST(Json, ShowsAZeroByteAsU0000)
{
    using namespace std::string_literals;
    EXPECT_EQ(OneLine(Json(Utf8FromWindows1252(" 001 A\0\0"s))), R"(" 001 A\u0000\u0000")");
}

TEST(Json, TellsEveryByteApart)
{
    std::set<std::string> texts;
    for (int byte = 0; byte < 256; ++byte) {
        texts.insert(Utf8FromWindows1252(std::string(1, static_cast<char>(byte))));
    }
    EXPECT_EQ(texts.size(), 256U);
}

TEST(Json, KeepsUtf8AndShowsOtherTextsByteByByte)
{
    EXPECT_EQ(ProgramText("/tmp/Ünïcödé €"), "/tmp/Ünïcödé €");
    EXPECT_EQ(ProgramText("/tmp/\xE9"), "/tmp/é");
}

TEST(Json, WritesHexadecimalInLowerCase)
{
    using namespace std::string_literals;
    EXPECT_EQ(Hexadecimal("\x0E\0\xFF"s), "0e00ff");
}

TEST(Json, AnswersOnOneLine)
{
    EXPECT_EQ(OneLine(Good()), R"({"ok":true})");
    EXPECT_EQ(OneLine(Bad("a \"b\"\nc")), R"({"ok":false,"error":"a \"b\"\nc"})");
    EXPECT_EQ(OneLine(Bad("unknown command \xFF")), "{\"ok\":false,\"error\":\"unknown command ÿ\"}");
}

} // namespace
} // namespace velluto::driver
