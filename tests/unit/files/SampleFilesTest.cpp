// The sample files of the program, as its windows show them.
#include "files/StyleRows.h"
#include "unit/files/BankFiles.h"

namespace velluto::test {
namespace {

class SampleFilesTest : public BankFilesTest {
protected:
    // Opens a copy of the sample, which keeps the committed file out of the program's hands.
    Form &OpenSample(const std::string &name)
    {
        Open(Put(name, ReadBytes(std::string(VELLUTO_SAMPLES) + "/" + name)));
        if (app.children.Active() == nullptr) {
            throw std::runtime_error("no window for " + name);
        }
        return *app.children.Active();
    }
    static int Occupied(Form &window, std::size_t emptyLength)
    {
        const auto &rows = dynamic_cast<ListBox &>(*ControlNamed(window, "List1")).Rows();
        return static_cast<int>(
            std::count_if(rows.begin(), rows.end(), [&](const std::string &row) { return RightTrimmed(row).size() > emptyLength; }));
    }
};

TEST_F(SampleFilesTest, StyleFilesOfAllArrangements)
{
    struct Row {
        std::string name;
        int layout;
        int styles;
    };
    for (const Row &row : std::vector<Row>{{"Only-16.sty", StyleLayout::StylesOnly, 16},
                                           {"Interleaved-16.sty", StyleLayout::Interleaved, 16},
                                           {"Grouped-16.sty", StyleLayout::Grouped, 16},
                                           {"Sparse-5.sty", StyleLayout::Interleaved, 5},
                                           {"Large-3.sty", StyleLayout::Grouped, 3}}) {
        Form &window = OpenSample(row.name);
        EXPECT_EQ(ClassifyStyleLayout(window.Tag.image.View()), row.layout) << row.name;
        EXPECT_EQ(Occupied(window, 3), row.styles) << row.name;
        if (row.layout != StyleLayout::StylesOnly) {
            Press(*ControlNamed(window, "CommSTS"));
            EXPECT_EQ(Occupied(window, 3), row.styles) << row.name << ", STS";
        }
    }
}

TEST_F(SampleFilesTest, AStyleFileOfOneEntryShowsNone)
{
    EXPECT_EQ(Occupied(OpenSample("Single.sty"), 3), 0);
}

TEST_F(SampleFilesTest, PerformanceFiles)
{
    EXPECT_EQ(Occupied(OpenSample("Full-8.prf"), 2), 8);
    EXPECT_EQ(Occupied(OpenSample("Sparse-8.prf"), 2), 3);
    EXPECT_EQ(Occupied(OpenSample("Accents-8.prf"), 2), 6);
    EXPECT_EQ(Occupied(OpenSample("Empty.prf"), 2), 8) << "its three digits count as occupied";
}

} // namespace
} // namespace velluto::test
