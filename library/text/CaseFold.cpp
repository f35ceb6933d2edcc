#include "library/text/CaseFold.h"

#include "library/text/CodePage.h"
#include "library/threads/CriticalSection.h"

#include <algorithm>
#include <map>

namespace Tesk {

namespace {

// The code of a character, which must come back from the code page unchanged.
unsigned encode(UINT uCodePage, wchar_t cWide)
{
    char bytes[4] = {};
    wchar_t back[2] = {};
    const int iCount = ::WideCharToMultiByte(uCodePage, 0, &cWide, 1, bytes, sizeof bytes, nullptr, nullptr);
    if (iCount < 1 || iCount > 2 || ::MultiByteToWideChar(uCodePage, 0, bytes, iCount, back, 2) != 1 ||
        back[0] != cWide)
        return 0;
    const unsigned first = static_cast<unsigned char>(bytes[0]);
    return iCount == 1 ? first : first << 8 | static_cast<unsigned char>(bytes[1]);
}

}  // namespace

const CCaseFold& CCaseFold::forThread()
{
    static CCriticalSection section;
    static std::map<UINT, CCaseFold> mapTables;  // that only grows
    const UINT uCodePage = getThreadCodePage();
    const CLock lock(section);
    return mapTables.try_emplace(uCodePage, uCodePage).first->second;
}

CCaseFold::CCaseFold(UINT uCodePage) : m_lead(uCodePage), m_vecLower(m_lead.any() ? 0x10000 : 0x100)
{
    for (std::size_t i = 0; i < m_vecLower.size(); ++i)
        m_vecLower[i] = static_cast<uint16_t>(i);
    std::wstring sAll(0x10000, 0);
    for (std::size_t i = 0; i < sAll.size(); ++i)
        sAll[i] = static_cast<wchar_t>(i);
    std::wstring sLower = sAll;
    const LCID lcid = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
    const auto count = static_cast<int>(sAll.size());
    ::LCMapStringW(lcid, LCMAP_LOWERCASE, sAll.data(), count, sLower.data(), count);
    for (std::size_t i = 0; i < sAll.size(); ++i) {
        if (sLower[i] == sAll[i])
            continue;
        // A letter whose lower case takes another number of bytes keeps its case.
        const unsigned uUpper = encode(uCodePage, sAll[i]);
        const unsigned uLower = encode(uCodePage, sLower[i]);
        if (uUpper != 0 && uLower != 0 && (uUpper > 0xFF) == (uLower > 0xFF))
            m_vecLower[uUpper] = static_cast<uint16_t>(uLower);
    }
}

unsigned CCaseFold::next(std::string_view sText, std::size_t& position) const
{
    const char lead = sText[position++];
    unsigned code = static_cast<unsigned char>(lead);
    if (m_lead.contains(lead) && position < sText.size())
        code = code << 8 | static_cast<unsigned char>(sText[position++]);
    return m_vecLower[code];
}

int CCaseFold::compare(std::string_view sLeft, std::string_view sRight) const
{
    std::size_t left = 0;
    // What is the same byte for byte needs no table, where each byte is a character.
    if (!m_lead.any())
        left = static_cast<std::size_t>(std::mismatch(sLeft.begin(), sLeft.end(), sRight.begin(), sRight.end()).first -
                                        sLeft.begin());
    std::size_t right = left;
    while (left < sLeft.size() && right < sRight.size()) {
        const unsigned a = next(sLeft, left);
        const unsigned b = next(sRight, right);
        if (a != b)
            return a < b ? -1 : 1;
    }
    return left < sLeft.size() ? 1 : right < sRight.size() ? -1 : 0;
}

}  // namespace Tesk
