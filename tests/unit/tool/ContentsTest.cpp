// What list says is in a file, beside what the program's own windows show of it.
#include "tool/Contents.h"

#include "files/Opening.h"
#include "unit/support/InstrumentImage.h"
#include "unit/support/TestProgram.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace velluto::tool {
namespace {

using test::Bytes;
using test::InstrumentFile;

std::vector<std::string> Texts(const std::vector<ItemRow> &rows, std::string_view kind)
{
    std::vector<std::string> texts;
    for (const ItemRow &row : rows) {
        if (row.kind == kind) {
            texts.push_back(row.bytes);
        }
    }
    return texts;
}

std::vector<std::string> Names(const Bytes &image, Kind kind)
{
    std::vector<std::string> names;
    for (const ItemRow &row : RowsOf(image, kind)) {
        if (row.occupied) {
            names.push_back(std::string(row.kind) + " " + std::to_string(row.place) + " " + row.Name());
        }
    }
    return names;
}

using Names_ = std::vector<std::string>;

TEST(ToolContents, EveryShippedFileIsListedAsItsWindowShowsIt)
{
    for (const auto &entry : std::filesystem::directory_iterator(VELLUTO_SAMPLES)) {
        const std::string name = entry.path().filename().string();
        const Kind kind = KindOf(name);
        if (kind == Kind::None) {
            continue;
        }
        test::TestProgram run;
        ASSERT_TRUE(run.Start());
        const Bytes image = test::ReadBytes(entry.path().string());
        test::WriteBytes(run.At(name), image);
        OpenNamedFile(run.program.files, run.At(name));
        Form *const window = run.program.app.children.Active();
        ASSERT_NE(window, nullptr) << name;
        const auto &list = dynamic_cast<ListBox &>(*ControlNamed(*window, "List1"));
        const std::vector<ItemRow> rows = RowsOf(image, kind);
        EXPECT_EQ(Texts(rows, NameOf(kind)), list.Rows()) << name;
        const std::vector<std::string> sts = Texts(rows, "STS");
        Control *const button = ControlNamed(*window, "CommSTS");
        if (button != nullptr && button->enabled && !sts.empty()) {
            Press(*button);
            EXPECT_EQ(sts, list.Rows()) << name;
        }
    }
}

TEST(ToolContents, NamesStandWithoutTheirPadding)
{
    EXPECT_EQ(Names(InstrumentFile({{"Piano", 0, {}}, {"Caf\xE9", 70, {}}}), Kind::Program),
              (Names_{"Program 1 Piano", "Program 71 Caf\xC3\xA9"}));
    EXPECT_EQ(Names(InstrumentFile({{"A", 1, {}}, {"B", 7, {}}}), Kind::Performance), (Names_{"Performance 2 A", "Performance 8 B"}));
    EXPECT_EQ(Names(InstrumentFile({{"A style", 0, {1}}, {"Its sts", 0, {2}}, {"Another", 3, {}}, {"More", 3, {}}}), Kind::Style),
              (Names_{"Style 1 A style", "Style 4 Another", "STS 1 Its sts", "STS 4 More"}));
}

TEST(ToolContents, AFileWithoutItemsHasNoOccupiedPlace)
{
    EXPECT_EQ(Names(InstrumentFile({}), Kind::Program), Names_{});
    EXPECT_EQ(Names(InstrumentFile({}), Kind::Style), Names_{});
    EXPECT_EQ(Names(InstrumentFile({}), Kind::Performance), Names_{});
    EXPECT_EQ(RowsOf(InstrumentFile({}), Kind::Performance).size(), 8U);
    EXPECT_EQ(PlacesOf(InstrumentFile({}), Kind::Program), 64);
    EXPECT_EQ(PlacesOf(InstrumentFile({{"A", 64, {}}}), Kind::Program), 128);
}

TEST(ToolContents, TheKindIsTheExtensionInAnyCase)
{
    EXPECT_EQ(KindOf("a/USER1.PCG"), Kind::Program);
    EXPECT_EQ(KindOf("x.y.sty"), Kind::Style);
    EXPECT_EQ(KindOf("b.Prf"), Kind::Performance);
    EXPECT_EQ(KindOf("b.prf~"), Kind::None);
    EXPECT_EQ(KindOf("prf"), Kind::Performance) << "no dot, and the whole name: as the program reads names";
}

} // namespace
} // namespace velluto::tool
