// The small numbers that say what a child window is: position 1 of its Tag, and the global of the same name.
#pragma once

namespace velluto::ViewKind {

inline constexpr int BankA = 2; // factory Program banks A to F are 2 to 7
inline constexpr int BankF = 7;
inline constexpr int Keyboard = 8;
inline constexpr int Monitor = 9;
inline constexpr int Guide = 11;
inline constexpr int Notebook = 12;
inline constexpr int About = 13;
inline constexpr int ProgramFile = 14;
inline constexpr int FactoryStyles1 = 15;
inline constexpr int FactoryStyles2 = 16;
inline constexpr int Player = 17;
inline constexpr int NewProgram64 = 18;  // while loading only
inline constexpr int NewProgram128 = 19; // while loading only
inline constexpr int StyleFile = 20;
inline constexpr int NewStyle = 21;
inline constexpr int PerformanceFile = 22;
inline constexpr int NewPerformance = 23;
inline constexpr int PerformanceOverview = 24;
inline constexpr int StyleOverview = 25; // User 1 to 3; 26 to 28 are Direct HD 123, 456, 789
inline constexpr int StyleOverviewLast = 28;
inline constexpr int ChannelSetup = 29;

} // namespace velluto::ViewKind

namespace velluto {

[[nodiscard]] constexpr bool IsFactoryPrograms(int kind)
{
    return kind >= ViewKind::BankA && kind <= ViewKind::BankF;
}

[[nodiscard]] constexpr bool IsFactoryStyles(int kind)
{
    return kind == ViewKind::FactoryStyles1 || kind == ViewKind::FactoryStyles2;
}

[[nodiscard]] constexpr bool IsStyleOverview(int kind)
{
    return kind >= ViewKind::StyleOverview && kind <= ViewKind::StyleOverviewLast;
}

} // namespace velluto
