// The files and folders of the system that the program is built for, under one name. Used by whoever makes a program on a real
// machine: the faces' main, the tool, the driver and the tests.
#pragma once

#ifdef _WIN32
#include "platform/windows/WinFiles.h"
#include "platform/windows/WinFolders.h"
#else
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixFolders.h"
#endif

namespace velluto {

#ifdef _WIN32
using MachineFiles = WinFiles;
using MachineFolders = WinFolders;
#else
using MachineFiles = PosixFiles;
using MachineFolders = PosixFolders;
#endif

} // namespace velluto
