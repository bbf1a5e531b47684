// The class framework's automation support: dates.
#pragma once

#include "afx.h"

#include "atlcomtime.h"
#include "oleauto.h"
