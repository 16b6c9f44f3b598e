#pragma once

// The one place that pulls in the Windows headers, so that every file of the port sees them with the same
// settings.
#ifndef UNICODE
#define UNICODE
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif

// The first one declares what the others use.
// clang-format off
#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>
// clang-format on
