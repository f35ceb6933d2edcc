#include "library/system/Clipboard.h"

#include "library/text/CodePage.h"
#include "library/text/StringView.h"

#include <cstring>
#include <string>

namespace Tesk {

namespace {

// Movable memory, which the clipboard takes over; null without memory.
HGLOBAL globalCopy(const std::wstring& sText)
{
    const std::size_t size = (sText.size() + 1) * sizeof(wchar_t);
    const HGLOBAL hMemory = ::GlobalAlloc(GMEM_MOVEABLE, size);
    void* const pMemory = hMemory != nullptr ? ::GlobalLock(hMemory) : nullptr;
    if (pMemory == nullptr)
        return ::GlobalFree(hMemory);  // null again
    std::memcpy(pMemory, sText.c_str(), size);
    ::GlobalUnlock(hMemory);
    return hMemory;
}

}  // namespace

bool copyToClipboard(HWND hOwner, const CString& sText)
{
    // Wide, from which the system makes the narrow forms.
    const HGLOBAL hMemory = globalCopy(toWide(viewOf(sText)));
    if (hMemory == nullptr)
        return false;
    bool bTaken = false;
    if (::OpenClipboard(hOwner)) {
        bTaken = ::EmptyClipboard() && ::SetClipboardData(CF_UNICODETEXT, hMemory) != nullptr;
        ::CloseClipboard();
    }
    if (!bTaken)
        ::GlobalFree(hMemory);
    return bTaken;
}

}  // namespace Tesk
