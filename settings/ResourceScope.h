#pragma once

// Has the toolkit look resources up in the module while it lives, and then again where
// it did before. For as long as a dialog of ours runs: the host's own are not in it.

#include "library/diagnostics/LibraryState.h"
#include "mfc/afxwin.h"

class CResourceScope {
public:
    CResourceScope() : m_hBefore(AfxGetResourceHandle()) { AfxSetResourceHandle(Tesk::getCurrentModule()); }
    ~CResourceScope() { AfxSetResourceHandle(m_hBefore); }
    CResourceScope(const CResourceScope&) = delete;
    CResourceScope& operator=(const CResourceScope&) = delete;

private:
    HINSTANCE m_hBefore;
};
