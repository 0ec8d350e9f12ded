#include "tool/CheckingPlaces.h"

#include "files/ItemRows.h"
#include "files/StyleRows.h"

#include <array>

namespace velluto::tool {

namespace {

constexpr std::size_t kPlaceNumbers = 256; // a place is one byte

int MostPlaces(Kind kind)
{
    if (kind == Kind::Program) {
        return kProgramPlacesLarge;
    }
    return kind == Kind::Style ? kStyleRows : kPerformancePlaces;
}

class Places {
public:
    Places(ImageBlock image, Kind kind, std::vector<Finding> &found)
        : image_(image), found_(found), most_(MostPlaces(kind)), n_(CountItems(image))
    {
    }

    void Run(Kind kind)
    {
        const int mostItems = kind == Kind::Style ? 2 * most_ : most_; // a Style may have an STS
        if (n_ > mostItems) {
            found_.push_back({Korf::kDirectoryLength, Fault::TooManyItems, Unsigned(n_), Unsigned(mostItems), 0});
        }
        for (int entry = 0; entry < n_; ++entry) {
            if (EntrySlot(image_, entry) >= most_) {
                Add(entry, Fault::PlaceBeyond, most_);
            }
        }
        const int layout = kind == Kind::Style ? ClassifyStyleLayout(image_) : StyleLayout::StylesOnly;
        if (layout == StyleLayout::Interleaved) {
            CheckInterleaved();
        } else if (layout == StyleLayout::Grouped) {
            CheckGrouped();
        } else {
            for (int entry = 0; entry < n_; ++entry) {
                CheckNext(entry);
            }
        }
    }

private:
    static std::uint64_t Unsigned(int number) { return static_cast<std::uint64_t>(number); }

    // With the entry's place; k as it is told.
    void Add(int entry, Fault fault, int k = 0)
    {
        const std::uint64_t offset = Korf::kHeadLength + Unsigned(entry) * Korf::kEntryLength + Korf::kEntrySlot;
        found_.push_back({offset, fault, Unsigned(entry) + 1, Unsigned(EntrySlot(image_, entry)) + 1, Unsigned(k)});
    }

    // An entry of its own, after all that came before it.
    void CheckNext(int entry)
    {
        const int place = EntrySlot(image_, entry);
        int &owner = owners_.at(static_cast<std::size_t>(place));
        if (owner > 0) {
            Add(entry, Fault::PlaceShared, owner);
        } else if (place < before_) {
            Add(entry, Fault::PlaceOrder, before_ + 1);
        }
        owner = owner > 0 ? owner : entry + 1;
        before_ = place;
    }

    void CheckInterleaved()
    {
        for (int entry = 0; entry < n_; ++entry) {
            CheckNext(entry);
            if (entry + 1 < n_ && EntrySlot(image_, entry + 1) == EntrySlot(image_, entry)) {
                ++entry;
            } else {
                Add(entry, Fault::StsMissing);
            }
        }
    }

    void CheckGrouped()
    {
        const int half = n_ / 2;
        if (n_ % 2 != 0) {
            found_.push_back({Korf::kDirectoryLength, Fault::StsUneven, Unsigned(n_), 0, 0});
        }
        for (int entry = 0; entry < half; ++entry) {
            CheckNext(entry);
        }
        for (int entry = half; entry < 2 * half; ++entry) {
            const int place = EntrySlot(image_, entry - half);
            if (EntrySlot(image_, entry) != place) {
                Add(entry, Fault::StsOrder, place + 1);
            }
        }
    }

    ImageBlock image_;
    std::vector<Finding> &found_;
    int most_;
    int n_;
    int before_ = -1;                         // place of the entry before
    std::array<int, kPlaceNumbers> owners_{}; // by place: the number of the first entry there, 0 for none
};

} // namespace

void CheckPlaces(ImageBlock image, Kind kind, std::vector<Finding> &found)
{
    if (kind != Kind::None) {
        Places(image, kind, found).Run(kind);
    }
}

} // namespace velluto::tool
