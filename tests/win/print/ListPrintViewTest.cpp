// The list print view's initial update (the list copied into the grid in
// the user's column order, widths fitted and widened, margins set) and the
// text of its header line.
#include "ListPrintHost.h"

#include <platform/ResourceModule.h>

using namespace listprint_host;

namespace {

CListPrintView* PrintViewOf(CDocument* doc) {
    POSITION pos = doc ? doc->GetFirstViewPosition() : nullptr;
    return pos ? DYNAMIC_DOWNCAST(CListPrintView, doc->GetNextView(pos)) : nullptr;
}

} // namespace

TEST(ListPrintWidening, IsTruncatedAfterADoubleMultiplication) {
    EXPECT_EQ(CListPrintView::WidenedWidth(80), 92);
    EXPECT_EQ(CListPrintView::WidenedWidth(99), 113);  // 113.85
    EXPECT_EQ(CListPrintView::WidenedWidth(100), 114); // 114.99999999999999
    EXPECT_EQ(CListPrintView::WidenedWidth(0), 0);
    EXPECT_EQ(CListPrintView::WidenedWidth(20), 23);
}

TEST_F(ListPrintHostTest, TheListIsCopiedInTheColumnOrderTheUserArranged) {
    FillList(5, 4);
    int order[4] = {2, 0, 3, 1};
    ASSERT_TRUE(listFrame->m_list.SetColumnOrderArray(4, order));
    auto* doc = new CListPrintDoc(&listFrame->m_list, ID_HOST_REFRESH);
    ASSERT_NE(Open(doc), nullptr);
    CListPrintView* view = PrintViewOf(doc);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->GetRowCount(), 5);
    EXPECT_EQ(view->GetColCount(), 4);
    for (int c = 0; c < 4; ++c) {
        CString title;
        title.Format(u"Title %d", order[c]);
        EXPECT_EQ(view->GetValueRowCol(0, c + 1), title);
        for (int r = 0; r < 5; ++r) {
            CString cell;
            cell.Format(u"R%d C%d", r, order[c]);
            EXPECT_EQ(view->GetValueRowCol(r + 1, c + 1), cell);
        }
    }
    // Only the list's columns show: the row-header column is hidden.
    EXPECT_TRUE(view->IsColHidden(0));
    EXPECT_TRUE(view->GetParam()->IsUpdateEnabled());
    int top = 0, left = 0, bottom = 0, right = 0;
    view->GetParam()->GetProperties()->GetMargins(top, left, bottom, right);
    EXPECT_EQ(top, 72);
    EXPECT_EQ(left, 36);
    EXPECT_EQ(bottom, 72);
    EXPECT_EQ(right, 36);
}

TEST_F(ListPrintHostTest, EveryColumnIsFifteenPercentWiderThanItsContents) {
    FillList(3, 3);
    listFrame->m_list.SetItemText(1, 1, u"A much longer text than the rest");
    auto* doc = new CListPrintDoc(&listFrame->m_list, ID_HOST_REFRESH);
    ASSERT_NE(Open(doc), nullptr);
    CListPrintView* view = PrintViewOf(doc);
    ASSERT_NE(view, nullptr);
    // The same values fitted by a grid of their own.
    CGXGridCore fitted;
    fitted.SetRowCount(3);
    fitted.SetColCount(3);
    for (int r = 0; r <= 3; ++r)
        for (int c = 1; c <= 3; ++c) {
            CGXStyle style;
            style.SetValue(view->GetValueRowCol(r, c));
            fitted.SetStyleRange(CGXRange(r, c), style);
        }
    fitted.ResizeColWidthsToFit(CGXRange().SetCols(1, 3));
    for (int c = 1; c <= 3; ++c)
        EXPECT_EQ(view->GetColWidth(c), static_cast<int>(fitted.GetColWidth(c) * 1.15)) << c;
    EXPECT_GT(view->GetColWidth(2), view->GetColWidth(1));
}

TEST_F(ListPrintHostTest, LongColumnTitlesAreCutAtTheTitleBuffer) {
    FillList(1, 1);
    std::u16string longTitle(300, u'x');
    LVCOLUMN column{};
    column.mask = LVCF_TEXT;
    column.pszText = longTitle.data();
    listFrame->m_list.SetColumn(0, &column);
    auto* doc = new CListPrintDoc(&listFrame->m_list, ID_HOST_REFRESH);
    ASSERT_NE(Open(doc), nullptr);
    CListPrintView* view = PrintViewOf(doc);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->GetValueRowCol(0, 1).GetLength(), 255);
}

TEST_F(ListPrintHostTest, AListWithoutRowsOrColumnsGivesAnEmptyGrid) {
    auto* doc = new CListPrintDoc(&listFrame->m_list, ID_HOST_REFRESH);
    ASSERT_NE(Open(doc), nullptr);
    CListPrintView* view = PrintViewOf(doc);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->GetRowCount(), 0);
    EXPECT_EQ(view->GetColCount(), 0);
}

TEST_F(ListPrintHostTest, ADocumentWithoutAListLeavesTheGridEmpty) {
    auto* doc = static_cast<CListPrintDoc*>(CRuntimeClass::CreateObject("CListPrintDoc"));
    ASSERT_NE(Open(doc), nullptr);
    CListPrintView* view = PrintViewOf(doc);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->GetColCount(), 0);
    Pump(); // command 0 goes nowhere
    EXPECT_EQ(OpenPrintDocuments(), 1);
}

TEST_F(ListPrintHostTest, TheHeaderLineJoinsTimeSystemAndDates) {
    const CString now(u"2024-03-05 14:07:09");
    CListPrintDoc bare(&listFrame->m_list, 0);
    EXPECT_EQ(CListPrintView::HeaderText(bare, now), u"");

    CListPrintDoc noDates(&listFrame->m_list, u"North Plant", 0, 0,
                          COleDateTime(2024, 1, 2, 0, 0, 0), COleDateTime(2024, 2, 3, 0, 0, 0));
    EXPECT_EQ(CListPrintView::HeaderText(noDates, now), u"2024-03-05 14:07:09  |  North Plant");

    CListPrintDoc dated(&listFrame->m_list, u"North Plant", 0, 1,
                        COleDateTime(2024, 1, 2, 10, 0, 0), COleDateTime(2024, 2, 3, 0, 0, 0));
    EXPECT_EQ(CListPrintView::HeaderText(dated, now),
              u"2024-03-05 14:07:09  |  North Plant, from 2024-01-02 to 2024-02-03");
}

TEST_F(ListPrintHostTest, ZeroInvalidAndNullDatesPrintAsTheFrameworkFormatsThem) {
    const CString now(u"NOW");
    COleDateTime invalid;
    invalid.SetStatus(COleDateTime::invalid);
    COleDateTime null;
    null.SetStatus(COleDateTime::null);
    CListPrintDoc zero(&listFrame->m_list, u"S", 0, 1, COleDateTime(), COleDateTime());
    EXPECT_EQ(CListPrintView::HeaderText(zero, now), u"NOW  |  S, from 1899-12-30 to 1899-12-30");
    CListPrintDoc bad(&listFrame->m_list, u"S", 0, 1, invalid, null);
    EXPECT_EQ(CListPrintView::HeaderText(bad, now), u"NOW  |  S, from Invalid DateTime to ");
}

TEST_F(ListPrintHostTest, MissingHostStringsLeaveTheirPiecesEmpty) {
    platform::ResourceModule& resources = platform::Resources(AfxGetResourceHandle());
    for (UINT id : {IDS_HOST_AFTER_TIME, IDS_HOST_FROM, IDS_HOST_TO})
        resources.RemoveString(id);
    CListPrintDoc dated(&listFrame->m_list, u"S", 0, 1, COleDateTime(2024, 1, 2, 0, 0, 0),
                        COleDateTime(2024, 1, 3, 0, 0, 0));
    CString text = CListPrintView::HeaderText(dated, u"T");
    resources.SetString(IDS_HOST_AFTER_TIME, u"  |  ");
    resources.SetString(IDS_HOST_FROM, u", from ");
    resources.SetString(IDS_HOST_TO, u" to ");
    EXPECT_EQ(text, u"TS2024-01-022024-01-03");
}
