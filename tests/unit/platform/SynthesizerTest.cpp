#include "platform/fluidsynth/Synthesizer.h"

#include "platform/MidiDevices.h"
#include "unit/support/TestProgram.h"

#include <gmock/gmock.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Sets a variable of the environment for the time of a test.
class Variable {
public:
    Variable(const char *name, const std::string &value) : name_(name)
    {
        if (const char *before = std::getenv(name)) {
            before_ = before;
        }
        ::setenv(name, value.c_str(), 1);
    }
    ~Variable()
    {
        if (before_.empty()) {
            ::unsetenv(name_);
        } else {
            ::setenv(name_, before_.c_str(), 1);
        }
    }
    Variable(const Variable &) = delete;
    Variable &operator=(const Variable &) = delete;

private:
    const char *name_;
    std::string before_;
};

const Bytes kHead{'R', 'I', 'F', 'F', 4, 0, 0, 0, 's', 'f', 'b', 'k'};

TEST(Synthesizer, TheSoundFontOfTheEnvironmentGoesFirst)
{
    const TempFolder folder;
    WriteBytes(folder.At("my.sf2"), kHead);
    const Variable chosen("VELLUTO_SOUNDFONT", folder.At("my.sf2"));
    EXPECT_EQ(FindSoundFont(), folder.At("my.sf2"));
}

TEST(Synthesizer, ASoundFontOfTheEnvironmentThatIsMissingMeansNone)
{
    const TempFolder folder;
    const Variable chosen("VELLUTO_SOUNDFONT", folder.At("none.sf2"));
    EXPECT_EQ(FindSoundFont(), "");
    EXPECT_THAT(SynthesizerPorts(FindSoundFont()).Outputs(), IsEmpty());
}

TEST(Synthesizer, TheUsersOwnSoundFontGoesFirst)
{
    const TempFolder folder;
    const Variable data("XDG_DATA_HOME", folder.Path());
    std::filesystem::create_directory(folder.At("soundfonts"));
    WriteBytes(folder.At("soundfonts/default.sf3"), kHead);
    EXPECT_EQ(FindSoundFont(), folder.At("soundfonts/default.sf3"));
    WriteBytes(folder.At("soundfonts/default.sf2"), kHead);
    EXPECT_EQ(FindSoundFont(), folder.At("soundfonts/default.sf2"));
}

TEST(Synthesizer, AFileThatIsNoWholeSoundFontMeansNone)
{
    const TempFolder folder;
    for (const Bytes &bytes : {Bytes{}, Bytes{'R', 'I', 'F', 'F', 4, 0, 0, 0, 'W', 'A', 'V', 'E'}, Bytes(40),
                               Bytes{'R', 'I', 'F', 'F', 5, 0, 0, 0, 's', 'f', 'b', 'k'}}) {
        WriteBytes(folder.At("my.sf2"), bytes);
        const Variable chosen("VELLUTO_SOUNDFONT", folder.At("my.sf2"));
        EXPECT_EQ(FindSoundFont(), "");
    }
}

TEST(Synthesizer, WithoutASoundFontThereIsNothingToOpen)
{
    SynthesizerPorts ports("");
    std::unique_ptr<OutputPort> port;
    EXPECT_EQ(ports.OpenOutput(kSynthesizerName, port), MidiCode::kNoDevice);
    EXPECT_EQ(port, nullptr);
}

TEST(Synthesizer, ASoundFontWithoutSoundsIsRefused)
{
    const TempFolder folder;
    WriteBytes(folder.At("bad.sf2"), kHead);
    SynthesizerPorts ports(folder.At("bad.sf2"));
    std::unique_ptr<OutputPort> port;
    EXPECT_EQ(ports.OpenOutput(kSynthesizerName, port), MidiCode::kError);
    EXPECT_EQ(port, nullptr);
}

TEST(Synthesizer, ItTakesAnyMessageWithOrWithoutAudioAndWithoutAWord)
{
    const std::string soundFont = FindSoundFont();
    if (soundFont.empty()) {
        GTEST_SKIP() << "no SoundFont on this machine";
    }
    SynthesizerPorts ports(soundFont);
    EXPECT_THAT(ports.Outputs(), ElementsAre(kSynthesizerName));
    EXPECT_THAT(ports.Inputs(), IsEmpty());
    testing::internal::CaptureStderr();
    std::unique_ptr<OutputPort> first;
    std::unique_ptr<OutputPort> second;
    ASSERT_EQ(ports.OpenOutput(kSynthesizerName, first), MidiCode::kSuccess);
    ASSERT_EQ(ports.OpenOutput(kSynthesizerName, second), MidiCode::kSuccess);
    for (unsigned status = 0x80; status <= 0xFF; ++status) {
        const Bytes message{static_cast<std::uint8_t>(status), 0, 121};
        EXPECT_EQ(first->Send(message), MidiCode::kSuccess);
        EXPECT_EQ(second->Send(std::span(message).first(1)), MidiCode::kSuccess);
    }
    EXPECT_EQ(first->Send(Bytes{0xB0, 0, 120}), MidiCode::kSuccess);
    EXPECT_EQ(first->Send(Bytes{0xC0, 4}), MidiCode::kSuccess);
    EXPECT_EQ(first->Send(Bytes{0xF0, 0x7E, 0x7F, 0x09, 0x01, 0xF7}), MidiCode::kSuccess);
    first.reset();
    EXPECT_EQ(second->Send(Bytes{0x90, 60, 100}), MidiCode::kSuccess);
    second.reset();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
} // namespace velluto::test
