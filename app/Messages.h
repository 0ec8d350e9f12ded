// The two message routines that every box of the program goes through, and the language offset they read texts with.
#pragma once

#include "app/Language.h"
#include "view/Face.h"

#include <string>
#include <string_view>

namespace velluto {

// Message numbers: rows of the table that leads to the catalogue's ids.
namespace MessageNo {
inline constexpr int GenericError = 0;
inline constexpr int InsertOnly = 1; // the whole text is the insert
inline constexpr int WrongData = 4;
inline constexpr int InputDeviceMissing = 10;
inline constexpr int FolderNotFound = 11;
inline constexpr int FileAlreadyOpen = 16;
inline constexpr int ReadOnlyFile = 17;
inline constexpr int DiskReadError = 18;
inline constexpr int DiskFull = 19;
inline constexpr int OutputDeviceInUse = 20;
inline constexpr int OutputDeviceMissing = 22;
inline constexpr int LanguageChangesLater = 24;
inline constexpr int FileNotFound = 27;
inline constexpr int DiskNotReady = 28;
inline constexpr int DiskWriteError = 29;
inline constexpr int PathNotFound = 30;
inline constexpr int DeviceError = 31;
inline constexpr int DataFormatError = 32;
inline constexpr int InputDeviceMissingAtStart = 33;
inline constexpr int InputDeviceInUse = 38;
inline constexpr int SequencerNotReady = 39;
} // namespace MessageNo

// What AskSave's first line says.
namespace SaveQuestion {
inline constexpr int Plain = 0;
inline constexpr int FileChanged = 1;
inline constexpr int ProgramChanged = 3;
} // namespace SaveQuestion

struct Messages {
    Face &face;
    int LinguaBase = kItalianBase; // fixed for a run

    // The catalogue's text in the language of the run. id is the Italian one.
    [[nodiscard]] std::string Text(int id) const;
    [[nodiscard]] std::string Text(const TwoTexts &texts) const { return std::string(texts.In(LinguaBase)); }
    // Shows message `number` with its "_" replaced by insert. Numbers outside the table lead to no text.
    void ShowMessage(int number, std::string_view title, std::string_view insert) const;
    // Yes, No or Cancel (Box::kYes...).
    [[nodiscard]] int AskSave(int kind, std::string_view title) const;
};

// The text of a message with its first "_" replaced by insert; the insert is not searched again.
[[nodiscard]] std::string MessageText(int number, int linguaBase, std::string_view insert);

} // namespace velluto
