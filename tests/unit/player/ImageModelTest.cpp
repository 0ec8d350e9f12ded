// Long random sequences of additions and removals, with the images that a model of groups comes to.
#include "player/CompilationImage.h"

#include "app/Paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace velluto {
namespace {

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

} // namespace
} // namespace velluto
