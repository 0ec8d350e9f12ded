#include "platform/posix/KeptFiles.h"

#include "platform/posix/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace velluto {

namespace {

using Old = UnfinishedSave::Old;

std::optional<std::string> WithoutLinks(const std::string &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
    return real ? std::optional<std::string>(real.get()) : std::nullopt;
}

// The save of what is at the path now, as far as that tells; nothing where it is no file, or a link to none.
std::optional<UnfinishedSave> SaveAt(const std::string &path)
{
    struct stat about {};
    if (path.empty() || path.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    UnfinishedSave save;
    if (::lstat(path.c_str(), &about) != 0) {
        const std::size_t name = path.rfind('/') + 1;
        const std::optional<std::string> folder = errno == ENOENT ? WithoutLinks(name > 0 ? path.substr(0, name) : ".") : std::nullopt;
        if (!folder || name == path.size()) {
            return std::nullopt;
        }
        save.path = (*folder == "/" ? "" : *folder) + "/" + path.substr(name);
        return save;
    }
    const std::optional<std::string> target = WithoutLinks(path);
    if (!target || ::stat(target->c_str(), &about) != 0 || !S_ISREG(about.st_mode)) {
        return std::nullopt;
    }
    save.path = *target;
    save.old = about.st_size > 0 ? Old::Aside : Old::Empty;
    return save;
}

// Of the file at the path, with its rights. False where it did not come to be whole, on the disk.
bool MakeCopy(const UnfinishedSave &save, std::span<const std::uint8_t> bytes, const struct stat &about)
{
    const Descriptor copy(save.KeptPath(), O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (!copy.IsOpen() || !copy.Write(bytes)) {
        return false;
    }
    [[maybe_unused]] const int asOwner = ::fchown(copy.Number(), about.st_uid, about.st_gid); // an ordinary user's are his own
    return ::fchmod(copy.Number(), about.st_mode & 07777U) == 0 && Sync(copy) && Sync(save.Folder());
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
            (void)(Sync(save_.path) && Sync(save_.Folder()));
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
            ::unlink(save_.KeptPath().c_str());
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
        isAside_ = ::rename(path.c_str(), save_.KeptPath().c_str()) == 0;
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

std::unique_ptr<WritingUnderWay> KeptFiles::BeginReplacing(const std::string &path, std::span<const std::uint8_t> bytes)
{
    std::optional<UnfinishedSave> save = SaveAt(path);
    if (!save) {
        return nullptr;
    }
    if (save->old == Old::Aside) {
        save->kept = std::string(kKeptPrefix) + UnusedName();
    }
    Checksum sum;
    sum.Add(bytes);
    save->length = bytes.size();
    save->checksum = sum.Value();
    const auto beginning = bytes.first(std::min(bytes.size(), UnfinishedSave::kBeginning));
    save->beginning.emplace(beginning.begin(), beginning.end());
    return Begin(std::move(*save));
}

std::unique_ptr<WritingUnderWay> KeptFiles::BeginChanging(const std::string &path)
{
    constexpr off_t kLongest = 1 << 20; // bytes; the program's own files are much shorter
    std::optional<UnfinishedSave> save = SaveAt(path);
    if (!save || save->old != Old::Aside) {
        return save ? Begin(std::move(*save)) : nullptr;
    }
    const Descriptor file(save->path, O_RDONLY | O_NONBLOCK);
    struct stat about {};
    if (!file.IsOpen() || !file.IsRegular(about) || about.st_size > kLongest) {
        return nullptr;
    }
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(about.st_size));
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
    return writing && MakeCopy(told, bytes, about) ? std::move(writing) : nullptr;
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
