#include "library/text/CaseFold.h"

#include "library/text/CodePage.h"

#include <algorithm>
#include <atomic>
#include <string>
#include <utility>

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

// The lower case of every character.
std::wstring lowerCaseTable()
{
    std::wstring sAll(0x10000, 0);
    for (std::size_t i = 0; i < sAll.size(); ++i)
        sAll[i] = static_cast<wchar_t>(i);
    std::wstring sLower = sAll;
    const LCID lcid = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
    ::LCMapStringW(lcid, LCMAP_LOWERCASE, sAll.data(), static_cast<int>(sAll.size()), sLower.data(),
                   static_cast<int>(sLower.size()));
    return sLower;
}

// Threads add to it and never take away; two tables of one code page do no harm.
struct CTables {
    ~CTables()
    {
        for (const CCaseFold* pTable = m_pFirst; pTable;)
            delete std::exchange(pTable, pTable->getNext());
    }
    std::atomic<const CCaseFold*> m_pFirst{nullptr};
};
CTables g_tables;

}  // namespace

const CCaseFold& CCaseFold::forThread()
{
    const UINT uCodePage = getThreadCodePage();
    for (const CCaseFold* pTable = g_tables.m_pFirst; pTable; pTable = pTable->getNext())
        if (pTable->getCodePage() == uCodePage)
            return *pTable;
    auto* const pTable = new CCaseFold(uCodePage);
    pTable->m_pNext = g_tables.m_pFirst;
    while (!g_tables.m_pFirst.compare_exchange_weak(pTable->m_pNext, pTable)) {
    }
    return *pTable;
}

CCaseFold::CCaseFold(UINT uCodePage) : m_uCodePage(uCodePage), m_lead(uCodePage)
{
    for (unsigned i = 0; i < 256; ++i)
        m_single[i] = static_cast<unsigned char>(i >= 'A' && i <= 'Z' ? i + ('a' - 'A') : i);
    const std::wstring sLower = lowerCaseTable();
    for (std::size_t i = 0x80; i < sLower.size(); ++i)
        if (sLower[i] != static_cast<wchar_t>(i))
            addPair(static_cast<wchar_t>(i), sLower[i]);
}

// A letter whose lower case takes another number of bytes keeps its case.
void CCaseFold::addPair(wchar_t cUpper, wchar_t cLower)
{
    const unsigned uUpper = encode(m_uCodePage, cUpper);
    const unsigned uLower = encode(m_uCodePage, cLower);
    if (uUpper == 0 || uLower == 0 || (uUpper > 0xFF) != (uLower > 0xFF))
        return;
    if (uUpper <= 0xFF) {
        m_single[uUpper] = static_cast<unsigned char>(uLower);
        return;
    }
    auto& pRow = m_rows[uUpper >> 8];
    if (!pRow) {
        pRow = std::make_unique<uint16_t[]>(256);
        for (unsigned i = 0; i < 256; ++i)
            pRow[i] = static_cast<uint16_t>((uUpper & 0xFF00) | i);
    }
    pRow[uUpper & 0xFF] = static_cast<uint16_t>(uLower);
}

unsigned CCaseFold::next(std::string_view sText, std::size_t& position) const
{
    const char lead = sText[position++];
    const auto first = static_cast<unsigned char>(lead);
    if (!m_lead.contains(lead) || position == sText.size())
        return m_single[first];
    const auto second = static_cast<unsigned char>(sText[position++]);
    return m_rows[first] ? m_rows[first][second] : static_cast<unsigned>(first << 8 | second);
}

int CCaseFold::compare(std::string_view sLeft, std::string_view sRight) const
{
    std::size_t left = 0;
    std::size_t right = 0;
    if (!m_lead.any()) {
        const std::size_t common = std::min(sLeft.size(), sRight.size());
        for (; left < common; ++left) {
            const unsigned char a = m_single[static_cast<unsigned char>(sLeft[left])];
            const unsigned char b = m_single[static_cast<unsigned char>(sRight[left])];
            if (a != b)
                return a < b ? -1 : 1;
        }
        return sLeft.size() == sRight.size() ? 0 : sLeft.size() < sRight.size() ? -1 : 1;
    }
    while (left < sLeft.size() && right < sRight.size()) {
        const unsigned a = next(sLeft, left);
        const unsigned b = next(sRight, right);
        if (a != b)
            return a < b ? -1 : 1;
    }
    return left < sLeft.size() ? 1 : right < sRight.size() ? -1 : 0;
}

}  // namespace Tesk
