#include "player/CompilationImage.h"

#include "app/Paths.h"

#include <algorithm>

namespace velluto {

namespace {

// What ends at the next terminator, or with the image.
std::string_view TextAt(std::string_view image, std::size_t at)
{
    const std::string_view rest = image.substr(std::min(at, image.size()));
    return rest.substr(0, rest.find(ImageMark::kTerminator));
}

std::string_view First(std::string_view text, std::size_t count)
{
    return text.substr(0, count);
}

std::string_view Last(std::string_view text, std::size_t count)
{
    return text.substr(text.size() - std::min(count, text.size()));
}

// a - b, but no less than 0.
std::size_t Less(std::size_t a, std::size_t b)
{
    return a > b ? a - b : 0;
}

std::string GroupHead(std::string_view directory)
{
    return std::string(1, ImageMark::kGroup).append(directory) + ImageMark::kTerminator;
}

void InsertAt(std::string &image, const ImageEntry &entry, std::string_view directory, std::string_view name)
{
    const std::string file = std::string(name) + ImageMark::kTerminator;
    if (entry.directory == directory) {
        image.insert(entry.at, file);
    } else if (entry.firstOfGroup) {
        image.insert(entry.group, GroupHead(directory) + file);
    } else {
        image.insert(entry.at, GroupHead(directory) + file + GroupHead(entry.directory));
    }
}

} // namespace

std::string ImageEntry::Path() const
{
    return JoinPath(directory, name);
}

bool ImageWalk::Next(ImageEntry &entry)
{
    if (at_ >= image_.size()) {
        return false;
    }
    const bool newGroup = image_[at_] == ImageMark::kGroup;
    if (newGroup) {
        group_ = at_;
        directory_ = TextAt(image_, at_ + 1);
        at_ = std::min(at_ + directory_.size() + 2, image_.size());
    }
    if (at_ >= image_.size() || image_[at_] == ImageMark::kEnd) {
        return false;
    }
    entry = {directory_, TextAt(image_, at_), at_, group_, newGroup};
    at_ = std::min(at_ + entry.name.size() + 1, image_.size());
    return true;
}

std::string PathInImage(std::string_view image, int row)
{
    ImageWalk walk(image);
    ImageEntry entry;
    for (int at = 0; walk.Next(entry); ++at) {
        if (at == row) {
            return entry.Path();
        }
    }
    return {};
}

std::string ImageOfOne(std::string_view directory, std::string_view name)
{
    return GroupHead(directory).append(name) + ImageMark::kTerminator + ImageMark::kEnd;
}

int InsertBefore(std::string &image, std::string_view target, std::string_view directory, std::string_view name)
{
    ImageWalk walk(image);
    ImageEntry entry;
    for (int row = 0; walk.Next(entry); ++row) {
        if (entry.name == target) {
            InsertAt(image, entry, directory, name);
            return row;
        }
    }
    return Append(image, directory, name);
}

int Append(std::string &image, std::string_view directory, std::string_view name)
{
    ImageWalk walk(image);
    ImageEntry entry;
    int row = 0;
    while (walk.Next(entry)) {
        ++row;
    }
    const std::string head = walk.Directory() == directory ? std::string() : GroupHead(directory);
    const std::string file = head + std::string(name) + ImageMark::kTerminator;
    if (walk.Place() < image.size()) {
        image.insert(walk.Place(), file);
    } else { // the end mark is missing
        image += file + ImageMark::kEnd;
    }
    return row;
}

// Positions are 1-based here, so that 0 can stand for none.
void RemoveByName(std::string &image, std::string_view name)
{
    const std::size_t found = image.find(name);
    if (name.empty() || found == std::string::npos) {
        return;
    }
    const auto at = [&image](std::size_t position) { return position >= 1 && position <= image.size() ? image[position - 1] : '\0'; };
    const std::size_t start = found + 1;
    const std::size_t end = found + TextAt(image, found).size();

    std::size_t behindGroup = 0; // one more than the position of the 0x01 of a group that the file opens; 0 where it opens none
    std::size_t kept = 0;        // what of the head is not repeated
    for (std::size_t k = Less(start, 2); k >= 1 && at(k) != ImageMark::kTerminator; --k) {
        if (at(k) == ImageMark::kGroup) {
            behindGroup = k + 1;
            kept = image.find(ImageMark::kTerminator); // always that of the first group, whichever group it is
            break;
        }
    }
    if (behindGroup != 0 && at(end + 2) != ImageMark::kGroup && at(end + 2) != ImageMark::kEnd) {
        behindGroup = 0; // the group has further files and stays
    }

    const std::string whole(First(image, Less(start, 2))); // leaves out the 0x00 before the name
    std::string result = whole;
    std::size_t skip = 0;
    if (behindGroup != 0) {
        result = std::string(First(whole, Less(behindGroup, 2))).append(Last(whole, Less(whole.size(), kept)));
        skip = 1;
    }
    result.append(Last(image, Less(Less(image.size(), end), skip)));
    image = result.size() == 1 ? std::string() : std::move(result);
}

} // namespace velluto
