#include "platform/kept/KeptFiles.h"

#include "platform/kept/Disk.h"

#include <algorithm>
#include <utility>

namespace velluto {

namespace {

using Old = UnfinishedSave::Old;

// The save of what is at the path now, as far as that tells; nothing where it is no file, or a link to none.
std::optional<UnfinishedSave> SaveAt(const std::string &path)
{
    std::optional<disk::Place> place = disk::PlaceOf(path);
    if (!place) {
        return std::nullopt;
    }
    UnfinishedSave save;
    save.path = std::move(place->path);
    save.old = !place->isThere ? Old::None : place->length > 0 ? Old::Aside : Old::Empty;
    return save;
}

} // namespace

// One file being written, from its line in the journal until that is taken back.
class KeptFiles::Writing : public WritingUnderWay {
public:
    Writing(KeptFiles &owner, UnfinishedSave save, std::unique_ptr<JournalEntry> entry)
        : owner_(owner), save_(std::move(save)), entry_(std::move(entry))
    {
        owner_.underWay_.push_back(this);
    }
    ~Writing() override
    {
        const bool isWritten = save_.old == Old::Aside ? isAside_ : save_.old == Old::Copied || save_.beginning.has_value();
        if (entry_ && isWritten) {
            (void)(disk::Sync(save_.path) && disk::Sync(save_.Folder()));
        }
        GiveBack();
        std::erase(owner_.underWay_, this);
    }
    Writing(const Writing &) = delete;
    Writing &operator=(const Writing &) = delete;

    bool GiveBack()
    {
        if (!entry_) {
            return false;
        }
        if (!save_.kept.empty()) {
            disk::TakeAway(save_.KeptPath());
        }
        entry_->TakeBack();
        entry_.reset();
        return true;
    }
    bool PutAside(const std::string &path)
    {
        if (!entry_ || isAside_ || save_.old != Old::Aside || save_.path != path) {
            return false;
        }
        isAside_ = disk::PutAside(path, save_.KeptPath());
        return isAside_;
    }

private:
    KeptFiles &owner_;
    UnfinishedSave save_;
    std::unique_ptr<JournalEntry> entry_; // null once given back
    bool isAside_ = false;
};

KeptFiles::KeptFiles(const std::string &programFolder) : journal_(programFolder)
{
    journal_.EachLeft(Undo);
}

std::unique_ptr<WritingUnderWay> KeptFiles::Begin(UnfinishedSave save)
{
    const bool isAnythingAtStake = !save.kept.empty();
    std::unique_ptr<JournalEntry> entry =
        journal_.Tell(save, isAnythingAtStake ? SaveJournal::OnDisk::Now : SaveJournal::OnDisk::WheneverItIs);
    return entry ? std::make_unique<Writing>(*this, std::move(save), std::move(entry)) : nullptr;
}

std::unique_ptr<WritingUnderWay> KeptFiles::BeginReplacing(const std::string &path, const ByteRuns &bytes)
{
    std::optional<UnfinishedSave> save = SaveAt(path);
    if (!save) {
        return nullptr;
    }
    if (save->old == Old::Aside) {
        save->kept = std::string(kKeptPrefix) + UnusedName();
    }
    Checksum sum;
    std::string &beginning = save->beginning.emplace();
    for (const auto &run : bytes) {
        sum.Add(run);
        save->length += run.size();
        const auto begun = run.first(std::min(run.size(), UnfinishedSave::kBeginning - beginning.size()));
        beginning.append(begun.begin(), begun.end());
    }
    save->checksum = sum.Value();
    return Begin(std::move(*save));
}

std::unique_ptr<WritingUnderWay> KeptFiles::BeginChanging(const std::string &path)
{
    constexpr std::uint64_t kLongest = 1 << 20; // bytes; the program's own files are much shorter
    std::optional<UnfinishedSave> save = SaveAt(path);
    if (!save || save->old != Old::Aside) {
        return save ? Begin(std::move(*save)) : nullptr;
    }
    const disk::File file = disk::File::ToRead(save->path);
    if (!file.IsOpen() || file.Length() > kLongest) {
        return nullptr;
    }
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(file.Length()));
    if (file.Read(bytes) != bytes.size()) {
        return nullptr;
    }
    Checksum sum;
    sum.Add(bytes);
    save->old = Old::Copied;
    save->kept = std::string(kKeptPrefix) + UnusedName();
    save->length = bytes.size();
    save->checksum = sum.Value();
    const UnfinishedSave told = *save;
    std::unique_ptr<WritingUnderWay> writing = Begin(std::move(*save));
    return writing && file.MakeLike(told.KeptPath(), bytes) ? std::move(writing) : nullptr;
}

bool KeptFiles::PutAside(const std::string &path)
{
    return std::ranges::any_of(underWay_, [&path](Writing *writing) { return writing->PutAside(path); });
}

bool KeptFiles::MakeRoom()
{
    return std::ranges::count_if(underWay_, &Writing::GiveBack) > 0;
}

} // namespace velluto
