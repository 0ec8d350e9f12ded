#include "tool/Checking.h"

#include "tool/CheckingPlaces.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace velluto::tool {

namespace {

using namespace Korf;

// A run of bytes that is the same in every file, by its offset from the beginning of its part.
struct FixedBytes {
    std::uint64_t offset;
    std::string_view bytes;
};

using namespace std::string_view_literals;

constexpr std::string_view kFileMark = "KORF";
constexpr std::string_view kEndMark = "KEND";
constexpr std::array<FixedBytes, 3> kHead{{
    {0, "\x01\0\x01\x14"sv},
    {kIdentityChunk, "\x02\0\0\x18\0\0\0\x0C\x0B\0\0\0\0\0\0"sv},
    {kMark + 4, "\0\x05\0\0\x18\0\0"sv},
}};
constexpr FixedBytes kIndexBegin{0, "\xFE\0\0\x18"sv};
constexpr FixedBytes kIndexMark{8, "KBEG\0\0\0\x1C"sv};
constexpr std::uint64_t kIndexLength = 4; // in the index: the length of its content

class Check {
public:
    Check(ImageBlock image, Kind kind) : image_(image), kind_(kind) {}

    std::vector<Finding> Run()
    {
        if (CheckHead() && CheckDirectory() && FindEnd() && CheckIndex()) {
            CheckBodies();
        }
        if (directoryIsThere_) {
            CheckPlaces(image_, kind_, found_);
        }
        return std::move(found_);
    }

private:
    void Add(std::uint64_t offset, Fault fault, std::uint64_t n = 0, std::uint64_t m = 0) { found_.push_back({offset, fault, n, m, 0}); }

    [[nodiscard]] std::uint64_t Number(std::uint64_t offset, int bytes) const
    {
        std::uint64_t number = 0;
        for (int i = 0; i < bytes; ++i, ++offset) {
            number = number * 256 + (offset < image_.size() ? image_[offset] : 0);
        }
        return number;
    }
    [[nodiscard]] bool Has(std::uint64_t offset, std::string_view text) const
    {
        return image_.size() >= text.size() && offset <= image_.size() - text.size() &&
               std::equal(text.begin(), text.end(), From(offset), Same);
    }
    [[nodiscard]] ImageBlock::iterator From(std::uint64_t offset) const { return image_.begin() + static_cast<std::ptrdiff_t>(offset); }
    static bool Same(char wanted, std::uint8_t have) { return static_cast<std::uint8_t>(wanted) == have; }

    // Tells the first byte of the run that differs.
    void Expect(std::uint64_t part, const FixedBytes &fixed, Fault fault)
    {
        const std::uint64_t offset = part + fixed.offset;
        const auto [wanted, have] = std::mismatch(fixed.bytes.begin(), fixed.bytes.end(), From(offset), Same);
        if (wanted != fixed.bytes.end()) {
            Add(offset + static_cast<std::uint64_t>(wanted - fixed.bytes.begin()), fault, *have, static_cast<std::uint8_t>(*wanted));
        }
    }

    bool CheckHead()
    {
        if (image_.size() < kHeadLength) {
            Add(image_.size(), Fault::TooShort, image_.size());
            return false;
        }
        if (!Has(kMark, kFileMark)) {
            Add(kMark, Fault::NoMark);
            return false;
        }
        if (IsOfLaterInstrument(image_)) {
            Add(kDirectoryChunk + 1, Fault::LaterInstrument);
            return false;
        }
        for (const FixedBytes &fixed : kHead) {
            Expect(0, fixed, Fault::HeadByte);
        }
        return true;
    }

    bool CheckDirectory()
    {
        const std::uint64_t length = Number(kDirectoryLength, 2);
        items_ = length / kEntryLength;
        bodies_ = kHeadLength + items_ * kEntryLength;
        if (length % kEntryLength != 0) {
            Add(kDirectoryLength, Fault::DirectoryLength, length);
        }
        if (bodies_ > image_.size()) {
            Add(kDirectoryLength, Fault::DirectoryBeyond, items_);
            return false;
        }
        directoryIsThere_ = true;
        return true;
    }

    // Where "KEND" stands: at the file's end, or else where the outer length says.
    bool FindEnd()
    {
        const std::uint64_t outer = Number(kOuterLength, 4);
        const std::uint64_t last = image_.size() - kIndexTail;
        if (Has(last, kEndMark)) {
            end_ = last;
            if (outer != end_ && (outer != 0 || items_ != 0)) { // an empty new file is not framed yet
                Add(kOuterLength, Fault::OuterLength, outer, end_);
            }
        } else if (Has(outer, kEndMark) && outer + kIndexTail <= image_.size()) {
            end_ = outer;
            Add(end_ + kIndexTail, Fault::BytesBehind, last - end_);
        } else {
            Add(image_.size(), Fault::EndMissing);
            return false;
        }
        return true;
    }

    bool CheckIndex()
    {
        const std::uint64_t indexLength = kIndexHead + kIndexWord * items_;
        if (const std::uint64_t count = Number(end_ + kIndexWord, 4); count != items_ + 1) {
            Add(end_ + kIndexWord, Fault::Count, count, items_ + 1);
        }
        if (bodies_ + indexLength > end_) {
            Add(kDirectoryLength, Fault::DirectoryBeyond, items_);
            return false;
        }
        index_ = end_ - indexLength;
        Expect(index_, kIndexBegin, Fault::IndexByte);
        if (const std::uint64_t length = Number(index_ + kIndexLength, 4); length != indexLength) {
            Add(index_ + kIndexLength, Fault::OuterLength, length, indexLength);
        }
        Expect(index_, kIndexMark, Fault::IndexByte);
        return true;
    }

    void CheckBodies()
    {
        std::uint64_t before = bodies_;
        for (std::uint64_t item = 1; item <= items_; ++item) {
            const std::uint64_t word = index_ + kIndexHead + (item - 1) * kIndexWord;
            const std::uint64_t body = Number(word, kIndexWord);
            if (body < bodies_ || body > index_) {
                Add(word, Fault::BodyOutside, item, body);
                continue;
            }
            if (item == 1 && body != bodies_) {
                Add(word, Fault::BodyGap, body, bodies_);
            } else if (body < before) {
                Add(word, Fault::BodyOrder, item, body);
            }
            before = body;
        }
    }

    ImageBlock image_;
    Kind kind_;
    std::vector<Finding> found_;
    std::uint64_t items_ = 0;
    std::uint64_t bodies_ = 0; // offsets
    std::uint64_t end_ = 0;
    std::uint64_t index_ = 0;
    bool directoryIsThere_ = false;
};

} // namespace

std::vector<Finding> CheckImage(ImageBlock image, Kind kind)
{
    return Check(image, kind).Run();
}

} // namespace velluto::tool
