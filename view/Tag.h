// The state text of a child window: numbered one-character fields, and for documents the whole file behind them.
// Whoever acts on the active window reads what it is from here and needs to know no form.
#pragma once

#include "view/FileImage.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velluto {

// The fields of the prefix, by 1-based position.
namespace TagPosition {
inline constexpr int Kind = 1;
inline constexpr int RecentKind = 2;
inline constexpr int Places = 3;
inline constexpr int Modified = 6;
inline constexpr int ProgramEdited = 7;
inline constexpr int HasSts = 8;
inline constexpr int PasteFixed = 9;
inline constexpr int ListShows = 10;
inline constexpr int Slot = 15;
inline constexpr int Role = 16;
inline constexpr int State = 17;
inline constexpr int Untitled = 18;
inline constexpr int Path = 21;
} // namespace TagPosition

inline constexpr int kPathLength = 234; // bytes; so long is a path in the settings file too
inline constexpr int kTagPrefixLength = 270;

struct WindowTag {
    std::string prefix; // 270 characters in a document, shorter in other windows
    FileImage image;    // empty in windows without a document

    // The code of the character at the 1-based position, 0 beyond the end.
    [[nodiscard]] int At(int position) const;
    // Writes one character; positions beyond the end of the prefix are ignored.
    void Set(int position, int value);
    // count characters from the 1-based position, as many as there are.
    [[nodiscard]] std::string Text(int position, int count) const;
    // Puts text at the 1-based position over what is there, without growing the prefix.
    void Put(int position, std::string_view text);

    [[nodiscard]] int Kind() const { return At(TagPosition::Kind); }
    [[nodiscard]] int Slot() const { return At(TagPosition::Slot); }
    // The path in positions 21 to 254, trailing blanks removed.
    [[nodiscard]] std::string Path() const;
    // Writes the path blank-padded to its 234 characters.
    void SetPath(std::string_view path);
};

// 20 zero characters and 250 blanks: what every document's state begins as.
[[nodiscard]] std::string TagPrefix();
// kind and 19 zero characters: the state of a window without a document.
[[nodiscard]] WindowTag ToolTag(int kind);

} // namespace velluto
