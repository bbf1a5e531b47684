#include "Win/utils/CResourceString.h"

CResourceString::CResourceString(UINT id) {
    LoadString(id);
}

CResourceString::~CResourceString() = default;
