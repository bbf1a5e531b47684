// The framework's small helpers the document classes stand on: splitting
// template strings, finding the module that holds a resource, menu objects,
// the list of pointers, and dynamic creation with checked downcasts.
#include "NotesHost.h"

#include <platform/ResourceModule.h>

namespace notes {
namespace {

TEST(ExtractSubString, TakesThePartsBetweenSeparators) {
    CString part = u"stale";
    EXPECT_TRUE(AfxExtractSubString(part, u"\nNote\nNote Files", 0));
    EXPECT_EQ(part, u"");
    EXPECT_TRUE(AfxExtractSubString(part, u"\nNote\nNote Files", 1));
    EXPECT_EQ(part, u"Note");
    EXPECT_TRUE(AfxExtractSubString(part, u"\nNote\nNote Files", 2));
    EXPECT_EQ(part, u"Note Files");
    EXPECT_TRUE(AfxExtractSubString(part, u"a,b", 1, u','));
    EXPECT_EQ(part, u"b");
}

TEST(ExtractSubString, APartBeyondTheLastIsMissingAndEmpty) {
    CString part = u"stale";
    EXPECT_FALSE(AfxExtractSubString(part, u"just a title", 1));
    EXPECT_EQ(part, u"");
    part = u"stale";
    EXPECT_FALSE(AfxExtractSubString(part, u"a\nb", 2));
    EXPECT_EQ(part, u"");
    part = u"stale";
    EXPECT_FALSE(AfxExtractSubString(part, u"a\nb", -1));
    EXPECT_EQ(part, u"");
    // A null text leaves the string as it was.
    part = u"kept";
    EXPECT_FALSE(AfxExtractSubString(part, nullptr, 0));
    EXPECT_EQ(part, u"kept");
    // A trailing separator ends with an empty part.
    EXPECT_TRUE(AfxExtractSubString(part, u"a\n", 1));
    EXPECT_EQ(part, u"");
}

TEST(FindResourceHandle, FindsTheModuleThatHoldsTheResourceOrElseTheCurrentOne) {
    HINSTANCE current = AfxGetResourceHandle();
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDR_NOTETYPE), RT_MENU), current);
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDR_NOTETYPE), RT_ACCELERATOR), current);
    // String IDR_MAINFRAME (100) lies in block 100 / 16 + 1.
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDR_MAINFRAME / 16 + 1), RT_STRING), current);
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(0), RT_STRING), current);
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDR_GHOSTTYPE), RT_MENU), current);
    EXPECT_EQ(LoadMenu(current, MAKEINTRESOURCE(IDR_GHOSTTYPE)), nullptr);
    EXPECT_EQ(LoadAccelerators(current, MAKEINTRESOURCE(IDR_GHOSTTYPE)), nullptr);
    // Loaded accelerators are shared; loaded menus are new each time.
    EXPECT_EQ(LoadAccelerators(current, MAKEINTRESOURCE(IDR_NOTETYPE)),
              LoadAccelerators(current, MAKEINTRESOURCE(IDR_NOTETYPE)));
    HMENU one = LoadMenu(current, MAKEINTRESOURCE(IDR_NOTETYPE));
    HMENU two = LoadMenu(current, MAKEINTRESOURCE(IDR_NOTETYPE));
    EXPECT_NE(one, two);
    EXPECT_EQ(GetMenuItemCount(one), 3);
    DestroyMenu(one);
    DestroyMenu(two);
}

TEST(Menu, AnObjectOwnsItsMenuAndTemporaryObjectsDoNot) {
    HMENU handle = nullptr;
    {
        CMenu menu;
        ASSERT_TRUE(menu.LoadMenu(IDR_NOTETYPE));
        handle = menu.m_hMenu;
        EXPECT_EQ(CMenu::FromHandle(handle), &menu);
        EXPECT_EQ(menu.GetMenuItemCount(), 3u);
        CMenu* edit = menu.GetSubMenu(1);
        ASSERT_NE(edit, nullptr);
        CString text;
        EXPECT_EQ(edit->GetMenuString(ID_EDIT_STAMP, text, MF_BYCOMMAND), 13);
        EXPECT_EQ(text, u"&Stamp\tCtrl+T");
        EXPECT_EQ(edit->EnableMenuItem(ID_EDIT_STAMP, MF_GRAYED), static_cast<UINT>(MF_ENABLED));
        EXPECT_EQ(edit->GetMenuState(ID_EDIT_STAMP, MF_BYCOMMAND), static_cast<UINT>(MF_GRAYED));
        // A temporary object never destroys the menu it wraps.
        EXPECT_FALSE(edit->DestroyMenu());
        EXPECT_TRUE(IsMenu(edit->m_hMenu));
    }
    EXPECT_FALSE(IsMenu(handle));
    EXPECT_EQ(CMenu::FromHandle(handle), nullptr);

    CMenu detached;
    ASSERT_TRUE(detached.CreatePopupMenu());
    HMENU kept = detached.Detach();
    EXPECT_TRUE(IsMenu(kept));
    EXPECT_TRUE(DestroyMenu(kept));
    CMenu missing;
    EXPECT_FALSE(missing.LoadMenu(IDR_GHOSTTYPE));
}

TEST(PtrList, PositionsStayValidWhileOtherNodesGo) {
    CPtrList list;
    int a = 0, b = 0, c = 0;
    list.AddTail(&a);
    POSITION pb = list.AddTail(&b);
    list.AddTail(&c);
    list.AddHead(&c);
    EXPECT_EQ(list.GetCount(), 4);
    EXPECT_EQ(list.Find(&c), list.GetHeadPosition());
    EXPECT_EQ(list.Find(&c, list.GetHeadPosition()), list.GetTailPosition());
    list.RemoveAt(list.GetHeadPosition());
    POSITION pos = pb;
    EXPECT_EQ(list.GetNext(pos), &b);
    EXPECT_EQ(list.GetNext(pos), &c);
    EXPECT_EQ(pos, nullptr);
    EXPECT_EQ(list.FindIndex(1), pb);
    EXPECT_EQ(list.FindIndex(3), nullptr);
    list.InsertBefore(pb, &c);
    EXPECT_EQ(list.GetAt(list.FindIndex(1)), &c);
    EXPECT_EQ(list.RemoveTail(), &c);
    EXPECT_EQ(list.RemoveHead(), &a);
    list.RemoveAll();
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_THROW(
        {
            try {
                list.RemoveHead();
            } catch (CInvalidArgException* e) {
                e->Delete();
                throw 1;
            }
        },
        int);
}

TEST(DynamicCreation, MakesDocumentsViewsAndFramesByClassWithCheckedDowncasts) {
    CObject* doc = RUNTIME_CLASS(CNoteDoc)->CreateObject();
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CDocument, doc), doc);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CView, doc), nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CView, nullptr), nullptr);
    EXPECT_TRUE(doc->IsKindOf(RUNTIME_CLASS(CCmdTarget)));
    delete doc;
    EXPECT_EQ(CRuntimeClass::FromName("CNoteView"), RUNTIME_CLASS(CNoteView));
    EXPECT_TRUE(RUNTIME_CLASS(CMDIChildWnd)->IsDerivedFrom(RUNTIME_CLASS(CFrameWnd)));
    EXPECT_TRUE(RUNTIME_CLASS(CFrameWnd)->IsDerivedFrom(RUNTIME_CLASS(CWnd)));
    // Views and documents are not creatable without a class of their own.
    EXPECT_EQ(RUNTIME_CLASS(CView)->CreateObject(), nullptr);
    EXPECT_EQ(RUNTIME_CLASS(CDocument)->CreateObject(), nullptr);
}

} // namespace
} // namespace notes
