#include "afx.h"

void CArchive::WriteCount(ULONGLONG count) {
    if (count < 0xFFFF) {
        *this << static_cast<WORD>(count);
        return;
    }
    *this << static_cast<WORD>(0xFFFF);
    if (count < 0xFFFFFFFF) {
        *this << static_cast<UINT>(count);
        return;
    }
    *this << static_cast<UINT>(0xFFFFFFFF) << count;
}

ULONGLONG CArchive::ReadCount() {
    WORD small = 0;
    *this >> small;
    if (small != 0xFFFF)
        return small;
    UINT medium = 0;
    *this >> medium;
    if (medium != 0xFFFFFFFF)
        return medium;
    ULONGLONG large = 0;
    *this >> large;
    return large;
}
