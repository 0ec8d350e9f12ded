// The calls of winmm.dll that Qt makes, and no test asks about: clocks and sounds that there are none of. Qt goes on without.
#include "Winmm.h"

extern "C" {

__declspec(dllexport) MMRESULT WINAPI
    timeSetEvent(UINT /*delay*/, UINT /*resolution*/, LPTIMECALLBACK /*proc*/, DWORD_PTR /*user*/, UINT /*how*/)
{
    return 0;
}

__declspec(dllexport) MMRESULT WINAPI timeKillEvent(UINT /*timer*/)
{
    return MMSYSERR_INVALPARAM;
}

__declspec(dllexport) BOOL WINAPI PlaySoundW(LPCWSTR /*sound*/, HMODULE /*from*/, DWORD /*how*/)
{
    return FALSE;
}

} // extern "C"
