#include "app/SettingsFile.h"

#include "app/SettingsRecord.h"
#include "app/StoredPlace.h"
#include "app/frmLingua.h"

#include <algorithm>
#include <memory>

namespace velluto {

namespace {

// What lies in which record; records count from 1.
namespace RecordNo {
constexpr int kGeneral = 1;
constexpr int kFirstBlank = 2; // never used; stays as created
constexpr int kLastDir = 3;
constexpr int kPrograms = 4;      // entries 1 to 10
constexpr int kStyles = 14;       // entries 1 to 20
constexpr int kPerformances = 34; // entries 1 to 28
constexpr int kRecent = 62;       // entries 1 to 16
constexpr int kPlayerDir = 78;
constexpr int kPlayerName = 79;
constexpr int kPlayerFile = 80;
constexpr int kLast = 80;
} // namespace RecordNo

// Entries 11 and 12 are the new files and are not kept.
constexpr int kProgramEntries = 10;
constexpr int kStyleEntries = 20;
constexpr int kPerformanceEntries = 28;
constexpr int kRecentEntries = 16;

constexpr std::size_t kPlayerNameLength = 50;

// The open file as records. Each operation is repeated while the disk is not ready, where the routine asks for that.
class SettingsFile {
public:
    enum class NotReady { Repeat, Report };
    SettingsFile(FileStore &files, NotReady policy) : files_(files), policy_(policy) {}

    RuntimeError Open(const std::string &path)
    {
        return Run([&] { return files_.Open(path, file_); });
    }
    // The last record read lies in the file from end to end.
    [[nodiscard]] bool HadAll() const { return got_ == kSettingsRecordLength; }
    void Close() { file_.reset(); }
    RuntimeError Delete(const std::string &path)
    {
        return Run([&] { return files_.Delete(path); });
    }

    // What lies beyond the end of the file reads as blanks.
    RuntimeError Read(int number, SettingsRecord &record)
    {
        return Run([&] {
            record = SettingsRecord();
            return file_->Read(OffsetOf(number), record.Bytes(), got_);
        });
    }
    RuntimeError Write(int number, const SettingsRecord &record)
    {
        return Run([&] { return file_->Write(OffsetOf(number), record.Bytes()); });
    }

private:
    static std::uint64_t OffsetOf(int number) { return static_cast<std::uint64_t>(number - 1) * kSettingsRecordLength; }

    template <class Operation>
    [[nodiscard]] RuntimeError Run(Operation operation) const
    {
        RuntimeError error = operation();
        while (policy_ == NotReady::Repeat && error.number == FileError::kDiskNotReady) {
            error = operation();
        }
        return error;
    }

    FileStore &files_;
    NotReady policy_;
    std::unique_ptr<RandomAccessFile> file_;
    std::size_t got_ = 0;
};

void SetLinguaBase(Modulo1 &app)
{
    app.messages.LinguaBase = app.settings.Lingua == Language::Italian ? kItalianBase : kEnglishBase;
}

// Reads count records from `first` into the entries 1 to count of a table.
template <class Table, class Take>
RuntimeError ReadTable(SettingsFile &file, int first, int count, Table &table, Take take)
{
    SettingsRecord record;
    for (int entry = 1; entry <= count; ++entry) {
        if (const RuntimeError error = file.Read(first + entry - 1, record); error.Failed()) {
            return error;
        }
        take(record, table[static_cast<std::size_t>(entry)]);
    }
    return {};
}

RuntimeError ReadText(SettingsFile &file, int number, std::size_t length, std::string &text)
{
    SettingsRecord record;
    const RuntimeError error = file.Read(number, record);
    if (!error.Failed()) {
        text = RightTrimmed(record.Text(1, length));
    }
    return error;
}

RuntimeError ReadFurtherRecords(SettingsFile &file, Settings &settings)
{
    RuntimeError error = ReadText(file, RecordNo::kLastDir, kPathLength, settings.LastDir);
    const auto then = [&error](auto step) {
        if (!error.Failed()) {
            error = step();
        }
    };
    then([&] { return ReadTable(file, RecordNo::kPrograms, kProgramEntries, settings.PcgDocTable, TakeDocument); });
    then([&] { return ReadTable(file, RecordNo::kStyles, kStyleEntries, settings.StyDocTable, TakeDocument); });
    then([&] { return ReadTable(file, RecordNo::kPerformances, kPerformanceEntries, settings.PrfDocTable, TakeDocument); });
    then([&] { return ReadTable(file, RecordNo::kRecent, kRecentEntries, settings.RecentTable, TakeRecent); });
    then([&] { return ReadText(file, RecordNo::kPlayerDir, kSettingsRecordLength, settings.PlayerDir); });
    then([&] { return ReadText(file, RecordNo::kPlayerName, kPlayerNameLength, settings.PlayerName); });
    then([&] { return ReadText(file, RecordNo::kPlayerFile, kSettingsRecordLength, settings.PlayerFile); });
    return error;
}

// Creates the file's records: the first of zeros with the name at its start, the others of blanks.
RuntimeError CreateRecords(SettingsFile &file)
{
    SettingsRecord general('\0');
    PutMagic(general);
    RuntimeError error = file.Write(RecordNo::kGeneral, general);
    const SettingsRecord blanks;
    for (int number = RecordNo::kFirstBlank; number <= RecordNo::kLast && !error.Failed(); ++number) {
        error = file.Write(number, blanks);
    }
    return error;
}

void BeginFirstRun(Modulo1 &app, SettingsFile &file)
{
    const std::unique_ptr<WritingUnderWay> underWay = app.ports.files.BeginChanging(app.paths.IniPath);
    app.settings = Settings();
    AssignFactoryBanks(app.settings, app.paths.PrfBank1Path);
    SettingsRecord general;
    if (CreateRecords(file).Failed() || file.Read(RecordNo::kGeneral, general).Failed()) {
        return;
    }
    frmLingua dialog(app);
    app.face.ShowModal(dialog);
    if (app.StartAborted) {
        file.Close();
        (void)file.Delete(app.paths.IniPath);
        return;
    }
    PutLanguage(general, app.settings.Lingua);
    SetLinguaBase(app);
    (void)file.Write(RecordNo::kGeneral, general);
    for (RecentRecord &recent : app.settings.RecentTable) {
        recent.Flag = 0;
        recent.Kind = 0;
    }
}

// A maximised or minimised frame keeps the placement of its last normal run.
void NoteFramePlacement(Modulo1 &app)
{
    WindowPlacement &entry = app.settings.PlacementTable[PlacementEntry::Frame];
    const frmMain &frame = app.frame;
    if (frame.windowState == WindowState::Normal) {
        StorePosition(entry, frame);
        StoreSize(entry, frame);
    }
    entry.State = static_cast<std::uint8_t>(frame.windowState.Get());
}

template <class Table, class Make>
RuntimeError WriteTable(SettingsFile &file, int first, int count, const Table &table, Make make)
{
    RuntimeError error;
    for (int entry = 1; entry <= count && !error.Failed(); ++entry) {
        error = file.Write(first + entry - 1, make(table[static_cast<std::size_t>(entry)]));
    }
    return error;
}

RuntimeError WriteText(SettingsFile &file, int number, std::size_t length, const std::string &text)
{
    SettingsRecord record;
    record.PutText(1, length, text);
    return file.Write(number, record);
}

// PlayerName goes over the start of the record just written and leaves the rest of it: a name shorter than the folder
// comes back with the folder's end behind it. Files in use are like that.
RuntimeError WritePlayerTexts(SettingsFile &file, const Settings &settings)
{
    SettingsRecord record;
    record.PutText(1, kSettingsRecordLength, settings.PlayerDir);
    RuntimeError error = file.Write(RecordNo::kPlayerDir, record);
    if (!error.Failed()) {
        record.PutText(1, kPlayerNameLength, settings.PlayerName);
        error = file.Write(RecordNo::kPlayerName, record);
    }
    return error.Failed() ? error : WriteText(file, RecordNo::kPlayerFile, kSettingsRecordLength, settings.PlayerFile);
}

RuntimeError WriteAllRecords(Modulo1 &app, SettingsFile &file)
{
    const Settings &settings = app.settings;
    RuntimeError error = file.Open(app.paths.IniPath);
    const auto then = [&error](auto step) {
        if (!error.Failed()) {
            error = step();
        }
    };
    SettingsRecord general;
    then([&] { return file.Read(RecordNo::kGeneral, general); });
    then([&] {
        NoteFramePlacement(app);
        PutGeneral(general, settings, app.frame.mnuVisBarraStato.checked);
        return file.Write(RecordNo::kGeneral, general);
    });
    // A folder that does not fit would come back as another one: none is kept.
    const bool fits = settings.LastDir.size() <= kPathLength;
    then([&] { return WriteText(file, RecordNo::kLastDir, kPathLength, fits ? settings.LastDir : std::string()); });
    then([&] { return WriteTable(file, RecordNo::kPrograms, kProgramEntries, settings.PcgDocTable, DocumentBytes); });
    then([&] { return WriteTable(file, RecordNo::kStyles, kStyleEntries, settings.StyDocTable, DocumentBytes); });
    then([&] { return WriteTable(file, RecordNo::kPerformances, kPerformanceEntries, settings.PrfDocTable, DocumentBytes); });
    then([&] { return WriteTable(file, RecordNo::kRecent, kRecentEntries, settings.RecentTable, RecentBytes); });
    then([&] { return WritePlayerTexts(file, settings); });
    return error;
}

} // namespace

void ReadSettings(Modulo1 &app)
{
    app.children.ClosingAll = false;
    SettingsFile file(app.ports.files, SettingsFile::NotReady::Repeat);
    SettingsRecord general;
    if (file.Open(app.paths.IniPath).Failed() || file.Read(RecordNo::kGeneral, general).Failed()) {
        return;
    }
    if (!file.HadAll() || !HasMagic(general)) {
        BeginFirstRun(app, file);
        return;
    }
    TakeGeneral(general, app.settings);
    SetLinguaBase(app);
    // The file does not hold the entries of the new Program files; their role is that of a first run only.
    std::fill(app.settings.PcgDocTable.begin() + kProgramEntries + 1, app.settings.PcgDocTable.end(), DocRecord());
    // A failure leaves what has been read.
    (void)ReadFurtherRecords(file, app.settings);
}

void WriteSettings(Modulo1 &app)
{
    const std::unique_ptr<WritingUnderWay> underWay = app.ports.files.BeginChanging(app.paths.IniPath);
    SettingsFile file(app.ports.files, SettingsFile::NotReady::Report);
    if (const RuntimeError error = WriteAllRecords(app, file); error.Failed()) {
        ClassifyIoError(app.messages, app.CurrentOperation, error);
    }
}

} // namespace velluto
