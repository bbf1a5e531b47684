// A top-level parent with a report list of a given size, recording the
// notifications the list sends.
#pragma once

#include <afxcmn.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace listview_test {

constexpr UINT kListId = 300;

struct Notice {
    UINT code;
    int item;
    int subItem;
    UINT newState;
    UINT oldState;
    UINT changed;
};

class Parent : public CWnd {
public:
    std::vector<Notice> notices;
    std::vector<int> columnClicks; // through the parent's ON_NOTIFY map
    std::vector<UINT> headerCodes;
    bool deleteColumnOnTrack = false; // removes the dragged column mid-drag

    void OnColumnClick(NMHDR* header, LRESULT* result) {
        columnClicks.push_back(reinterpret_cast<NMLISTVIEW*>(header)->iSubItem);
        *result = 0;
    }

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        auto* header = reinterpret_cast<NMHDR*>(lParam);
        if (header->code >= HDN_TRACKW && header->code <= HDN_ITEMCHANGINGW) {
            headerCodes.push_back(header->code);
            if (header->code == HDN_TRACKW && deleteColumnOnTrack) {
                deleteColumnOnTrack = false;
                ::SendMessage(::GetParent(header->hwndFrom), LVM_DELETECOLUMN,
                              static_cast<WPARAM>(reinterpret_cast<NMHEADER*>(header)->iItem), 0);
            }
        } else if (header->code == LVN_ITEMCHANGED || header->code == NM_CLICK ||
                   header->code == LVN_COLUMNCLICK || header->code == NM_DBLCLK) {
            auto* nm = reinterpret_cast<NMLISTVIEW*>(lParam);
            notices.push_back(Notice{header->code, nm->iItem, nm->iSubItem, nm->uNewState,
                                     nm->uOldState, nm->uChanged});
        }
        return CWnd::OnNotify(wParam, lParam, result);
    }
    DECLARE_MESSAGE_MAP()
};

class ListTest : public ::testing::Test {
protected:
    void TearDown() override {
        platform::automation::Reset();
        if (list.m_hWnd)
            list.DestroyWindow();
        if (parent.m_hWnd)
            parent.DestroyWindow();
        platform::PumpMessages();
    }
    void Create(DWORD extraStyle = 0, int columns = 3, int rows = 0) {
        ASSERT_TRUE(parent.CreateEx(0, nullptr, u"lists", WS_OVERLAPPED | WS_VISIBLE,
                                    CRect(0, 0, 420, 300), nullptr, 0));
        ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | extraStyle,
                                CRect(10, 10, 410, 290), &parent, kListId));
        for (int c = 0; c < columns; ++c)
            list.InsertColumn(c, (u"Col " + std::u16string(1, u'A' + c)).c_str(), LVCFMT_LEFT, 100);
        for (int r = 0; r < rows; ++r) {
            list.InsertItem(
                r, (u"r" + std::u16string(1, static_cast<char16_t>(u'0' + r % 10))).c_str());
            list.SetItemData(r, static_cast<DWORD_PTR>(r));
        }
        parent.notices.clear();
        ::SetActiveWindow(parent.m_hWnd);
    }
    // Runs the simulated user's actions, pumping after each.
    static void RunUser() {
        platform::PumpMessages();
        while (platform::automation::RunNext())
            platform::PumpMessages();
    }
    std::vector<Notice> Changes() const {
        std::vector<Notice> out;
        for (const Notice& n : parent.notices)
            if (n.code == LVN_ITEMCHANGED)
                out.push_back(n);
        return out;
    }

    Parent parent;
    CListCtrl list;
};

} // namespace listview_test
