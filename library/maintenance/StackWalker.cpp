#include "library/maintenance/StackWalker.h"

#include "library/diagnostics/Compiler.h"
#include "library/files/PathParts.h"

#include <windows.h>

namespace Tesk {

namespace {

CString describe(const void* pAddress)
{
    MEMORY_BASIC_INFORMATION region = {};
    ::VirtualQuery(pAddress, &region, sizeof region);
    const auto hModule = static_cast<HMODULE>(region.AllocationBase);
    char sPath[MAX_PATH] = "";
    const DWORD dwLength = hModule ? ::GetModuleFileNameA(hModule, sPath, MAX_PATH) : 0;
    CString sText;
    if (dwLength == 0 || dwLength >= MAX_PATH)
        sText.Format("0x%p", pAddress);
    else
        sText.Format(
            "%s + 0x%x", CPathParts(sPath).fileName().c_str(),
            static_cast<unsigned>(static_cast<const char*>(pAddress) - reinterpret_cast<const char*>(hModule)));
    return sText;
}

}  // namespace

CString describeCallStack()
{
    const void* aFrames[50];
    const unsigned uFrames = captureFrames(aFrames, 50);
    CString sText;
    for (unsigned i = 0; i < uFrames; ++i)
        sText += (i == 0 ? "" : "\n") + describe(aFrames[i]);
    return sText;
}

}  // namespace Tesk
