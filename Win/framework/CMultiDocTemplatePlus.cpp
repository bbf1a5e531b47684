#include "Win/framework/CMultiDocTemplatePlus.h"

CMultiDocTemplatePlus::CMultiDocTemplatePlus(UINT nIDResource, CRuntimeClass* pDocClass,
                                             CRuntimeClass* pFrameClass, CRuntimeClass* pViewClass)
    : CMultiDocTemplate(nIDResource, pDocClass, pFrameClass, pViewClass) {}

CMultiDocTemplatePlus::~CMultiDocTemplatePlus() = default;

void CMultiDocTemplatePlus::LoadTemplate() {
    // Not CMultiDocTemplate's: the template's own menu and keys are not wanted.
    CDocTemplate::LoadTemplate();
    if (m_hMenuShared)
        return;
    LPCTSTR name = MAKEINTRESOURCE(IDR_SHARED_MENU);
    HINSTANCE module = AfxFindResourceHandle(name, RT_MENU);
    m_hMenuShared = ::LoadMenu(module, name);
    m_hAccelTable = ::LoadAccelerators(module, name);
}
