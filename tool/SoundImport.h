// Puts the names of a list into the tables: at the addresses that a table has, or else into free places of the group of the
// panel that the sound belongs to. Used by the command tables.
#pragma once

#include "tool/SoundList.h"

namespace velluto::tool {

struct ImportResult {
    int named = 0;                     // records that have got their name; where it was the same already too
    int placed = 0;                    // sounds that have got a free place
    int shortened = 0;                 // names that were longer than a record's field
    std::vector<ListedSound> homeless; // in order of program and bank: no place is free for them
};

// Of two sounds with one address the first counts.
ImportResult ImportSounds(const std::vector<ListedSound> &sounds, RecordTable &programs, RecordTable &styles);

} // namespace velluto::tool
