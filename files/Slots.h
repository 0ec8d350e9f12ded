// The slots of the three document tables: which of them hold opened files, which new ones, which the banks of the
// instrument. Used wherever a window's slot decides something.
#pragma once

namespace velluto {

// Slots 1 to 8 of every type hold the files that were opened, those from 9 on the banks.
inline constexpr int kFirstFileSlot = 1;
inline constexpr int kLastFileSlot = 8;
inline constexpr int kFirstBankSlot = 9;
// Program files: User 1 and 2, the new files of 64 and of 128 places.
inline constexpr int kFirstPcgUserSlot = kFirstBankSlot;
inline constexpr int kLastPcgUserSlot = 10;
inline constexpr int kNewPcg64Slot = 11;
inline constexpr int kNewPcg128Slot = 12;
// Style files: the new file, User 1 to 3, Direct HD 1 to 9.
inline constexpr int kNewStySlot = 0;
inline constexpr int kFirstStyUserSlot = kFirstBankSlot;
inline constexpr int kLastStyUserSlot = 11;
inline constexpr int kFirstDirectHdSlot = 12;
inline constexpr int kLastDirectHdSlot = 20;
inline constexpr int kDirectHdInGroup = 3; // banks under one entry such as "Direct HD 123"
// Performance files: the new file, User 1 to 20.
inline constexpr int kNewPrfSlot = 0;
inline constexpr int kFirstPrfUserSlot = kFirstBankSlot;
inline constexpr int kLastPrfUserSlot = 28;
inline constexpr int kMostSlots = kLastPrfUserSlot + 1; // that a type has, slot 0 included

[[nodiscard]] constexpr bool IsFileSlot(int slot)
{
    return slot >= kFirstFileSlot && slot <= kLastFileSlot;
}

// last is the last bank's slot of the type, or of the banks meant.
[[nodiscard]] constexpr bool IsBankSlot(int slot, int last)
{
    return slot >= kFirstBankSlot && slot <= last;
}

} // namespace velluto
