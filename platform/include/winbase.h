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

// The profile API on INI files. A file name without a directory is found in the
// user's configuration directory ($XDG_CONFIG_HOME, else $HOME/.config); a null
// one is "win.ini" there.
//
// Copies the value of key in section (trimmed, matching quotes removed) or
// else the default (its trailing blanks removed) into buffer, cut to size - 1;
// returns the length copied. A null section lists the section names, a null
// key the section's keys, as strings each terminated, the list ending with an
// empty one.
DWORD GetPrivateProfileStringW(LPCWSTR appName, LPCWSTR keyName, LPCWSTR defaultString,
                               LPWSTR returnedString, DWORD size, LPCWSTR fileName);
// The value as a number: decimal or 0x hexadecimal with a sign, read up to the
// first other character, wrapping modulo 2^32; text that is not a number gives
// 0. A missing or empty value gives the default.
UINT GetPrivateProfileIntW(LPCWSTR appName, LPCWSTR keyName, INT defaultValue, LPCWSTR fileName);
// Sets key in section to string; a null string deletes the key, a null key the
// whole section. The file is replaced as a whole and durably; missing
// directories are created (mode 0700). Names or values that could not read
// back as written (line breaks, ']' in a section name, '=' in a key) fail with
// ERROR_INVALID_PARAMETER.
BOOL WritePrivateProfileStringW(LPCWSTR appName, LPCWSTR keyName, LPCWSTR string, LPCWSTR fileName);
#define GetPrivateProfileString GetPrivateProfileStringW
#define GetPrivateProfileInt GetPrivateProfileIntW
#define WritePrivateProfileString WritePrivateProfileStringW

DWORD GetLastError();
void SetLastError(DWORD error);
#define ERROR_SUCCESS 0
#define ERROR_FILE_NOT_FOUND 2
#define ERROR_PATH_NOT_FOUND 3
#define ERROR_ACCESS_DENIED 5
#define ERROR_WRITE_FAULT 29
#define ERROR_INVALID_PARAMETER 87
#define ERROR_DISK_FULL 112
#define ERROR_INSUFFICIENT_BUFFER 122
#define ERROR_FILENAME_EXCED_RANGE 206
#define ERROR_FILE_TOO_LARGE 223
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
