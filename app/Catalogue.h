// The numbered texts of the program in its two languages: 1 to 155 Italian, the id + 200 English; whoever reads one adds
// LinguaBase himself. Texts without a number stand as TwoTexts beside what they belong to.
#pragma once

#include <string>
#include <string_view>

namespace velluto {

inline constexpr std::string_view kProgramName = "Velluto";
inline constexpr std::string_view kProgramTitle = "Velluto v 1.1"; // title of boxes that belong to no file operation

// The ids that have a name of their own because code asks for them.
namespace TextId {
inline constexpr int About = 5;
inline constexpr int Close = 8;
inline constexpr int Banks = 11;
inline constexpr int OpeningStep = 17;
inline constexpr int InputDeviceError = 19;
inline constexpr int OutputDeviceMissing = 20;
inline constexpr int MidiChannel = 22;
inline constexpr int Delete = 23;
inline constexpr int InfoAbout = 30;
inline constexpr int UserGuide = 47;
inline constexpr int Bank = 50;
inline constexpr int FileHasChanged = 52;
inline constexpr int SaveChanges = 53;
inline constexpr int OpenFile = 67;
inline constexpr int Untitled = 69;
inline constexpr int DeletingStep = 70;
inline constexpr int SaveFileAs = 75;
inline constexpr int New = 77;
inline constexpr int RemoveSelected = 78;
inline constexpr int RemoveAll = 82;
inline constexpr int AddSelected = 83;
inline constexpr int ChangeLanguage = 84;
inline constexpr int NewFile = 88;
inline constexpr int MidiMessages = 91;
inline constexpr int AddAll = 92;
inline constexpr int TileHorizontal = 94;
inline constexpr int Keyboard = 106;
inline constexpr int PathNotFound = 110;
inline constexpr int Opening = 111;
inline constexpr int OpeningMidiOut = 113;
inline constexpr int ClosingMidiOut = 114;
inline constexpr int Saving = 115;
inline constexpr int ProgramHasChanged = 126;
inline constexpr int Notebook = 128;
inline constexpr int ProgramTitleLine = 129;
inline constexpr int OutputDeviceError = 130;
inline constexpr int Version = 131;
inline constexpr int Print = 147;
} // namespace TextId

// The text of an id. An id that the catalogue does not hold is a programming error: std::out_of_range.
[[nodiscard]] std::string_view LoadResString(int id);

} // namespace velluto
