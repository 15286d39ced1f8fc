#pragma once

// The system's headers that need windows.h before them, in the order they need.

// clang-format off
#include <windows.h>
#include <windowsx.h>
#include <commctrl.h>
#include <commdlg.h>
#include <shellapi.h>
#include <uxtheme.h>
#include <bcrypt.h>
// clang-format on
