// What a program on a console asks of its system before it begins. Used by the mains of the driver and the tool.
#pragma once

#ifdef _WIN32
#include "platform/windows/WinConsole.h"
#else
#include "platform/posix/PosixConsole.h"
#endif
