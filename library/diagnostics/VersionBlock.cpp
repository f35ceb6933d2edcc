#include "library/diagnostics/VersionBlock.h"

#include "library/diagnostics/LibraryState.h"
#include "library/text/CodePage.h"

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <vector>

namespace Tesk {

namespace {

struct CContents {
    CString m_sCompanyName;
    CString m_sProductName;
    CString m_sInternalName;
    CString m_sFileVersion;
    bool m_bPrerelease = false;
};

CContents g_contents;

// A copy of the resource: the query functions want memory they may write to.
std::vector<DWORD> loadBlock(HINSTANCE hModule)
{
    std::vector<DWORD> block;
    const HRSRC hResource = ::FindResourceA(hModule, MAKEINTRESOURCEA(1), MAKEINTRESOURCEA(16));  // RT_VERSION
    const HGLOBAL hLoaded = hResource ? ::LoadResource(hModule, hResource) : nullptr;
    const void* pData = hLoaded ? ::LockResource(hLoaded) : nullptr;
    if (pData) {
        const DWORD dwSize = ::SizeofResource(hModule, hResource);
        block.resize(dwSize / sizeof(DWORD) + 1);
        std::memcpy(block.data(), pData, dwSize);
    }
    return block;
}

template <class T>
const T* query(const std::vector<DWORD>& block, const wchar_t* sPath, UINT uLeast)
{
    void* pValue = nullptr;
    UINT uLength = 0;
    if (!::VerQueryValueW(block.data(), const_cast<wchar_t*>(sPath), &pValue, &uLength) || uLength < uLeast)
        return nullptr;
    return static_cast<const T*>(pValue);
}

CString queryText(const std::vector<DWORD>& block, const WORD* pTranslation, const wchar_t* sName)
{
    wchar_t sPath[80];
    _snwprintf(sPath, std::size(sPath) - 1, L"\\StringFileInfo\\%04x%04x\\%ls", pTranslation[0], pTranslation[1],
               sName);
    sPath[std::size(sPath) - 1] = 0;
    const wchar_t* sText = query<wchar_t>(block, sPath, 1);
    return sText ? CString(toNarrow(sText).c_str()) : CString();
}

}  // namespace

bool CVersionBlock::initialise()
{
    terminate();
    const std::vector<DWORD> block = loadBlock(getCurrentModule());
    if (block.empty())
        return false;
    const auto* pFixed = query<VS_FIXEDFILEINFO>(block, L"\\", sizeof(VS_FIXEDFILEINFO));
    const auto* pTranslation = query<WORD>(block, L"\\VarFileInfo\\Translation", 2 * sizeof(WORD));
    if (!pFixed || !pTranslation)
        return false;
    g_contents.m_sCompanyName = queryText(block, pTranslation, L"CompanyName");
    g_contents.m_sProductName = queryText(block, pTranslation, L"ProductName");
    g_contents.m_sInternalName = queryText(block, pTranslation, L"InternalName");
    g_contents.m_sFileVersion = queryText(block, pTranslation, L"FileVersion");
    g_contents.m_bPrerelease = (pFixed->dwFileFlags & pFixed->dwFileFlagsMask & VS_FF_PRERELEASE) != 0;
    return true;
}

void CVersionBlock::terminate() { g_contents = CContents(); }

const CString& CVersionBlock::getCompanyName() { return g_contents.m_sCompanyName; }
const CString& CVersionBlock::getProductName() { return g_contents.m_sProductName; }
const CString& CVersionBlock::getInternalName() { return g_contents.m_sInternalName; }
const CString& CVersionBlock::getFileVersion() { return g_contents.m_sFileVersion; }
bool CVersionBlock::isPrerelease() { return g_contents.m_bPrerelease; }

}  // namespace Tesk
