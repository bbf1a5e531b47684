// The framework's string class; it lives with the platform's foundation types.
#pragma once

#include "atlstr.h"
#include "platform/CodePage.h"
