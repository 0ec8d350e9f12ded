// Lengths and places of windows and controls, in twips (1/1440 inch) everywhere. Used by forms, faces and the settings.
#pragma once

namespace velluto {

struct Size {
    int width = 0;
    int height = 0;
    bool operator==(const Size &) const = default;
};

// A rectangle; left and top are relative to the inside of what contains it.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool operator==(const Place &) const = default;
};

// The values are those of the settings file.
enum class WindowState { Normal = 0, Minimised = 1, Maximised = 2 };

struct Font {
    const char *name = "courier new";
    int size = 11; // points
    int weight = 400;
    bool operator==(const Font &) const = default;
};

// What the machine writes its own controls with: a font of no size.
inline constexpr Font kPlainFont{"", 0, 400};
[[nodiscard]] constexpr bool IsPlain(const Font &font)
{
    return font.size == 0;
}

} // namespace velluto
