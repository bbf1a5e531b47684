#include "winbase.h"

#include <climits>
#include <cstdint>

int MulDiv(int number, int numerator, int denominator) {
    if (denominator == 0)
        return -1;
    int64_t product = static_cast<int64_t>(number) * numerator;
    // Round half away from zero: add half the divisor's magnitude in the
    // direction of the result's sign.
    bool negative = (product < 0) != (denominator < 0);
    int64_t magnitude = product < 0 ? -product : product;
    int64_t divisor = denominator < 0 ? -static_cast<int64_t>(denominator) : denominator;
    int64_t result = (magnitude + divisor / 2) / divisor;
    if (negative)
        result = -result;
    if (result > INT_MAX || result < INT_MIN)
        return -1;
    return static_cast<int>(result);
}
