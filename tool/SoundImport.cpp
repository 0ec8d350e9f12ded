#include "tool/SoundImport.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace velluto::tool {

namespace {

class Import {
public:
    Import(RecordTable &programs, RecordTable &styles) : programs_(programs), styles_(styles)
    {
        std::size_t index = 0;
        for (const SoundGroup &group : SoundGroups()) {
            const SoundAddress first = AddressOf(programs_.Record(group.sounds.first));
            for (int record = group.sounds.first; record <= group.sounds.last; ++record) {
                const std::string_view sound = programs_.Record(record);
                // Without a name, and with no numbers of its own.
                if (NameIn(sound, PcgField::Name).empty() && (!HasAddress(sound) || AddressOf(sound) == first)) {
                    free_.at(index).push_back(record);
                } else {
                    records_[AddressOf(sound)].push_back(record);
                }
            }
            next_.at(index++) = 0;
        }
    }

    ImportResult Run(const std::vector<ListedSound> &sounds)
    {
        std::vector<ListedSound> others;
        for (const ListedSound &sound : sounds) {
            if (!sound.anyBank) {
                toldBanks_.emplace(sound.address.msb, sound.address.lsb);
            }
        }
        for (const ListedSound &sound : sounds) {
            if (sound.anyBank) {
                NameBasicSounds(sound);
            } else if (!told_.emplace(sound.isStyle, sound.address).second) {
                continue;
            } else if (sound.isStyle) {
                NameStyle(sound);
            } else if (const auto found = records_.find(sound.address); found != records_.end()) {
                NameRecords(found->second, sound.name);
            } else {
                others.push_back(sound);
            }
        }
        Place(others);
        std::ranges::stable_sort(result_.homeless, {}, ByProgram);
        return result_;
    }

private:
    static std::array<int, 3> ByProgram(const ListedSound &sound) { return {sound.address.program, sound.address.msb, sound.address.lsb}; }

    void PutName(RecordTable &table, int record, RecordField field, const std::string &name)
    {
        result_.shortened += name.size() > field.width ? 1 : 0;
        table.Put(record, field, name);
    }

    void NameRecords(const std::vector<int> &records, const std::string &name)
    {
        for (const int record : records) {
            PutName(programs_, record, PcgField::Name, name);
            ++result_.named;
        }
    }

    // A name for any bank is that of the program's basic sound: LSB 0 of the banks that the list does not tell of.
    void NameBasicSounds(const ListedSound &sound)
    {
        for (const auto &[address, records] : records_) {
            if (address.program == sound.address.program && address.lsb == 0 && !toldBanks_.contains({address.msb, address.lsb}) &&
                sound.isKit == IsKit(address)) {
                NameRecords(records, sound.name);
            }
        }
    }
    static bool IsKit(const SoundAddress &address) { return GroupOf({address.msb, 0, 0}, false) == GroupOf({}, true); }

    // The last bank of the first list and the first of the second are one: who comes first names it.
    void NameStyle(const ListedSound &sound)
    {
        const int record = StyleRecord(sound.address.lsb, sound.address.program);
        if (styleRecords_.insert(record).second) {
            PutName(styles_, record, StyField::Name, sound.name);
            ++result_.named;
        } else if (NameIn(styles_.Record(record), StyField::Name) != sound.name.substr(0, StyField::Name.width)) {
            result_.homeless.push_back(sound);
        }
    }

    void Place(std::vector<ListedSound> &sounds)
    {
        std::ranges::stable_sort(sounds, {}, ByProgram);
        for (const ListedSound &sound : sounds) {
            const std::size_t group = GroupOf(sound.address, sound.isKit);
            if (next_.at(group) == free_.at(group).size()) {
                result_.homeless.push_back(sound);
                continue;
            }
            const int record = free_.at(group)[next_.at(group)++];
            PutName(programs_, record, PcgField::Name, sound.name);
            PutAddress(programs_, record, sound.address);
            ++result_.placed;
        }
        // What stays free has the numbers of its group's first sound, which may be a new one.
        for (std::size_t group = 0; group < free_.size(); ++group) {
            for (std::size_t i = next_.at(group); next_.at(group) > 0 && i < free_.at(group).size(); ++i) {
                PutAddress(programs_, free_.at(group)[i], AddressOf(programs_.Record(SoundGroups()[group].sounds.first)));
            }
        }
    }

    static constexpr std::size_t kGroups = 17;

    RecordTable &programs_;
    RecordTable &styles_;
    std::map<SoundAddress, std::vector<int>> records_; // of the table before the import
    std::array<std::vector<int>, kGroups> free_{};     // records, by group
    std::array<std::size_t, kGroups> next_{};          // of free_, by group
    std::set<std::pair<int, int>> toldBanks_;          // MSB and LSB
    std::set<std::pair<bool, SoundAddress>> told_;     // of a Style or not
    std::set<int> styleRecords_;
    ImportResult result_;
};

} // namespace

ImportResult ImportSounds(const std::vector<ListedSound> &sounds, RecordTable &programs, RecordTable &styles)
{
    return Import(programs, styles).Run(sounds);
}

} // namespace velluto::tool
