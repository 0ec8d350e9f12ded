#include "tool/Walk.h"

#include "app/Paths.h"
#include "platform/Folders.h"
#include "platform/machine/Utf8Path.h"
#include "tool/InstrumentFile.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace velluto::tool {

namespace {

namespace fs = std::filesystem;

struct Listing {
    std::vector<std::string> files;
    std::vector<std::string> folders; // the last one first: they are taken from the end
    std::error_code error;
};

std::string Below(const std::string &folder, const std::string &name)
{
    return folder.ends_with('/') || folder.ends_with(kPathSeparator) ? folder + name : folder + kPathSeparator + name;
}

// A link to a folder is none. What the listing itself tells of an entry is enough, mostly.
bool IsRealFolder(const fs::directory_entry &entry)
{
    std::error_code unknown;
    return !entry.is_symlink(unknown) && entry.is_directory(unknown);
}

Listing List(const std::string &folder)
{
    Listing listing;
    fs::directory_iterator at(PathOfUtf8(folder), listing.error);
    while (!listing.error && at != fs::directory_iterator()) {
        std::string name = Utf8OfPath(at->path().filename());
        if (!name.starts_with('.')) {
            if (IsRealFolder(*at)) {
                listing.folders.push_back(std::move(name));
            } else if (KindOf(name) != Kind::None) {
                listing.files.push_back(std::move(name));
            }
        }
        at.increment(listing.error);
    }
    std::ranges::sort(listing.files, ComesBefore);
    std::ranges::sort(listing.folders, [](const std::string &one, const std::string &other) { return ComesBefore(other, one); });
    return listing;
}

} // namespace

bool WalkFiles(const std::string &named, const Visit &visit)
{
    std::error_code unknown;
    if (!fs::is_directory(PathOfUtf8(named), unknown)) {
        return visit(named, {});
    }
    std::vector<std::string> toDo{named};
    while (!toDo.empty()) {
        const std::string folder = std::move(toDo.back());
        toDo.pop_back();
        const Listing listing = List(folder);
        for (const std::string &name : listing.files) {
            if (!visit(Below(folder, name), {})) {
                return false;
            }
        }
        if (listing.error && !visit(folder, listing.error)) {
            return false;
        }
        for (const std::string &name : listing.folders) {
            toDo.push_back(Below(folder, name));
        }
    }
    return true;
}

Obstacle ObstacleAt(const std::string &path)
{
    std::error_code error;
    const fs::file_status about = fs::status(PathOfUtf8(path), error);
    if (error == std::errc::too_many_symbolic_link_levels) {
        return Obstacle::Circle;
    }
    if (error == std::errc::filename_too_long) {
        return Obstacle::TooLong;
    }
    if (about.type() == fs::file_type::not_found) {
        return Obstacle::Missing;
    }
    if (error || fs::is_regular_file(about)) {
        return Obstacle::None;
    }
    return fs::is_directory(about) ? Obstacle::Folder : Obstacle::NoFile;
}

} // namespace velluto::tool
