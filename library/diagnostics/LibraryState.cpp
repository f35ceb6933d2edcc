#include "library/diagnostics/LibraryState.h"

#include "library/diagnostics/Prerelease.h"

namespace Tesk {

bool G_bLibraryInitialised = false;
CString G_sApplicationName;
HINSTANCE G_hCurrentModule = nullptr;
std::unique_ptr<CApplicationID> G_pApplicationID;

HINSTANCE getCurrentModule()
{
    TESK_ASSERT(G_bLibraryInitialised);
    return G_hCurrentModule;
}

CString getApplicationName()
{
    const CString sName = G_pApplicationID ? G_pApplicationID->getName() : CString();
    return sName.IsEmpty() ? G_sApplicationName : sName;
}

CString getApplicationVersionLabel()
{
    TESK_ASSERT(G_bLibraryInitialised);
    TESK_ASSERT(G_pApplicationID != NULL);
    return G_pApplicationID ? G_pApplicationID->getLabel() : CString();
}

}  // namespace Tesk
