// A grid's settings beside its cells: whether changes repaint the grid's
// window, and the properties that printing reads (the page margins).
#pragma once

#include "afx.h"

class CGXGridCore;

class CGXProperties {
public:
    // Page margins for printing, in the grid's print units: pixels of the
    // screen (96 per inch), so a grid prints at the size it shows. Negative
    // margins are refused (FALSE) and the old ones kept.
    BOOL SetMargins(int top, int left, int bottom, int right);
    void GetMargins(int& top, int& left, int& bottom, int& right) const;

    // Half an inch on every side until set.
    static constexpr int kDefaultMargin = 48;

private:
    int m_top = kDefaultMargin;
    int m_left = kDefaultMargin;
    int m_bottom = kDefaultMargin;
    int m_right = kDefaultMargin;
};

class CGXGridParam {
public:
    explicit CGXGridParam(CGXGridCore& grid) : m_grid(grid) {}
    CGXGridParam(const CGXGridParam&) = delete;
    CGXGridParam& operator=(const CGXGridParam&) = delete;

    // While off, changes to the grid do not repaint its window, whatever
    // their update flags say; switching it on again repaints once when
    // anything changed meanwhile. Filling many cells runs with it off.
    void EnableUpdate(BOOL enable = TRUE);
    BOOL IsUpdateEnabled() const { return m_updateEnabled; }

    CGXProperties* GetProperties() { return &m_properties; }
    const CGXProperties* GetProperties() const { return &m_properties; }

private:
    CGXGridCore& m_grid;
    BOOL m_updateEnabled = TRUE;
    CGXProperties m_properties;
};
