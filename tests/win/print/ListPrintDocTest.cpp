// The list print document: what each constructor keeps, its title from the
// host's strings, an archive it leaves alone, and the run-time classes of
// the list printing trio.
#include "ListPrintHost.h"

#include <platform/ResourceModule.h>

using namespace listprint_host;

namespace {

// A document made by the framework, as dynamic creation makes it.
std::unique_ptr<CListPrintDoc> CreatedByName() {
    CObject* object = CRuntimeClass::CreateObject("CListPrintDoc");
    return std::unique_ptr<CListPrintDoc>(DYNAMIC_DOWNCAST(CListPrintDoc, object));
}

} // namespace

TEST_F(ListPrintHostTest, TheShortConstructorGivesPagesNoHeaderLine) {
    CListPrintDoc doc(&listFrame->m_list, ID_FILE_PRINT_DIRECT);
    EXPECT_EQ(doc.GetListCtrl(), &listFrame->m_list);
    EXPECT_EQ(doc.GetCommandId(), static_cast<UINT>(ID_FILE_PRINT_DIRECT));
    EXPECT_EQ(doc.GetSystemName(), u"");
    EXPECT_EQ(doc.GetIncludeDate(), 0);
    EXPECT_EQ(doc.GetFromDate(), COleDateTime());
    EXPECT_EQ(doc.GetToDate().m_dt, 0.0);
    EXPECT_EQ(doc.GetToDate().GetStatus(), COleDateTime::valid);
    EXPECT_EQ(doc.GetTitle(), u"List Printout");
}

TEST_F(ListPrintHostTest, TheFullConstructorKeepsEveryValue) {
    COleDateTime from(2024, 1, 2, 0, 0, 0);
    COleDateTime to(2024, 2, 3, 0, 0, 0);
    CListPrintDoc doc(&listFrame->m_list, u"North Plant", ID_FILE_PRINT_PREVIEW, 0, from, to);
    EXPECT_EQ(doc.GetSystemName(), u"North Plant");
    EXPECT_EQ(doc.GetCommandId(), static_cast<UINT>(ID_FILE_PRINT_PREVIEW));
    // The dates are kept even when they are not to be shown.
    EXPECT_EQ(doc.GetIncludeDate(), 0);
    EXPECT_EQ(doc.GetFromDate(), from);
    EXPECT_EQ(doc.GetToDate(), to);
    EXPECT_EQ(doc.GetTitle(), u"List Printout");
}

TEST_F(ListPrintHostTest, AMissingTitleStringLeavesTheTitleEmpty) {
    platform::ResourceModule& resources = platform::Resources(AfxGetResourceHandle());
    resources.RemoveString(IDS_HOST_PRINT_TITLE);
    CListPrintDoc doc(&listFrame->m_list, 0);
    resources.SetString(IDS_HOST_PRINT_TITLE, u"List Printout");
    EXPECT_EQ(doc.GetTitle(), u"");
}

TEST_F(ListPrintHostTest, ADocumentMadeByTheFrameworkHasNothingToPrint) {
    auto doc = CreatedByName();
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(doc->GetListCtrl(), nullptr);
    EXPECT_EQ(doc->GetCommandId(), 0u);
    EXPECT_EQ(doc->GetIncludeDate(), 0);
    EXPECT_EQ(doc->GetTitle(), u"");
    EXPECT_EQ(doc->GetSystemName(), u"");
    EXPECT_TRUE(doc->OnNewDocument());
}

TEST_F(ListPrintHostTest, SerializeLeavesBothKindsOfArchiveUntouched) {
    CListPrintDoc doc(&listFrame->m_list, u"Plant", 0, 1, COleDateTime(), COleDateTime());
    CMemFile stored;
    {
        CArchive ar(&stored, CArchive::store);
        doc.Serialize(ar);
        ar.Close();
    }
    EXPECT_EQ(stored.GetLength(), 0u);

    BYTE bytes[4] = {1, 2, 3, 4};
    CMemFile source(bytes, sizeof bytes);
    CArchive ar(&source, CArchive::load);
    doc.Serialize(ar);
    EXPECT_EQ(ar.GetRemaining(), 4u);
    BYTE first = 0;
    ar >> first;
    EXPECT_EQ(first, 1);
    EXPECT_EQ(doc.GetSystemName(), u"Plant");
}

TEST(ListPrintClasses, AreCreatableByNameWithoutASchema) {
    struct Expected {
        const char* name;
        CRuntimeClass* base;
    };
    const Expected classes[] = {{"CListPrintDoc", RUNTIME_CLASS(CDocument)},
                                {"CListPrintView", RUNTIME_CLASS(CGXGridView)},
                                {"CPrintFrame", RUNTIME_CLASS(CMDIChildWnd)},
                                {"CListPrintFrame", RUNTIME_CLASS(CPrintFrame)}};
    for (const Expected& e : classes) {
        CRuntimeClass* rc = CRuntimeClass::FromName(e.name);
        ASSERT_NE(rc, nullptr) << e.name;
        EXPECT_STREQ(rc->m_lpszClassName, e.name);
        EXPECT_EQ(rc->m_wSchema, 0xFFFFu) << e.name;
        EXPECT_NE(rc->m_pfnCreateObject, nullptr) << e.name;
        EXPECT_TRUE(rc->IsDerivedFrom(e.base)) << e.name;
    }
    EXPECT_TRUE(RUNTIME_CLASS(CGXGridView)->IsDerivedFrom(RUNTIME_CLASS(CView)));
    EXPECT_STREQ(RUNTIME_CLASS(CGXGridView)->m_lpszClassName, "CGXGridView");
}
