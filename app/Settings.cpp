#include "app/Settings.h"

#include <algorithm>
#include <string_view>

namespace velluto {

namespace {

constexpr std::array<std::size_t, 2> kFactoryStyleEntries{14, 15};
constexpr std::uint8_t kMaximised = 2;

constexpr std::size_t kFirstFactoryBank = 9; // entry of PrfDocTable
constexpr int kFactoryPerformanceBanks = 10;
constexpr std::string_view kBankEnding = "01.prf";

} // namespace

Settings::Settings()
{
    ChannelRole[0] = kUserAssignedRolePrograms;
    ChannelRole[1] = kUserAssignedRoleControl;
    PlacementTable[PlacementEntry::Frame].State = kMaximised;
    for (const std::size_t entry : kFactoryStyleEntries) {
        PlacementTable[entry].Role = kUserAssignedRoleControl;
        PlacementTable[entry].State = kMaximised;
    }
    // Entry 0 of a document table belongs to a new file and keeps role 0.
    std::for_each(PcgDocTable.begin() + 1, PcgDocTable.end(), [](DocRecord &record) { record.Role = kUserAssignedRolePrograms; });
    std::for_each(StyDocTable.begin() + 1, StyDocTable.end(), [](DocRecord &record) { record.Role = kUserAssignedRoleControl; });
    std::for_each(PrfDocTable.begin() + 1, PrfDocTable.end(), [](DocRecord &record) { record.Role = kUserAssignedRoleControl; });
}

void AssignFactoryBanks(Settings &settings, const std::string &firstBank)
{
    const std::string stem = firstBank.substr(0, firstBank.size() - std::min(firstBank.size(), kBankEnding.size()));
    for (int bank = 1; bank <= kFactoryPerformanceBanks; ++bank) {
        const std::string path = stem + (bank < 10 ? "0" : "") + std::to_string(bank) + ".prf";
        PathText &field = settings.PrfDocTable[kFirstFactoryBank + static_cast<std::size_t>(bank - 1)].Path;
        field.Set(PathText::Fits(path) ? path : std::string());
    }
}

} // namespace velluto
