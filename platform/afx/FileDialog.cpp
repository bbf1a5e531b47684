// CFileDialog: the framework's face of the platform's file dialog.
#include <afxwin.h>

#include <algorithm>

namespace {

CString NameOf(const CString& path) {
    const std::u16string& text = path.Str();
    std::size_t slash = text.rfind(u'/');
    return CString(slash == std::u16string::npos ? text.c_str() : text.c_str() + slash + 1);
}

} // namespace

CFileDialog::CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt, LPCTSTR lpszFileName,
                         DWORD dwFlags, LPCTSTR lpszFilter, CWnd* pParentWnd, DWORD dwSize,
                         BOOL /*bVistaStyle: one look here*/)
    : CDialog(static_cast<UINT>(0), pParentWnd), m_bOpenFileDialog(bOpenFileDialog) {
    m_ofn.lStructSize = dwSize ? dwSize : sizeof(OPENFILENAME);
    m_ofn.lpstrFile = m_szFileName;
    m_ofn.nMaxFile = static_cast<DWORD>(std::size(m_szFileName));
    m_ofn.lpstrFileTitle = m_szFileTitle;
    m_ofn.nMaxFileTitle = static_cast<DWORD>(std::size(m_szFileTitle));
    m_ofn.lpstrDefExt = lpszDefExt;
    m_ofn.Flags = dwFlags | OFN_EXPLORER;
    if (lpszFileName) {
        std::u16string_view name(lpszFileName);
        std::size_t count = std::min(name.size(), std::size(m_szFileName) - 1);
        std::copy_n(name.begin(), count, m_szFileName);
        m_szFileName[count] = u'\0';
    }
    if (lpszFilter) {
        // '|' separates the strings; two NULs end the list even when the
        // host left out the closing "||".
        m_strFilter = lpszFilter;
        m_strFilter.Replace(u'|', u'\0');
        m_strFilter += CString(u'\0', 2);
        m_ofn.lpstrFilter = m_strFilter.GetString();
    }
}

INT_PTR CFileDialog::DoModal() {
    m_ofn.hwndOwner = PreModal();
    BOOL chosen = m_bOpenFileDialog ? ::GetOpenFileName(&m_ofn) : ::GetSaveFileName(&m_ofn);
    return chosen ? IDOK : IDCANCEL;
}

CString CFileDialog::GetPathName() const {
    return CString(m_ofn.lpstrFile ? m_ofn.lpstrFile : u"");
}

CString CFileDialog::GetFileName() const {
    return NameOf(GetPathName());
}

CString CFileDialog::GetFileExt() const {
    CString name = GetFileName();
    std::size_t dot = name.Str().rfind(u'.');
    return dot == std::u16string::npos || dot == 0 ? CString()
                                                   : CString(name.GetString() + dot + 1);
}

CString CFileDialog::GetFileTitle() const {
    CString name = GetFileName();
    std::size_t dot = name.Str().rfind(u'.');
    return dot == std::u16string::npos || dot == 0 ? name
                                                   : CString(name.Str().substr(0, dot).c_str());
}

CString CFileDialog::GetFolderPath() const {
    CString full = GetPathName();
    const std::u16string& path = full.Str();
    std::size_t slash = path.rfind(u'/');
    if (slash == std::u16string::npos)
        return CString();
    return CString(slash == 0 ? u"/" : path.substr(0, slash).c_str());
}
