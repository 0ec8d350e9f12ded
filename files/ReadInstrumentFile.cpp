#include "files/ReadInstrumentFile.h"

#include "app/Catalogue.h"
#include "files/ErrorTrap.h"

#include <algorithm>
#include <array>
#include <new>

namespace velluto {

namespace {

constexpr RuntimeError kOutOfMemory{7};

// Up to this length a file is read before it is looked at. Positions in an instrument's file are 24 bits wide, so that
// a longer one is looked at first: what is no instrument's file is then refused without reading its body.
constexpr std::uint64_t kReadUnseen = 32ULL << 20;
// No memory is asked for a longer file.
constexpr std::uint64_t kLongestImage = 256ULL << 20;

// Names of these extensions pass with any content.
constexpr std::array<std::string_view, 5> kPassUnseen{"HTM", "HTML", "GIF", "JPG", "BMP"};

bool PassesUnseen(const std::string &path)
{
    return std::ranges::find(kPassUnseen, UpperCase(ExtensionOf(path))) != kPassUnseen.end();
}

// What a long file's head and last byte say about it.
RuntimeError LookAt(RandomAccessFile &file, std::uint64_t length, bool &good)
{
    std::array<std::uint8_t, Korf::kHeadLength + 1> ends{};
    const std::span<std::uint8_t> bytes(ends);
    std::size_t got = 0;
    if (const RuntimeError error = file.Read(0, bytes.first(Korf::kHeadLength), got); error.Failed()) {
        return error;
    }
    if (const RuntimeError error = file.Read(length - 1, bytes.last(1), got); error.Failed()) {
        return error;
    }
    // Head and last byte side by side pass or fail as the whole file would.
    good = IsInstrumentFile(bytes);
    return {};
}

RuntimeError ReadImage(RandomAccessFile &file, FileImage &image)
{
    try {
        SharedBytes bytes;
        const RuntimeError error = ReadWhole(file, {kLongestImage, kOutOfMemory}, bytes);
        image = error.Failed() ? image : FileImage(bytes);
        return error;
    } catch (const std::bad_alloc &) {
        return kOutOfMemory;
    }
}

int RefuseFormat(const Modulo1 &app)
{
    app.messages.ShowMessage(MessageNo::DataFormatError, app.CurrentOperation, {});
    return ReadStatus::NotAnInstrumentFile;
}

} // namespace

int ReadInstrumentFile(FilesState &files, const std::string &path)
{
    Modulo1 &app = files.app;
    app.CurrentOperation = app.messages.Text(TextId::Opening) + FileNameOf(path);
    if (RefusedAsTooLong(app, path, app.CurrentOperation)) {
        return ReadStatus::InputOutputError;
    }
    FileStore &store = app.ports.files;
    const ClassifyingJudge judge{app};
    std::unique_ptr<RandomAccessFile> file;
    std::uint64_t length = 0;
    if (!Trapped([&] { return store.Open(path, file); }, judge) || !Trapped([&] { return file->Length(length); }, judge)) {
        return ReadStatus::InputOutputError;
    }
    if (length == 0) {
        // The open has just made the missing file; a file that was empty before goes the same way.
        file.reset();
        return Trapped([&] { return store.Delete(path); }, judge) ? ReadStatus::Missing : ReadStatus::InputOutputError;
    }
    files.LoadImage = {};
    const bool unseen = PassesUnseen(path);
    bool good = true;
    if (length > kReadUnseen && !unseen) {
        if (!Trapped([&] { return LookAt(*file, length, good); }, judge)) {
            return ReadStatus::InputOutputError;
        }
        if (!good) {
            return RefuseFormat(app);
        }
    }
    if (!Trapped([&] { return ReadImage(*file, files.LoadImage); }, judge)) {
        return ReadStatus::InputOutputError;
    }
    file.reset();
    return unseen || IsInstrumentFile(files.LoadImage.View()) ? ReadStatus::Good : RefuseFormat(app);
}

} // namespace velluto
