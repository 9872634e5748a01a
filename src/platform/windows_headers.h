// The system's headers, for the files named for Windows. All others need the first.
#pragma once

// clang-format off
#include <windows.h>

#include <mmsystem.h>
#include <psapi.h>
#include <shellapi.h>
#include <shlobj.h>
// clang-format on
