// What the stand-in for Windows' winmm.dll is made with, and how its tests reach it.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#define _WINMM_ // it defines the calls, and imports none
#include <windows.h>
// which the next one needs
#include <mmsystem.h>
// and this one
#include <mmddk.h>

// Obeys one command (see Machine.h) and answers with the log so far; good until the next one.
extern "C" __declspec(dllexport) const char *StandinWinmm(const char *command);
