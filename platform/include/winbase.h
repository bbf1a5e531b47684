// Kernel services: arithmetic helpers, code pages, modules.
#pragma once

#include "windef.h"

// (a * b) / c with a 64-bit intermediate, rounded half away from zero; -1 on
// overflow or when c is 0.
int MulDiv(int number, int numerator, int denominator);

#define CP_ACP 0
#define CP_UTF8 65001
#define WC_NO_BEST_FIT_CHARS 0x400
#define WC_ERR_INVALID_CHARS 0x80
#define MB_ERR_INVALID_CHARS 0x8

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR src, int srcLen, LPWSTR dst, int dstLen);
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR src, int srcLen, LPSTR dst, int dstLen,
                        LPCSTR defaultChar, LPBOOL usedDefaultChar);
// The ANSI code page the narrow conversions use (1252 unless the host chose another).
UINT GetACP();

DWORD GetLastError();
void SetLastError(DWORD error);
#define ERROR_SUCCESS 0
#define ERROR_INVALID_PARAMETER 87
#define ERROR_INSUFFICIENT_BUFFER 122
#define ERROR_INVALID_FLAGS 1004
#define ERROR_NO_UNICODE_TRANSLATION 1113

// Modules.
#define GET_MODULE_HANDLE_EX_FLAG_PIN 0x1
#define GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT 0x2
#define GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS 0x4

// With FROM_ADDRESS, name is an address inside the module: the handle is the
// module's load address. A null name without it gives the application.
BOOL GetModuleHandleExW(DWORD flags, LPCWSTR name, HMODULE* module);
HMODULE GetModuleHandleW(LPCWSTR name);

// Copies string resource id of module into buffer (cut to size - 1 and
// terminated); returns the number of characters, 0 when there is none.
int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int size);
