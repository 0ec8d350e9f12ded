#include "EditStage.h"

#include "files/Korf.h"

namespace velluto::bench {

namespace {

// Styles with the 0-based slots from 0 on, then as many STS, with bodies that make so many bytes together.
test::Bytes Grouped(int count, std::size_t bytes)
{
    std::string image;
    BuildHeader(image);
    for (int i = 0; i < 2 * count; ++i) {
        std::string entry(Korf::kEntryLength, '\0');
        const std::string name = (i < count ? "Style " : "STS ") + std::to_string(i % count);
        entry.replace(0, name.size(), name);
        entry[Korf::kEntrySlot] = static_cast<char>(i % count);
        image += entry;
    }
    ItemTable table{};
    for (std::size_t i = 0; i < 2 * static_cast<std::size_t>(count); ++i) {
        table[i] = static_cast<std::int32_t>(image.size() + 1);
        image.append(bytes / (2 * static_cast<std::size_t>(count)), static_cast<char>(i + 1));
    }
    image += BuildIndex(image, static_cast<std::int64_t>(image.size()), table, 2 * count);
    return {image.begin(), image.end()};
}

} // namespace

EditStage::EditStage(std::size_t bytes)
{
    run.Start(test::TestProgram::English);
    test::WriteBytes(run.At("source.sty"), Grouped(kStyles, bytes));
    test::WriteBytes(run.At("target.sty"), Grouped(kOwnStyles, bytes / kStyles * kOwnStyles));
    source = Open("source.sty");
    target = Open("target.sty");
    full = source->Tag;
    fullRows = source->List1.Rows();
    few = target->Tag;
    fewRows = target->List1.Rows();
}

frmStyUN *EditStage::Open(const char *name)
{
    run.face.choices.push_back({false, run.At(name), 2});
    mnuStyApri_Click(Files());
    return dynamic_cast<frmStyUN *>(run.program.app.children.Active());
}

void EditStage::Bring(frmStyUN &window, const WindowTag &tag, const std::vector<std::string> &rows, int from, int count)
{
    window.Tag = tag;
    window.List1.SetRows(rows);
    for (int row = from; row < from + count; ++row) {
        window.List1.Select(row, true);
    }
    run.program.app.children.Activate(window);
}

} // namespace velluto::bench
