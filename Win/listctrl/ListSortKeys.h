// What the list sorter compares: a key derived from a cell's text, and the
// order of two keys. The quicksort asks a key type for Of(text), Less(a, b)
// and Greater(a, b).
#pragma once

#include <afxdisp.h>
#include <afxstr.h>

namespace listsort {

// The text lower-cased (A to Z only), compared code unit by code unit.
struct TextKey {
    using Value = CString;
    Value Of(CString text) const;
    static bool Less(const Value& a, const Value& b) { return a.Compare(b) < 0; }
    static bool Greater(const Value& a, const Value& b) { return a.Compare(b) > 0; }
};

// The date and time the text gives under the user's default locale; text
// that is no date gives an invalid date, which is neither less nor greater
// than any other.
struct DateTimeKey {
    using Value = COleDateTime;
    Value Of(const CString& text) const;
    static bool Less(const Value& a, const Value& b) { return a < b; }
    static bool Greater(const Value& a, const Value& b) { return a > b; }
};

// The leading integer; the smallest int for an empty cell, 0 for a cell
// that starts with no number.
struct IntegerKey {
    using Value = int;
    Value Of(const CString& text) const;
    static bool Less(Value a, Value b) { return a < b; }
    static bool Greater(Value a, Value b) { return a > b; }
};

// The leading floating-point number of the text in the ANSI code page; the
// lowest finite double for an empty cell, 0 for a cell that starts with no
// number.
struct DoubleKey {
    using Value = double;
    Value Of(const CString& text) const;
    static bool Less(Value a, Value b) { return a < b; }
    static bool Greater(Value a, Value b) { return a > b; }
};

} // namespace listsort
