// What ships with the program and belongs into the user's own folder: tables, guides, sample files. Used by the start on Windows, where
// no launcher does this (packaging/user-folder.sh is the same for a shell).
#pragma once

#include <QLatin1String>
#include <QString>

namespace velluto {

inline constexpr QLatin1String kShippedFolder("data");
// Beside it: a line for each file in it, as sha256sum writes them, in the order of names.
inline constexpr QLatin1String kShippedList("data.sha256");

// Copies what the user's folder does not have yet, folder by folder, and brings up to date what its user has never touched. What the
// user has made or changed is never written over, and a compilation that the user has deleted stays away; an empty file is what the
// program leaves where it found none, and holds nothing of the user's. The user's folder keeps a record of what was put: .velluto-shipped.
void PutShippedFiles(const QString &program, const QString &user);

} // namespace velluto
