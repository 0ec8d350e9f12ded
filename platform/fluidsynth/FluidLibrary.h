// The functions of FluidSynth's library, which is opened when a synthesizer is first wanted. It is not linked: it brings some
// forty libraries with it (audio servers, sound formats, window systems), and who starts the program should not wait for
// them. Used by Synthesizer.
#pragma once

#include <fluidsynth.h>

namespace velluto {

// Each under its own name in the library.
struct FluidLibrary {
    // The library is opened once and stays for the whole run. Nothing where it is not there. Any thread.
    static const FluidLibrary *Open();

    decltype(&::fluid_set_log_function) fluid_set_log_function = nullptr;
    decltype(&::fluid_audio_driver_register) fluid_audio_driver_register = nullptr;

    decltype(&::new_fluid_settings) new_fluid_settings = nullptr;
    decltype(&::delete_fluid_settings) delete_fluid_settings = nullptr;
    decltype(&::fluid_settings_setint) fluid_settings_setint = nullptr;
    decltype(&::fluid_settings_setstr) fluid_settings_setstr = nullptr;

    decltype(&::new_fluid_audio_driver) new_fluid_audio_driver = nullptr;
    decltype(&::delete_fluid_audio_driver) delete_fluid_audio_driver = nullptr;

    decltype(&::new_fluid_synth) new_fluid_synth = nullptr;
    decltype(&::delete_fluid_synth) delete_fluid_synth = nullptr;
    decltype(&::fluid_synth_sfload) fluid_synth_sfload = nullptr;
    decltype(&::fluid_synth_system_reset) fluid_synth_system_reset = nullptr;
    decltype(&::fluid_synth_sysex) fluid_synth_sysex = nullptr;
    decltype(&::fluid_synth_noteoff) fluid_synth_noteoff = nullptr;
    decltype(&::fluid_synth_noteon) fluid_synth_noteon = nullptr;
    decltype(&::fluid_synth_key_pressure) fluid_synth_key_pressure = nullptr;
    decltype(&::fluid_synth_cc) fluid_synth_cc = nullptr;
    decltype(&::fluid_synth_set_channel_type) fluid_synth_set_channel_type = nullptr;
    decltype(&::fluid_synth_program_change) fluid_synth_program_change = nullptr;
    decltype(&::fluid_synth_channel_pressure) fluid_synth_channel_pressure = nullptr;
    decltype(&::fluid_synth_pitch_bend) fluid_synth_pitch_bend = nullptr;
};

} // namespace velluto
