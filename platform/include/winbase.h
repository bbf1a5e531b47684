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

// Global memory blocks. A fixed block's handle is its address; a moveable
// block has a handle of its own and its address comes from GlobalLock. A
// handle that is not a live block fails: NULL, 0 or GMEM_INVALID_HANDLE with
// ERROR_INVALID_HANDLE, and GlobalFree gives the handle back.
#define GMEM_FIXED 0x0000
#define GMEM_MOVEABLE 0x0002
#define GMEM_NOCOMPACT 0x0010
#define GMEM_NODISCARD 0x0020
#define GMEM_ZEROINIT 0x0040
#define GMEM_MODIFY 0x0080
#define GMEM_DISCARDABLE 0x0100
#define GMEM_NOT_BANKED 0x1000
#define GMEM_SHARE 0x2000
#define GMEM_DDESHARE 0x2000
#define GMEM_NOTIFY 0x4000
#define GMEM_DISCARDED 0x4000
#define GMEM_INVALID_HANDLE 0x8000
#define GMEM_LOCKCOUNT 0x00FF
#define GHND (GMEM_MOVEABLE | GMEM_ZEROINIT)
#define GPTR (GMEM_FIXED | GMEM_ZEROINIT)

// A block of bytes (zeroed with GMEM_ZEROINIT). A moveable block of 0 bytes is
// born discarded: it has a handle but no memory. NULL with
// ERROR_NOT_ENOUGH_MEMORY when the memory cannot be had.
HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes);
// The block's address. A moveable block's lock count goes up by one (up to
// 255); NULL for a discarded block.
LPVOID GlobalLock(HGLOBAL block);
// Counts a lock of a moveable block down: nonzero while it is still locked,
// else FALSE with ERROR_SUCCESS, or FALSE with ERROR_NOT_LOCKED when it was
// not locked. TRUE for a fixed block.
BOOL GlobalUnlock(HGLOBAL block);
// NULL once the block is freed (also for NULL), else the handle.
HGLOBAL GlobalFree(HGLOBAL block);
// The size asked for at allocation; 0 for a discarded block.
SIZE_T GlobalSize(HGLOBAL block);
// The lock count in the low byte, with GMEM_DDESHARE, GMEM_DISCARDABLE and
// GMEM_DISCARDED as they apply.
UINT GlobalFlags(HGLOBAL block);

DWORD GetLastError();
void SetLastError(DWORD error);
#define ERROR_SUCCESS 0
#define ERROR_FILE_NOT_FOUND 2
#define ERROR_PATH_NOT_FOUND 3
#define ERROR_ACCESS_DENIED 5
#define ERROR_INVALID_HANDLE 6
#define ERROR_NOT_ENOUGH_MEMORY 8
#define ERROR_WRITE_FAULT 29
#define ERROR_INVALID_PARAMETER 87
#define ERROR_DISK_FULL 112
#define ERROR_INSUFFICIENT_BUFFER 122
#define ERROR_NOT_LOCKED 158
#define ERROR_FILENAME_EXCED_RANGE 206
#define ERROR_FILE_TOO_LARGE 223
#define ERROR_INVALID_FLAGS 1004
#define ERROR_NO_UNICODE_TRANSLATION 1113
#define ERROR_INVALID_WINDOW_HANDLE 1400
#define ERROR_INVALID_MENU_HANDLE 1401
#define ERROR_RESOURCE_NAME_NOT_FOUND 1814
#define ERROR_CLIPBOARD_NOT_OPEN 1418
#define ERROR_POPUP_ALREADY_ACTIVE 1446

// Gives up the rest of the thread's time slice (0) or waits the milliseconds.
void Sleep(DWORD milliseconds);

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
