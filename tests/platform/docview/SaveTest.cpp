// The framework's save prompt: closing a modified document's last frame asks
// "Save changes to <name>?" in a real message box that the simulated user
// answers; Yes saves (asking for a file name when there is none), No gives the
// changes up, Cancel keeps the document open.
#include "NotesHost.h"

#include "support/Shown.h"

#include <platform/Automation.h>

#include <fstream>

namespace notes {
namespace {

namespace automation = platform::automation;

using SaveTest = NotesHostTest;

// Reads the message box's text when it shows, then clicks answer.
void Answer(int answer, std::u16string* text) {
    automation::Do([text] { *text = testing_support::MessageBoxText(); });
    automation::AnswerMessageBox(answer);
}

std::string Contents(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

TEST_F(SaveTest, AnUnmodifiedDocumentClosesWithoutAsking) {
    CNoteDoc* doc = OpenNote();
    FrameOf(doc)->SendMessage(WM_CLOSE);
    EXPECT_EQ(g_liveDocuments, 0);
    EXPECT_EQ(automation::Record().size(), 0u);
}

TEST_F(SaveTest, CancelKeepsTheDocumentAndItsFrame) {
    CNoteDoc* doc = OpenNote();
    doc->SetModifiedFlag();
    std::u16string asked;
    Answer(IDCANCEL, &asked);
    FrameOf(doc)->SendMessage(WM_CLOSE);
    EXPECT_EQ(asked, u"Save changes to Note1?");
    EXPECT_EQ(g_liveDocuments, 1);
    EXPECT_NE(FrameOf(doc), nullptr);
    EXPECT_TRUE(doc->IsModified());
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(SaveTest, NoGivesTheChangesUpAndCloses) {
    CNoteDoc* doc = OpenNote();
    doc->SetModifiedFlag();
    std::u16string asked;
    Answer(IDNO, &asked);
    FrameOf(doc)->SendMessage(WM_CLOSE);
    EXPECT_EQ(asked, u"Save changes to Note1?");
    EXPECT_EQ(g_liveDocuments, 0);
}

TEST_F(SaveTest, YesSavesADocumentWithAPathThereAndCloses) {
    const std::filesystem::path path = dir / "list.note";
    CNoteDoc* doc = OpenNote();
    doc->m_text = u"first";
    ASSERT_TRUE(doc->DoSave(path.u16string().c_str()));
    EXPECT_EQ(doc->GetPathName(), path.u16string().c_str());
    doc->m_text = u"second";
    doc->SetModifiedFlag();
    std::u16string asked;
    Answer(IDYES, &asked);
    FrameOf(doc)->SendMessage(WM_CLOSE);
    // The prompt names the file, not its folder.
    EXPECT_EQ(asked, u"Save changes to list.note?");
    EXPECT_EQ(g_liveDocuments, 0);
    // The archive holds the text as the framework stores a string.
    const std::string bytes = Contents(path);
    EXPECT_EQ(bytes, std::string("\xFF\xFE\xFF\x06s\0e\0c\0o\0n\0d\0", 16));
}

TEST_F(SaveTest, YesOnANewDocumentAsksForAFileName) {
    CNoteDoc* doc = OpenNote();
    doc->m_text = u"typed";
    doc->SetModifiedFlag();
    std::u16string asked;
    Answer(IDYES, &asked);
    const std::filesystem::path path = dir / "typed.note";
    automation::AnswerFileDialog(path.u16string());
    FrameOf(doc)->SendMessage(WM_CLOSE);
    EXPECT_EQ(g_liveDocuments, 0);
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(SaveTest, CancellingTheFileNameKeepsTheDocumentOpen) {
    CNoteDoc* doc = OpenNote();
    doc->SetModifiedFlag();
    std::u16string asked;
    Answer(IDYES, &asked);
    // Nobody names a file: the dialog is cancelled as the user would.
    FrameOf(doc)->SendMessage(WM_CLOSE);
    EXPECT_EQ(g_liveDocuments, 1);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 1);
}

TEST_F(SaveTest, ClosingTheMainFrameAsksForEachModifiedDocumentAndCancelStopsIt) {
    CNoteDoc* a = OpenNote();
    CNoteDoc* b = OpenNote();
    a->SetModifiedFlag();
    b->SetModifiedFlag();
    std::u16string first, second;
    Answer(IDNO, &first);
    Answer(IDCANCEL, &second);
    main->SendMessage(WM_CLOSE);
    EXPECT_EQ(first, u"Save changes to Note1?");
    EXPECT_EQ(second, u"Save changes to Note2?");
    // Nothing closed: the question comes before any document goes.
    EXPECT_EQ(g_liveDocuments, 2);
    EXPECT_EQ(app->m_pMainWnd, main);
    EXPECT_TRUE(main->IsWindowVisible());
}

TEST_F(SaveTest, TheApplicationClosesAllDocumentsWithoutAsking) {
    OpenNote()->SetModifiedFlag();
    OpenNote();
    app->CloseAllDocuments(FALSE);
    EXPECT_EQ(g_liveDocuments, 0);
    EXPECT_EQ(automation::Record().size(), 0u);
    EXPECT_EQ(main->MDIGetActive(), nullptr);
}

TEST_F(SaveTest, TheCloseCommandReachesTheActiveDocument) {
    CNoteDoc* a = OpenNote();
    CNoteDoc* b = OpenNote();
    b->SetModifiedFlag();
    automation::PickMenuItem(ID_FILE_CLOSE);
    std::u16string asked;
    Answer(IDNO, &asked);
    Run();
    EXPECT_EQ(asked, u"Save changes to Note2?");
    EXPECT_EQ(g_liveDocuments, 1);
    EXPECT_EQ(Active(), FrameOf(a));
}

} // namespace
} // namespace notes
