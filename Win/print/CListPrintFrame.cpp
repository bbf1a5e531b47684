#include "CListPrintFrame.h"

IMPLEMENT_DYNCREATE(CListPrintFrame, CPrintFrame)

BEGIN_MESSAGE_MAP(CListPrintFrame, CPrintFrame)
END_MESSAGE_MAP()

CListPrintFrame::CListPrintFrame() = default;

CListPrintFrame::~CListPrintFrame() = default;

BOOL CListPrintFrame::PreCreateWindow(CREATESTRUCT& cs) {
    return CMDIChildWnd::PreCreateWindow(cs);
}
