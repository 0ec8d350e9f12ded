// What Windows' settings say of the colours of programs.
#include "platform/windows/WinColours.h"
#include "platform/windows/Windows.h"

#include <gtest/gtest.h>

#include <optional>

namespace velluto::test {
namespace {

constexpr const wchar_t *kPersonalize = L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
constexpr const wchar_t *kLight = L"AppsUseLightTheme";

class WinColoursTest : public testing::Test {
protected:
    void SetUp() override
    {
        DWORD light = 0;
        DWORD size = sizeof(light);
        if (::RegGetValueW(HKEY_CURRENT_USER, kPersonalize, kLight, RRF_RT_REG_DWORD, nullptr, &light, &size) == ERROR_SUCCESS) {
            before_ = light;
        }
    }
    void TearDown() override { before_ ? Write(*before_) : Forget(); }

    static void Write(DWORD light)
    {
        ASSERT_EQ(::RegSetKeyValueW(HKEY_CURRENT_USER, kPersonalize, kLight, REG_DWORD, &light, sizeof(light)), ERROR_SUCCESS);
    }
    static void Forget() { ::RegDeleteKeyValueW(HKEY_CURRENT_USER, kPersonalize, kLight); }

private:
    std::optional<DWORD> before_;
};

TEST_F(WinColoursTest, ProgramsAreDarkWhereTheUserSaysSoAndNotWhereWindowsDoesNotKnow)
{
    Write(0);
    EXPECT_TRUE(WantsDarkPrograms());
    Write(1);
    EXPECT_FALSE(WantsDarkPrograms());
    Forget();
    EXPECT_FALSE(WantsDarkPrograms());
}

TEST(WinTheme, IsTheUsersButForColoursOfHighContrastWhichStay)
{
    EXPECT_EQ(ThemeFor(false, false), "light");
    EXPECT_EQ(ThemeFor(false, true), "dark");
    EXPECT_EQ(ThemeFor(true, false), "");
    EXPECT_EQ(ThemeFor(true, true), "");
}

} // namespace
} // namespace velluto::test
