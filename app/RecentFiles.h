// The sixteen files last opened: their table, their rows at the end of the File menu, and where their windows stood.
#pragma once

#include "app/Modulo1.h"

#include <string>
#include <string_view>

namespace velluto {

inline constexpr int kRecentFiles = 16;

// Puts the path on top of the table and brings the menu up to date.
void AddRecent(Modulo1 &app, std::string_view path, std::uint8_t kind);
// The caption of row n (1 to 16) for the entry standing in app.WorkRecentRecord.
[[nodiscard]] std::string RecentCaption(const Modulo1 &app, int n);
// Captions and visibility of mnuRecentFile, from the top to the first empty entry.
void RefreshRecentMenu(Modulo1 &app);
// Stores the place of the active child in the entry of its file.
void UpdateRecentPlacement(Modulo1 &app);

} // namespace velluto
