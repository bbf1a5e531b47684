// CDocument: its views, title and closing, and the command routing on to its
// template.
#include <afxwin.h>

#include <algorithm>
#include <vector>

IMPLEMENT_DYNAMIC(CDocument, CCmdTarget)

BEGIN_MESSAGE_MAP(CDocument, CCmdTarget)
ON_COMMAND(ID_FILE_CLOSE, OnFileClose)
ON_COMMAND(ID_FILE_SAVE, OnFileSave)
ON_COMMAND(ID_FILE_SAVE_AS, OnFileSaveAs)
END_MESSAGE_MAP()

namespace {

bool Holds(CDocTemplate* docTemplate, const CDocument* document) {
    for (POSITION pos = docTemplate->GetFirstDocPosition(); pos;)
        if (docTemplate->GetNextDoc(pos) == document)
            return true;
    return false;
}

int Occurrences(CDocTemplate* docTemplate, const CDocument* document) {
    int count = 0;
    for (POSITION pos = docTemplate->GetFirstDocPosition(); pos;)
        count += docTemplate->GetNextDoc(pos) == document ? 1 : 0;
    return count;
}

// A document may stand in several templates' lists (or twice in one); none
// may keep it once it is gone.
void LeaveTemplate(CDocTemplate* docTemplate, CDocument* document) {
    for (int n = Occurrences(docTemplate, document); n > 0 && Holds(docTemplate, document); --n)
        docTemplate->RemoveDocument(document);
}

} // namespace

CDocument::CDocument() = default;

CDocument::~CDocument() {
    for (POSITION pos = m_viewList.GetHeadPosition(); pos;)
        static_cast<CView*>(m_viewList.GetNext(pos))->m_pDocument = nullptr;
    if (CWinApp* app = AfxGetApp())
        for (POSITION pos = app->GetFirstDocTemplatePosition(); pos;)
            if (CDocTemplate* docTemplate = app->GetNextDocTemplate(pos))
                LeaveTemplate(docTemplate, this);
    if (m_pDocTemplate)
        LeaveTemplate(m_pDocTemplate, this);
}

void CDocument::SetTitle(LPCTSTR title) {
    m_strTitle = title;
    UpdateFrameCounts();
}

void CDocument::SetPathName(LPCTSTR pathName, BOOL) {
    m_strPathName = pathName;
    const int slash = m_strPathName.ReverseFind(u'/');
    SetTitle(slash < 0 ? m_strPathName : m_strPathName.Mid(slash + 1));
}

void CDocument::AddView(CView* view) {
    m_viewList.AddTail(view);
    view->m_pDocument = this;
    OnChangedViewList();
}

void CDocument::RemoveView(CView* view) {
    if (POSITION pos = m_viewList.Find(view))
        m_viewList.RemoveAt(pos);
    view->m_pDocument = nullptr;
    OnChangedViewList();
}

CView* CDocument::GetNextView(POSITION& pos) const {
    return static_cast<CView*>(m_viewList.GetNext(pos));
}

void CDocument::OnChangedViewList() {
    if (m_bAutoDelete && m_viewList.IsEmpty()) {
        OnCloseDocument();
        return;
    }
    UpdateFrameCounts();
}

void CDocument::UpdateAllViews(CView* sender, LPARAM hint, CObject* hintObject) {
    for (POSITION pos = GetFirstViewPosition(); pos;) {
        CView* view = GetNextView(pos);
        if (view != sender)
            view->OnUpdate(sender, hint, hintObject);
    }
}

void CDocument::UpdateFrameCounts() {
    // The frames that show the document, in the order of their views.
    std::vector<CFrameWnd*> frames;
    for (POSITION pos = GetFirstViewPosition(); pos;) {
        CView* view = GetNextView(pos);
        if (!view->m_hWnd || !view->IsWindowVisible())
            continue;
        CFrameWnd* frame = view->GetParentFrame();
        if (frame && std::find(frames.begin(), frames.end(), frame) == frames.end())
            frames.push_back(frame);
    }
    // A single frame has no number; several are numbered ":1", ":2"...
    for (std::size_t i = 0; i < frames.size(); ++i)
        frames[i]->m_nWindow = frames.size() == 1 ? 0 : static_cast<int>(i + 1);
    for (CFrameWnd* frame : frames)
        frame->OnUpdateFrameTitle(TRUE);
}

void CDocument::DeleteContents() {}

BOOL CDocument::OnNewDocument() {
    DeleteContents();
    m_strPathName.Empty();
    SetModifiedFlag(FALSE);
    return TRUE;
}

void CDocument::OnCloseDocument() {
    // The document stays while its frames go, whatever they do to its views.
    const BOOL autoDelete = m_bAutoDelete;
    m_bAutoDelete = FALSE;
    while (!m_viewList.IsEmpty()) {
        auto* view = static_cast<CView*>(m_viewList.GetHead());
        CFrameWnd* frame = view->GetParentFrame();
        if (frame) {
            PreCloseFrame(frame);
            frame->DestroyWindow();
        } else if (view->m_hWnd) {
            view->DestroyWindow();
        }
        // A view that outlived its window lets go of the document.
        if (!m_viewList.IsEmpty() && m_viewList.GetHead() == view) {
            m_viewList.RemoveHead();
            view->m_pDocument = nullptr;
        }
    }
    m_bAutoDelete = autoDelete;
    DeleteContents();
    if (m_bAutoDelete)
        delete this;
}

BOOL CDocument::CanCloseFrame(CFrameWnd* frame) {
    for (POSITION pos = GetFirstViewPosition(); pos;) {
        CFrameWnd* other = GetNextView(pos)->GetParentFrame();
        if (other && other != frame)
            return TRUE;
    }
    return SaveModified();
}

void CDocument::PreCloseFrame(CFrameWnd*) {}

BOOL CDocument::OnCmdMsg(UINT id, int code, void* extra, void* handlerInfo) {
    if (CCmdTarget::OnCmdMsg(id, code, extra, handlerInfo))
        return TRUE;
    return m_pDocTemplate && m_pDocTemplate->OnCmdMsg(id, code, extra, handlerInfo);
}

void CDocument::OnFileClose() {
    if (!SaveModified())
        return;
    OnCloseDocument();
}

void CDocument::OnFileSave() {
    DoFileSave();
}

void CDocument::OnFileSaveAs() {
    DoSave(nullptr);
}
