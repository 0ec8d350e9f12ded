#include "player/CompilationFiles.h"

#include "app/Characters.h"
#include "files/ReplaceFile.h"

#include <algorithm>
#include <span>

namespace velluto {

namespace {

constexpr std::size_t kRecord = 250; // bytes

// The text without its first characters of UTF-8.
std::string_view WithoutFirst(std::string_view text, int characters)
{
    for (; characters > 0 && !text.empty(); --characters) {
        do {
            text.remove_prefix(1);
        } while (!text.empty() && IsContinuationByte(text.front()));
    }
    return text;
}

} // namespace

std::string CompilationPath(const Modulo1 &app, std::string_view name)
{
    return JoinPath(app.paths.AppDir, "c-" + std::string(name) + ".cmp");
}

std::vector<std::string> CompilationFiles(const Modulo1 &app)
{
    std::vector<ListedFile> files;
    (void)app.ports.folders.Files(app.paths.AppDir, "*.cmp", files);
    std::vector<std::string> names(files.size());
    std::ranges::transform(files, names.begin(), &ListedFile::name);
    return names;
}

std::string CompilationNameOf(std::string_view fileName)
{
    constexpr std::size_t kExtension = 4;
    constexpr int kPrefix = 2;
    return std::string(WithoutFirst(fileName.substr(0, fileName.size() - std::min(kExtension, fileName.size())), kPrefix));
}

RuntimeError ReadCompilation(const Modulo1 &app, const std::string &path, std::string &image)
{
    image.clear();
    std::unique_ptr<RandomAccessFile> file;
    RuntimeError error = app.ports.files.OpenToRead(path, file);
    std::uint64_t length = 0;
    if (!error.Failed()) {
        error = file->Length(length);
    }
    if (!error.Failed() && length > kLongestCompilation) {
        error = kCompilationTooLong;
    }
    auto remaining = static_cast<std::int64_t>(length);
    // A length of whole records costs one more read, which adds nothing.
    for (std::uint64_t record = 0; !error.Failed() && remaining >= 0; ++record, remaining -= kRecord) {
        std::array<std::uint8_t, kRecord> bytes{};
        std::size_t got = 0;
        error = file->Read(record * kRecord, bytes, got);
        const std::size_t wanted = std::min({kRecord, static_cast<std::size_t>(remaining), got});
        image.append(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(wanted));
    }
    return error;
}

RuntimeError WriteCompilation(const Modulo1 &app, const std::string &path, std::string_view image)
{
    RuntimeError error;
    const auto firstFailure = [&error](RuntimeError failure) {
        error = failure;
        return Verdict::GiveUp;
    };
    const std::span bytes(reinterpret_cast<const std::uint8_t *>(image.data()), image.size());
    (void)ReplaceFile(app.ports.files, path, {bytes}, firstFailure);
    return error;
}

} // namespace velluto
