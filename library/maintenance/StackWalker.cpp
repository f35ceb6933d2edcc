#include "library/maintenance/StackWalker.h"

#include "library/diagnostics/Compiler.h"
#include "library/files/PathParts.h"

#include <windows.h>

namespace Tesk {

namespace {

// The module that the address lies in; null when it lies in none.
HMODULE moduleOf(const void* pAddress)
{
    MEMORY_BASIC_INFORMATION region = {};
    return ::VirtualQuery(pAddress, &region, sizeof region) ? static_cast<HMODULE>(region.AllocationBase) : nullptr;
}

}  // namespace

CStackWalker::CStackWalker() : m_vFrames(kMaxFrames) { m_vFrames.resize(captureFrames(m_vFrames.data(), kMaxFrames)); }

CString CStackWalker::describe() const
{
    CString sText;
    for (const void* pAddress : m_vFrames)
        sText += (sText.IsEmpty() ? "" : "\n") + describeAddress(pAddress);
    return sText;
}

CString CStackWalker::describeAddress(const void* pAddress)
{
    CString sText;
    const HMODULE hModule = moduleOf(pAddress);
    char sPath[MAX_PATH] = "";
    const DWORD dwLength = hModule ? ::GetModuleFileNameA(hModule, sPath, MAX_PATH) : 0;
    if (dwLength == 0 || dwLength >= MAX_PATH)
        sText.Format("0x%p", pAddress);
    else
        sText.Format(
            "%s + 0x%x", CPathParts(sPath).fileName().c_str(),
            static_cast<unsigned>(static_cast<const char*>(pAddress) - reinterpret_cast<const char*>(hModule)));
    return sText;
}

}  // namespace Tesk
