// CWinApp: the one application object, its names and its profile.
#include <afxwin.h>
#include <tchar.h>

#include <climits>
#include <cstdlib>
#include <unistd.h>

namespace {

CWinApp* g_app = nullptr;

// The framework reads at most this many characters of a profile string, less
// the terminator.
constexpr DWORD kProfileStringBuffer = 4096;

void Replace(LPCTSTR& name, LPCTSTR value) {
    std::free(const_cast<WCHAR*>(name));
    name = _wcsdup(value);
}

CString ExecutableName() {
    char path[PATH_MAX];
    const ssize_t n = ::readlink("/proc/self/exe", path, sizeof path - 1);
    if (n <= 0)
        return u"app";
    const std::string_view full(path, static_cast<std::size_t>(n));
    return platform::FromUtf8(full.substr(full.rfind('/') + 1));
}

// A name as one file name: a '/' would start a directory.
CString FileNamePart(LPCTSTR name) {
    CString part(name);
    part.Replace(u'/', u'_');
    return part;
}

} // namespace

CWinApp* AfxGetApp() {
    return g_app;
}

CWinApp::CWinApp(LPCTSTR appName) {
    if (appName)
        m_pszAppName = _wcsdup(appName);
    g_app = this;
}

CWinApp::~CWinApp() {
    delete m_pDocManager;
    for (LPCTSTR* name : {&m_pszAppName, &m_pszExeName, &m_pszProfileName, &m_pszRegistryKey})
        Replace(*name, nullptr);
    if (g_app == this)
        g_app = nullptr;
}

void CWinApp::CompleteNames() {
    if (!m_pszExeName)
        Replace(m_pszExeName, ExecutableName());
    if (!m_pszAppName) {
        CString title;
        if (!title.LoadString(AFX_IDS_APP_TITLE))
            title = m_pszExeName;
        Replace(m_pszAppName, title);
    }
    if (!m_pszProfileName)
        Replace(m_pszProfileName, FileNamePart(m_pszAppName) + u".ini");
}

void CWinApp::SetRegistryKey(LPCTSTR company) {
    if (!company)
        AfxThrowInvalidArgException();
    CompleteNames();
    Replace(m_pszRegistryKey, company);
    Replace(m_pszProfileName, m_pszAppName);
}

void CWinApp::SetRegistryKey(UINT companyId) {
    CString company;
    if (!company.LoadString(companyId))
        AfxThrowInvalidArgException();
    SetRegistryKey(company);
}

CString CWinApp::ProfileFile() {
    CompleteNames();
    if (m_pszProfileName[0] == u'/')
        return m_pszProfileName;
    if (m_pszRegistryKey)
        return FileNamePart(m_pszRegistryKey) + u"/" + FileNamePart(m_pszProfileName) + u".ini";
    return FileNamePart(m_pszProfileName);
}

UINT CWinApp::GetProfileInt(LPCTSTR section, LPCTSTR entry, int nDefault) {
    return ::GetPrivateProfileIntW(section, entry, nDefault, ProfileFile());
}

BOOL CWinApp::WriteProfileInt(LPCTSTR section, LPCTSTR entry, int value) {
    CString text;
    text.Format(u"%d", value);
    return ::WritePrivateProfileStringW(section, entry, text, ProfileFile());
}

CString CWinApp::GetProfileString(LPCTSTR section, LPCTSTR entry, LPCTSTR defaultValue) {
    WCHAR buffer[kProfileStringBuffer];
    ::GetPrivateProfileStringW(section, entry, defaultValue ? defaultValue : u"", buffer,
                               kProfileStringBuffer, ProfileFile());
    return CString(buffer);
}

BOOL CWinApp::WriteProfileString(LPCTSTR section, LPCTSTR entry, LPCTSTR value) {
    return ::WritePrivateProfileStringW(section, entry, value, ProfileFile());
}

BOOL CWinApp::GetProfileBinary(LPCTSTR section, LPCTSTR entry, LPBYTE* data, UINT* bytes) {
    if (!data || !bytes) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    *data = nullptr;
    *bytes = 0;
    const CString text = GetProfileString(section, entry, nullptr);
    if (text.IsEmpty())
        return FALSE;
    // An odd last letter is ignored, and letters outside 'A'..'P' are taken as
    // they come: the stored text is trusted, as the original trusts it.
    const UINT count = static_cast<UINT>(text.GetLength()) / 2;
    *data = new BYTE[count];
    const WCHAR* letters = text.GetString();
    for (UINT i = 0; i < count; ++i) {
        const unsigned low = static_cast<unsigned>(letters[2 * i]) - u'A';
        const unsigned high = static_cast<unsigned>(letters[2 * i + 1]) - u'A';
        (*data)[i] = static_cast<BYTE>((high << 4) + low);
    }
    *bytes = count;
    return TRUE;
}

BOOL CWinApp::WriteProfileBinary(LPCTSTR section, LPCTSTR entry, LPBYTE data, UINT bytes) {
    if ((!data && bytes > 0) || bytes > INT_MAX / 2) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    CString text;
    LPWSTR letters = text.GetBufferSetLength(static_cast<int>(bytes * 2));
    for (UINT i = 0; i < bytes; ++i) {
        letters[2 * i] = static_cast<WCHAR>(u'A' + (data[i] & 0x0F));
        letters[2 * i + 1] = static_cast<WCHAR>(u'A' + (data[i] >> 4));
    }
    text.ReleaseBuffer(static_cast<int>(bytes * 2));
    return WriteProfileString(section, entry, text);
}
