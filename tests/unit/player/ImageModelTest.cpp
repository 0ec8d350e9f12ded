// Long random sequences of additions and removals, with the images that two models apart come to: groups as groups, and
// removal once more by positions.
#include "player/CompilationImage.h"

#include "app/Paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace velluto {
namespace {

// ---- groups as groups

struct Group {
    std::string directory;
    std::vector<std::string> names;
};

struct GroupModel {
    std::vector<Group> groups;

    [[nodiscard]] std::string Image() const
    {
        std::string image;
        for (const Group &group : groups) {
            image += '\1' + group.directory + '\0';
            for (const std::string &name : group.names) {
                image += name + '\0';
            }
        }
        return image.empty() ? image : image + '\xFF';
    }
    [[nodiscard]] std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const Group &group : groups) {
            names.insert(names.end(), group.names.begin(), group.names.end());
        }
        return names;
    }
    void Add(const std::string &directory, const std::string &name)
    {
        for (auto group = groups.begin(); group != groups.end(); ++group) {
            const auto at = std::ranges::find_if(group->names, [&](const std::string &n) { return UpperCase(n) > UpperCase(name); });
            if (at == group->names.end()) {
                continue;
            }
            if (group->directory == directory) {
                group->names.insert(at, name);
            } else if (at == group->names.begin()) {
                groups.insert(group, {directory, {name}});
            } else {
                const Group behind{group->directory, {at, group->names.end()}};
                group->names.erase(at, group->names.end());
                groups.insert(groups.insert(group + 1, {directory, {name}}) + 1, behind);
            }
            return;
        }
        if (!groups.empty() && groups.back().directory == directory) {
            groups.back().names.push_back(name);
        } else {
            groups.push_back({directory, {name}});
        }
    }
    // Where removing does what it says: among others of a group, and the first group as a whole.
    [[nodiscard]] bool RemovesCleanly(const std::string &name) const
    {
        return std::ranges::any_of(groups, [&](const Group &group) {
            return std::ranges::count(group.names, name) == 1 && (group.names.size() > 1 || &group == &groups.front());
        });
    }
    void Remove(const std::string &name)
    {
        for (auto group = groups.begin(); group != groups.end(); ++group) {
            if (std::erase(group->names, name) > 0) {
                if (group->names.empty()) {
                    groups.erase(group);
                }
                return;
            }
        }
    }
};

void Add(std::string &image, const GroupModel &before, const std::string &directory, const std::string &name)
{
    const std::vector<std::string> names = before.Names();
    const auto behind = std::ranges::find_if(names, [&](const std::string &n) { return UpperCase(n) > UpperCase(name); });
    if (names.empty()) {
        image = ImageOfOne(directory, name);
    } else if (behind != names.end()) {
        EXPECT_EQ(InsertBefore(image, *behind, directory, name), behind - names.begin());
    } else {
        EXPECT_EQ(Append(image, directory, name), static_cast<int>(names.size()));
    }
}

TEST(CompilationImageModel, RandomSequencesComeToTheSameGroups)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        GroupModel model;
        std::string image;
        int next = 0;
        for (int step = 0; step < 200; ++step) {
            const std::vector<std::string> names = model.Names();
            if (names.empty() || random() % 3 != 0) {
                const std::string directory = "/music/" + std::string(1 + random() % 3, 'd');
                // All of one length and all different: no name is a part of another one. Capitals and small letters mixed.
                const std::string name = std::string(1, static_cast<char>((random() % 2 != 0 ? 'A' : 'a') + random() % 26)) + "-" +
                                         std::to_string(100000 + next++) + ".mid";
                Add(image, model, directory, name);
                model.Add(directory, name);
            } else {
                const std::string name = names[random() % names.size()];
                if (model.RemovesCleanly(name)) {
                    RemoveByName(image, name);
                    model.Remove(name);
                }
            }
            ASSERT_EQ(image, model.Image()) << "seed " << seed << ", step " << step;
        }
        for (const std::string &name : model.Names()) { // from the front on each removal is a clean one
            RemoveByName(image, name);
            model.Remove(name);
            ASSERT_EQ(image, model.Image()) << "seed " << seed;
        }
        EXPECT_EQ(image, "");
    }
}

// ---- removal once more, on texts whose positions count from 1

std::string Left(const std::string &text, int count)
{
    return text.substr(0, static_cast<std::size_t>(std::max(count, 0)));
}

std::string Right(const std::string &text, int count)
{
    const int length = static_cast<int>(text.size());
    return text.substr(static_cast<std::size_t>(length - std::clamp(count, 0, length)));
}

int InStr(const std::string &text, const std::string &part, int from)
{
    const std::size_t found = text.find(part, static_cast<std::size_t>(from - 1));
    return found == std::string::npos ? 0 : static_cast<int>(found) + 1;
}

char Mid(const std::string &text, int position)
{
    return position >= 1 && position <= static_cast<int>(text.size()) ? text[static_cast<std::size_t>(position - 1)] : '\0';
}

std::string RemovedByPositions(const std::string &image, const std::string &name)
{
    const std::string zero(1, '\0');
    const int length = static_cast<int>(image.size());
    const int start = InStr(image, name, 1);
    const int nextZero = InStr(image, zero, start);
    const int end = nextZero == 0 ? length : nextZero - 1;
    int behindGroup = 0;
    int kept = 0;
    for (int k = start - 2; k >= 1; --k) {
        if (Mid(image, k) == '\0') {
            break;
        }
        if (Mid(image, k) == '\1') {
            behindGroup = k + 1;
            kept = InStr(image, zero, 1) - 1;
            break;
        }
    }
    if (behindGroup != 0 && Mid(image, end + 2) != '\1' && Mid(image, end + 2) != '\xFF') {
        behindGroup = 0;
    }
    std::string head = Left(image, start - 2);
    int skip = 0;
    if (behindGroup != 0) {
        head = Left(head, behindGroup - 2) + Right(head, static_cast<int>(head.size()) - kept);
        skip = 1;
    }
    const std::string result = head + Right(image, length - end - skip);
    return result.size() == 1 ? "" : result;
}

TEST(CompilationImageModel, RandomRemovalsLeaveWhatTheyLeaveByPositions)
{
    // Short names that are parts of each other and of the directories, and stretches that removals repeat.
    for (unsigned seed = 1; seed <= 400; ++seed) {
        std::mt19937 random(seed);
        std::string image;
        const int groups = 1 + static_cast<int>(random() % 4);
        for (int group = 0; group < groups; ++group) {
            image += '\1' + std::string("/") + std::string(1 + random() % 2, "ab"[random() % 2]) + '\0';
            for (auto files = 1 + random() % 3; files > 0; --files) {
                image += std::string(1 + random() % 2, "abc"[random() % 3]) + '\0';
            }
        }
        image += '\xFF';
        for (int step = 0; step < 12 && !image.empty() && image.size() < 10000; ++step) {
            const std::string name(1 + random() % 2, "abc"[random() % 3]);
            if (image.find(name) == std::string::npos) {
                continue;
            }
            const std::string expected = RemovedByPositions(image, name);
            RemoveByName(image, name);
            ASSERT_EQ(image, expected) << "seed " << seed << ", step " << step << ", name " << name;
        }
    }
}

} // namespace
} // namespace velluto
