#include "platform/fluidsynth/FluidLibrary.h"

#include <dlfcn.h>

#include <optional>

namespace velluto {

namespace {

// Looks functions up, and remembers whether all were there.
class Finder {
public:
    explicit Finder(void *library) : library_(library) {}

    template <typename Function>
    void operator()(Function &function, const char *name)
    {
        function = reinterpret_cast<Function>(::dlsym(library_, name));
        foundAll_ = foundAll_ && function != nullptr;
    }
    [[nodiscard]] bool FoundAll() const { return foundAll_; }

private:
    void *library_;
    bool foundAll_ = true;
};

std::optional<FluidLibrary> FindFunctions()
{
    void *const library = ::dlopen(VELLUTO_FLUIDSYNTH, RTLD_LAZY | RTLD_LOCAL);
    if (library == nullptr) {
        return std::nullopt;
    }
    Finder find(library);
    FluidLibrary found;
    find(found.fluid_set_log_function, "fluid_set_log_function");
    find(found.fluid_audio_driver_register, "fluid_audio_driver_register");
    find(found.new_fluid_settings, "new_fluid_settings");
    find(found.delete_fluid_settings, "delete_fluid_settings");
    find(found.fluid_settings_setint, "fluid_settings_setint");
    find(found.fluid_settings_setstr, "fluid_settings_setstr");
    find(found.new_fluid_audio_driver, "new_fluid_audio_driver");
    find(found.delete_fluid_audio_driver, "delete_fluid_audio_driver");
    find(found.new_fluid_synth, "new_fluid_synth");
    find(found.delete_fluid_synth, "delete_fluid_synth");
    find(found.fluid_synth_sfload, "fluid_synth_sfload");
    find(found.fluid_synth_system_reset, "fluid_synth_system_reset");
    find(found.fluid_synth_sysex, "fluid_synth_sysex");
    find(found.fluid_synth_noteoff, "fluid_synth_noteoff");
    find(found.fluid_synth_noteon, "fluid_synth_noteon");
    find(found.fluid_synth_key_pressure, "fluid_synth_key_pressure");
    find(found.fluid_synth_cc, "fluid_synth_cc");
    find(found.fluid_synth_set_channel_type, "fluid_synth_set_channel_type");
    find(found.fluid_synth_program_change, "fluid_synth_program_change");
    find(found.fluid_synth_channel_pressure, "fluid_synth_channel_pressure");
    find(found.fluid_synth_pitch_bend, "fluid_synth_pitch_bend");
    return find.FoundAll() ? std::optional(found) : std::nullopt;
}

} // namespace

const FluidLibrary *FluidLibrary::Open()
{
    static const std::optional<FluidLibrary> opened = FindFunctions();
    return opened ? &*opened : nullptr;
}

} // namespace velluto
