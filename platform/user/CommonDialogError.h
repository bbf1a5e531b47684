// The reason the last common dialog call failed, for CommDlgExtendedError;
// shared by the file and colour dialogs.
#pragma once

#include <windows.h>

DWORD& CommDlgLastError();
