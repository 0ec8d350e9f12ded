#include "platform/kept/UnfinishedSave.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <system_error>
#include <vector>

namespace velluto {

namespace {

constexpr std::string_view kMagic = "velluto save 1";

std::span<const std::uint8_t> BytesOf(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t *>(text.data()), text.size()};
}

std::uint64_t ChecksumOf(std::string_view text)
{
    Checksum sum;
    sum.Add(BytesOf(text));
    return sum.Value();
}

std::optional<std::uint64_t> NumberIn(std::string_view text)
{
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

// A field is its length, a colon, its bytes, which may be any, and a line end.
void Append(std::string &text, std::string_view field)
{
    text.append(std::to_string(field.size())).append(":").append(field).append("\n");
}

std::optional<std::string_view> TakeField(std::string_view &text)
{
    const std::size_t colon = text.find(':');
    const auto length = colon == std::string_view::npos ? std::nullopt : NumberIn(text.substr(0, colon));
    if (!length || *length >= text.size() - colon - 1 || text[colon + 1 + *length] != '\n') {
        return std::nullopt;
    }
    const std::string_view field = text.substr(colon + 1, *length);
    text.remove_prefix(colon + 1 + *length + 1);
    return field;
}

bool IsKeptName(std::string_view name)
{
    return name.empty() || (name.starts_with(kKeptPrefix) && name.find_first_of(disk::kNotInNames) == std::string_view::npos);
}

// Is the file at the path these bytes, all of them?
bool Holds(const std::string &path, std::uint64_t length, std::uint64_t checksum)
{
    constexpr std::size_t kPiece = std::size_t{1} << 16;
    const disk::File file = disk::File::ToRead(path);
    if (!file.IsOpen() || file.Length() != length) {
        return false;
    }
    Checksum sum;
    std::vector<std::uint8_t> piece(kPiece);
    std::uint64_t all = 0;
    for (std::size_t got = kPiece; got == kPiece;) {
        got = file.Read(piece);
        sum.Add({piece.data(), got});
        all += got;
    }
    return all == length && sum.Value() == checksum;
}

// Could the file at the path be what a save has begun to write? One that somebody has put there since begins in another way.
bool IsBegun(const UnfinishedSave &save)
{
    if (!save.beginning) {
        return true;
    }
    const disk::File file = disk::File::ToRead(save.path);
    if (!file.IsOpen() || file.Length() > save.length) {
        return false;
    }
    std::vector<std::uint8_t> bytes(save.beginning->size());
    const std::size_t got = file.Read(bytes);
    return std::memcmp(bytes.data(), save.beginning->data(), got) == 0;
}

// The sum with up to eight more bytes in it.
std::uint64_t Mixed(std::uint64_t sum, const std::uint8_t *bytes, std::size_t count)
{
    constexpr std::uint64_t kPrime = 0x100000001B3;
    std::uint64_t word = 0; // a last word that is short is as one that ends in zeros: the length is told beside the sum
    std::memcpy(&word, bytes, count);
    sum = (sum ^ word) * kPrime;
    return sum ^ (sum >> 29);
}

} // namespace

void Checksum::Add(std::span<const std::uint8_t> bytes)
{
    const auto begin = [&] {
        const std::size_t step = std::min(bytes.size(), begun_.size() - begunLength_);
        std::copy_n(bytes.begin(), step, begun_.begin() + static_cast<std::ptrdiff_t>(begunLength_));
        begunLength_ += step;
        bytes = bytes.subspan(step);
    };
    if (begunLength_ > 0) {
        begin();
    }
    if (begunLength_ == begun_.size()) {
        value_ = Mixed(value_, begun_.data(), begunLength_);
        begunLength_ = 0;
    }
    for (; bytes.size() >= begun_.size(); bytes = bytes.subspan(begun_.size())) {
        value_ = Mixed(value_, bytes.data(), begun_.size());
    }
    begin();
}

std::uint64_t Checksum::Value() const
{
    return begunLength_ == 0 ? value_ : Mixed(value_, begun_.data(), begunLength_);
}

std::string JournalText(const UnfinishedSave &save)
{
    std::string text;
    Append(text, kMagic);
    Append(text, std::to_string(static_cast<int>(save.old)));
    Append(text, save.path);
    Append(text, save.kept);
    Append(text, std::to_string(save.length));
    Append(text, std::to_string(save.checksum));
    Append(text, save.beginning ? "known" : "");
    Append(text, save.beginning.value_or(""));
    Append(text, std::to_string(ChecksumOf(text)));
    return text;
}

std::optional<UnfinishedSave> ParseJournalText(std::string_view text)
{
    constexpr std::size_t kFields = 8;
    std::vector<std::string_view> fields;
    std::string_view rest = text;
    for (std::optional<std::string_view> field; fields.size() < kFields; fields.push_back(*field)) {
        field = TakeField(rest);
        if (!field) {
            return std::nullopt;
        }
    }
    const std::uint64_t checksum = ChecksumOf(text.substr(0, text.size() - rest.size()));
    const auto end = TakeField(rest);
    const auto old = NumberIn(fields[1]);
    const auto length = NumberIn(fields[4]);
    const auto sum = NumberIn(fields[5]);
    if (fields[0] != kMagic || !end || NumberIn(*end) != checksum || !rest.empty() || !old || !length || !sum) {
        return std::nullopt;
    }
    UnfinishedSave save{UnfinishedSave::Old::None, std::string(fields[2]), std::string(fields[3]), *length, *sum, std::nullopt};
    if (*old > static_cast<std::uint64_t>(UnfinishedSave::Old::None) || !disk::IsAbsolute(save.path) || !IsKeptName(save.kept)) {
        return std::nullopt;
    }
    save.old = static_cast<UnfinishedSave::Old>(*old);
    const bool keeps = save.old == UnfinishedSave::Old::Aside || save.old == UnfinishedSave::Old::Copied;
    if (!fields[6].empty()) {
        save.beginning = std::string(fields[7]);
    }
    return keeps == !save.kept.empty() ? std::optional(save) : std::nullopt;
}

bool Undo(const UnfinishedSave &save)
{
    using Old = UnfinishedSave::Old;
    if (save.old == Old::Empty || save.old == Old::None) {
        const bool isWhole = save.beginning && Holds(save.path, save.length, save.checksum);
        if (disk::IsThere(save.Folder()) != disk::There::Yes) {
            return false;
        }
        if (isWhole || disk::IsThere(save.path) == disk::There::No || !IsBegun(save)) {
            return true;
        }
        return save.old == Old::None ? disk::TakeAway(save.path) : disk::MakeEmpty(save.path);
    }
    const disk::There kept = disk::IsThere(save.KeptPath());
    if (kept != disk::There::Yes) {
        // With neither of them there the disk is most likely another one, or none.
        return kept == disk::There::No && disk::IsThere(save.path) == disk::There::Yes;
    }
    if (Holds(save.old == Old::Aside ? save.path : save.KeptPath(), save.length, save.checksum) == (save.old == Old::Aside)) {
        return disk::TakeAway(save.KeptPath()); // the new file is complete, or the copy never was and nothing has been changed
    }
    return disk::PutBack(save.KeptPath(), save.path);
}

} // namespace velluto
