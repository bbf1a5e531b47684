// The framework host's resource identifiers.
#pragma once

#define IDR_SHARED 13
#define IDR_MAINFRAME 200
#define IDR_ALPHA 201
// The same document name as IDR_ALPHA.
#define IDR_ALPHA_TOO 202
#define IDR_BETA 203
// A document name no template has.
#define IDR_GAMMA 204
// A string without a line feed, and one whose document name is empty.
#define IDR_NO_LINE_FEED 205
#define IDR_EMPTY_NAME 206
// No string at all.
#define IDR_MISSING 207

#define ID_CLOSE_WINDOW 32785
#define ID_OWN_COMMAND 32790
