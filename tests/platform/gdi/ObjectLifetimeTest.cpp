// GDI objects: selection returns what was selected before, deletion waits for
// deselection, stale handles fail cleanly and the live counts balance.
#include "support/Pixels.h"

#include <platform/GdiJournal.h>
#include <platform/GdiObjects.h>

#include <gtest/gtest.h>

TEST(GdiObjects, SelectionReturnsThePreviousObjectAndCountsBalance) {
    platform::GdiCounts before = platform::LiveGdiObjects();
    {
        CDC dc;
        ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
        CBitmap bitmap;
        ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&dc, 4, 4));
        CBitmap* defaultBitmap = dc.SelectObject(&bitmap);
        ASSERT_NE(defaultBitmap, nullptr); // the 1 x 1 default, to be put back
        CPen pen(PS_SOLID, 1, RGB(1, 2, 3));
        CPen* stockPen = dc.SelectObject(&pen);
        EXPECT_EQ(stockPen->GetSafeHandle(), ::GetStockObject(BLACK_PEN));
        EXPECT_EQ(dc.GetCurrentPen(), &pen);
        EXPECT_EQ(dc.SelectObject(stockPen), &pen);
        EXPECT_EQ(dc.SelectObject(defaultBitmap), &bitmap);
        platform::GdiCounts during = platform::LiveGdiObjects();
        EXPECT_EQ(during.pens, before.pens + 1);
        EXPECT_EQ(during.bitmaps, before.bitmaps + 1);
        EXPECT_EQ(during.dcs, before.dcs + 1);
    }
    EXPECT_EQ(platform::LiveGdiObjects(), before) << platform::ToString(platform::LiveGdiObjects());
}

TEST(GdiObjects, DeletingASelectedObjectWaitsUntilItIsDeselected) {
    platform::GdiCounts before = platform::LiveGdiObjects();
    HDC dc = ::CreateCompatibleDC(nullptr);
    HBRUSH brush = ::CreateSolidBrush(RGB(9, 9, 9));
    HGDIOBJ old = ::SelectObject(dc, brush);
    EXPECT_TRUE(::DeleteObject(brush));
    EXPECT_EQ(::GetObjectType(brush), static_cast<DWORD>(OBJ_BRUSH)); // still in use
    EXPECT_EQ(::SelectObject(dc, brush), nullptr); // but cannot be selected again
    ::SelectObject(dc, old);
    EXPECT_EQ(::GetObjectType(brush), 0u); // gone now
    ::DeleteDC(dc);
    EXPECT_EQ(platform::LiveGdiObjects(), before);
}

TEST(GdiObjects, StaleAndForeignHandlesFailWithoutHarm) {
    HPEN pen = ::CreatePen(PS_SOLID, 1, 0);
    ASSERT_TRUE(::DeleteObject(pen));
    EXPECT_FALSE(::DeleteObject(pen));
    HDC dc = ::CreateCompatibleDC(nullptr);
    EXPECT_EQ(::SelectObject(dc, pen), nullptr);
    EXPECT_EQ(::SelectObject(dc, reinterpret_cast<HGDIOBJ>(0x1234)), nullptr);
    EXPECT_FALSE(::TextOutW(reinterpret_cast<HDC>(pen), 0, 0, u"x", 1));
    EXPECT_EQ(::SetTextColor(reinterpret_cast<HDC>(0x10), 0), CLR_INVALID);
    EXPECT_FALSE(::Polyline(dc, nullptr, 3));
    EXPECT_FALSE(::TextOutW(dc, 0, 0, nullptr, 2));
    EXPECT_TRUE(::DeleteObject(::GetStockObject(BLACK_PEN))); // a harmless no-op
    EXPECT_EQ(::GetObjectType(::GetStockObject(BLACK_PEN)), static_cast<DWORD>(OBJ_PEN));
    EXPECT_EQ(::CreateCompatibleBitmap(dc, 100000, 100000), nullptr);
    EXPECT_EQ(CPen::FromHandle(pen), nullptr);
    ::DeleteDC(dc);
}

TEST(GdiObjects, TemporaryWrappersLastUntilTheHandleIsDeleted) {
    HBRUSH brush = ::CreateSolidBrush(RGB(1, 1, 1));
    CBrush* wrapper = CBrush::FromHandle(brush);
    ASSERT_NE(wrapper, nullptr);
    EXPECT_EQ(CBrush::FromHandle(brush), wrapper);
    EXPECT_EQ(wrapper->GetSafeHandle(), brush);
    ::DeleteObject(brush); // frees the wrapper too; AddressSanitizer checks it
    CBrush owned(RGB(2, 2, 2));
    EXPECT_EQ(CBrush::FromHandle(owned), &owned);
    LOGBRUSH lb{};
    EXPECT_EQ(owned.GetObject(sizeof(lb), &lb), static_cast<int>(sizeof(lb)));
    EXPECT_EQ(lb.lbColor, RGB(2, 2, 2));
}

TEST(GdiObjects, HandlesUsedJustBeforeTheirDeletionAreGoneAfterIt) {
    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    // More handles than any table of recent lookups holds.
    for (int i = 0; i < 300; ++i) {
        HPEN handle = nullptr;
        {
            CPen pen(PS_SOLID, 1, RGB(i % 256, 0, 0));
            handle = static_cast<HPEN>(pen.GetSafeHandle());
            CPen* stock = dc.SelectObject(&pen);
            EXPECT_EQ(CPen::FromHandle(handle), &pen);
            EXPECT_EQ(dc.SelectObject(stock), &pen);
        }
        EXPECT_EQ(::GetObjectType(handle), 0u);
        EXPECT_EQ(::SelectObject(dc.GetSafeHdc(), handle), nullptr);
        EXPECT_EQ(CPen::FromHandle(handle), nullptr);
    }
    // An owner that lets go of its handle: FromHandle then wraps it anew.
    CBrush owned(RGB(3, 3, 3));
    HBRUSH handle = static_cast<HBRUSH>(owned.GetSafeHandle());
    EXPECT_EQ(CBrush::FromHandle(handle), &owned);
    owned.Detach();
    CBrush* wrapper = CBrush::FromHandle(handle);
    ASSERT_NE(wrapper, nullptr);
    EXPECT_NE(wrapper, &owned);
    EXPECT_EQ(CBrush::FromHandle(handle), wrapper);
    ::DeleteObject(handle);
    EXPECT_EQ(CBrush::FromHandle(handle), nullptr);
}

TEST(GdiObjects, JournalRecordsValuesAndTheStateUsed) {
    testing_support::Canvas canvas(40, 40, RGB(0, 0, 0));
    CDC& dc = canvas.dc();
    platform::GdiJournal journal;
    platform::SetJournal(dc, &journal);
    LOGBRUSH lb{BS_SOLID, RGB(1, 2, 3), 0};
    {
        CPen pen;
        pen.CreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT, 2, &lb);
        CPen* old = dc.SelectObject(&pen);
        POINT points[] = {{1, 1}, {5, 1}, {5, 9}};
        dc.Polyline(points, 3);
        dc.SelectObject(old);
    }
    dc.SetBkMode(TRANSPARENT);
    dc.TextOut(3, 4, CString(u"ab"));
    platform::SetJournal(dc, nullptr);
    dc.TextOut(0, 0, CString(u"unrecorded"));

    auto lines = journal.Ops("Polyline");
    ASSERT_EQ(lines.size(), 1u) << journal.Dump();
    EXPECT_EQ(lines[0].penStyle, static_cast<DWORD>(PS_GEOMETRIC | PS_ENDCAP_FLAT));
    EXPECT_EQ(lines[0].penWidth, 2);
    EXPECT_EQ(lines[0].penColor, RGB(1, 2, 3));
    ASSERT_EQ(lines[0].points.size(), 3u);
    EXPECT_EQ(lines[0].points[2].y, 9);
    auto texts = journal.Ops("TextOut");
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(texts[0].text, u"ab");
    EXPECT_EQ(texts[0].bkMode, TRANSPARENT);
    EXPECT_EQ(texts[0].args[0], 3);
    EXPECT_EQ(journal.Count("SetBkMode"), 1u);
}
