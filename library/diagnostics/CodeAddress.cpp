#include "library/diagnostics/CodeAddress.h"

#include "library/files/PathParts.h"

#include <windows.h>

#include <string>

namespace Tesk {

namespace {

// A loaded module and its export table. Only what lies within the image is read:
// offsets come from the module's file.
class CImage {
public:
    explicit CImage(HMODULE hModule) : m_pBase(reinterpret_cast<const char*>(hModule))
    {
        const auto* pDos = reinterpret_cast<const IMAGE_DOS_HEADER*>(m_pBase);
        const auto* pHeaders = reinterpret_cast<const IMAGE_NT_HEADERS*>(m_pBase + pDos->e_lfanew);
        m_dwSize = pHeaders->OptionalHeader.SizeOfImage;
        const IMAGE_DATA_DIRECTORY& entry = pHeaders->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
        if (entry.Size >= sizeof(IMAGE_EXPORT_DIRECTORY))
            m_pExports = at<IMAGE_EXPORT_DIRECTORY>(entry.VirtualAddress, 1);
    }

    // The exported name closest before an offset, with its distance. A name far
    // away is another function's: not every function is exported.
    CString findName(DWORD dwOffset) const
    {
        constexpr DWORD kFarthest = 0x200;
        if (!m_pExports)
            return {};
        const auto* pFunctions = at<DWORD>(m_pExports->AddressOfFunctions, m_pExports->NumberOfFunctions);
        const auto* pNames = at<DWORD>(m_pExports->AddressOfNames, m_pExports->NumberOfNames);
        const auto* pOrdinals = at<WORD>(m_pExports->AddressOfNameOrdinals, m_pExports->NumberOfNames);
        DWORD dwDistance = kFarthest;
        const char* sName = nullptr;
        for (DWORD i = 0; pFunctions && pNames && pOrdinals && i < m_pExports->NumberOfNames; ++i) {
            if (pOrdinals[i] >= m_pExports->NumberOfFunctions)
                continue;
            const DWORD dwFunction = pFunctions[pOrdinals[i]];
            if (dwFunction <= dwOffset && dwOffset - dwFunction < dwDistance) {
                dwDistance = dwOffset - dwFunction;
                sName = at<char>(pNames[i], 1);
            }
        }
        CString sText;
        if (sName)
            sText.Format(" (%.255s + 0x%x)", sName, static_cast<unsigned>(dwDistance));
        return sText;
    }

private:
    template <class T>
    const T* at(DWORD dwOffset, DWORD dwCount) const
    {
        const bool bInside = dwOffset < m_dwSize && dwCount <= (m_dwSize - dwOffset) / sizeof(T);
        return bInside ? reinterpret_cast<const T*>(m_pBase + dwOffset) : nullptr;
    }

    const char* m_pBase;
    DWORD m_dwSize = 0;
    const IMAGE_EXPORT_DIRECTORY* m_pExports = nullptr;
};

HMODULE moduleOf(const void* pAddress)
{
    MEMORY_BASIC_INFORMATION region = {};
    if (!::VirtualQuery(pAddress, &region, sizeof region))
        return nullptr;
    return static_cast<HMODULE>(region.AllocationBase);
}

}  // namespace

CString describeAddress(const void* pAddress)
{
    CString sText;
    const HMODULE hModule = moduleOf(pAddress);
    char sPath[MAX_PATH] = "";
    const DWORD dwLength = hModule ? ::GetModuleFileNameA(hModule, sPath, MAX_PATH) : 0;
    if (dwLength == 0 || dwLength >= MAX_PATH) {
        sText.Format("0x%p", pAddress);
        return sText;
    }
    const auto dwOffset =
        static_cast<DWORD>(static_cast<const char*>(pAddress) - reinterpret_cast<const char*>(hModule));
    sText.Format("%s + 0x%x", PathParts(sPath).fileName().c_str(), static_cast<unsigned>(dwOffset));
    return sText + CImage(hModule).findName(dwOffset);
}

}  // namespace Tesk
