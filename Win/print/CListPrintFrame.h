// The print frame of list printing, for CListPrintDoc and CListPrintView.
#pragma once

#include "CPrintFrame.h"

class CListPrintFrame : public CPrintFrame {
    DECLARE_DYNCREATE(CListPrintFrame)

public:
    CListPrintFrame();
    ~CListPrintFrame() override;

    BOOL PreCreateWindow(CREATESTRUCT& cs) override;

protected:
    DECLARE_MESSAGE_MAP()
};
