// Any bytes as lists of sounds and as plain tables: read, put into tables, written as text and read back.
#include "tool/PlainTables.h"
#include "tool/SoundImport.h"
#include "tool/SourceFault.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace velluto;
using namespace velluto::tool;

namespace {

void Expect(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

// Calls read, which may refuse its text.
template <class Read>
void Try(Read read)
{
    try {
        read();
    } catch (const SourceFault &fault) {
        Expect(!std::string_view(fault.what()).empty());
    }
}

// Tables of the least that can be made: every group has its heading and one sound.
RecordTable StartingPrograms()
{
    RecordTable table = EmptyProgramTable();
    for (const SoundGroup &group : SoundGroups()) {
        table.Put(group.heading, PcgField::Heading, "Group");
        table.Put(group.sounds.first, PcgField::Name, "Sound");
        for (int record = group.sounds.first; record <= group.sounds.last; ++record) {
            PutAddress(table, record, {127, 127, 127});
        }
    }
    return table;
}

RecordTable StartingStyles()
{
    RecordTable table = EmptyStyleTable();
    for (int page = 0; page < kStylePages; ++page) {
        table.Put(StyleHeading(page), StyField::Heading, "Page");
    }
    return table;
}

// The names in, the text out, and the same tables of it.
void Import(const std::vector<ListedSound> &sounds)
{
    RecordTable programs = StartingPrograms();
    RecordTable styles = StartingStyles();
    const std::size_t length = programs.Bytes().size();
    const ImportResult result = ImportSounds(sounds, programs, styles);
    Expect(programs.Bytes().size() == length && result.homeless.size() <= sounds.size());
    Expect(MakePrograms(PlainPrograms(programs, {}), {}).Bytes() == programs.Bytes());
    Expect(MakeStyles(PlainStyles(styles, {}), {}).Bytes() == styles.Bytes());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    Try([text] { Import(ReadDefinition(text, {}, {})); });
    Try([text] { Import(ReadCsv(text, {})); });
    Try([text] { (void)PlainPrograms(MakePrograms(text, {}), {}); });
    Try([text] { (void)PlainStyles(MakeStyles(text, {}), {}); });
    (void)PlainPrograms(ProgramTable(std::string(text)), {});
    (void)PlainStyles(StyleTable(std::string(text)), {});
    return 0;
}
