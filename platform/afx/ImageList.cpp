// The framework's image list object.
#include <afxcmn.h>

CImageList::~CImageList() {
    DeleteImageList();
}

BOOL CImageList::Create(int cx, int cy, UINT flags, int initial, int grow) {
    if (m_hImageList)
        return FALSE;
    return Attach(ImageList_Create(cx, cy, flags, initial, grow));
}

BOOL CImageList::Attach(HIMAGELIST list) {
    if (!list || m_hImageList)
        return FALSE;
    m_hImageList = list;
    return TRUE;
}

HIMAGELIST CImageList::Detach() {
    HIMAGELIST list = m_hImageList;
    m_hImageList = nullptr;
    return list;
}

BOOL CImageList::DeleteImageList() {
    if (!m_hImageList)
        return FALSE;
    return ImageList_Destroy(Detach());
}

int CImageList::GetImageCount() const {
    return ImageList_GetImageCount(m_hImageList);
}

int CImageList::Add(HICON icon) {
    return ImageList_AddIcon(m_hImageList, icon);
}

BOOL CImageList::Draw(CDC* dc, int image, POINT point, UINT style) {
    if (!dc)
        return FALSE;
    return ImageList_Draw(m_hImageList, image, dc->GetSafeHdc(), point.x, point.y, style);
}

HICON CImageList::ExtractIcon(int image) {
    return ImageList_GetIcon(m_hImageList, image, 0);
}
