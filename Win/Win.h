// Every public class of the library.
#pragma once

#include "Win/screen/CursorPos.h"
#include "Win/screen/FontStyle.h"
#include "Win/screen/ScreenChar.h"
