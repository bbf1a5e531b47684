// A multi-document template whose documents all show the host's menu 13 and
// use its accelerator table 13, whatever the template's own identifier.
#pragma once

#include <afxwin.h>

class CMultiDocTemplatePlus : public CMultiDocTemplate {
public:
    CMultiDocTemplatePlus(UINT nIDResource, CRuntimeClass* pDocClass, CRuntimeClass* pFrameClass,
                          CRuntimeClass* pViewClass);
    ~CMultiDocTemplatePlus() override;

    // The template's strings as any template loads them, then, unless the
    // template has a menu already, menu 13 and accelerators 13 from the
    // module that holds the menu.
    void LoadTemplate() override;

    // The host's menu and accelerator table that every such template shares.
    static constexpr UINT IDR_SHARED_MENU = 13;
};
