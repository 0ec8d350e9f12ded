// The calls of Windows, without what the program has no use for. Included by the sources of this folder alone.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef _WIN32_WINNT
#define _WIN32_WINNT 0x0A00 // Windows 10
#endif
#ifndef UNICODE
#define UNICODE
#endif
#include <windows.h>
