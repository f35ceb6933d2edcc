#include "library/files/TextFileContents.h"

#include "library/diagnostics/Prerelease.h"
#include "library/text/CodePage.h"
#include "mfc/afx.h"

#include <io.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <memory>

namespace Tesk {

namespace {

constexpr std::size_t kLeastBlock = 4 * 1024;  // of what tells no size, such as a device
constexpr long long kMost = INT_MAX;           // no line of a larger one is sure to fit a string
constexpr char kCtrlZ = 0x1A;

// The text up to the next line end, which is consumed. A last line counts only
// when it is not empty.
template <class Char>
bool splitLine(std::basic_string_view<Char> sText, std::size_t& position, std::basic_string_view<Char>& sLine)
{
    if (position >= sText.size())
        return false;
    const std::size_t end = sText.find(Char('\n'), position);
    if (end == sText.npos) {
        sLine = sText.substr(position);
        position = sText.size();
        return true;
    }
    const bool bPair = end > position && sText[end - 1] == Char('\r');
    sLine = sText.substr(position, end - position - (bPair ? 1 : 0));
    position = end + 1;
    return true;
}

// At the first Ctrl-Z; true when other characters than that are lost.
template <class Char>
bool cut(std::basic_string<Char>& sText)
{
    const std::size_t end = std::min(sText.find(Char(kCtrlZ)), sText.size());
    const bool bLost = sText.find_first_not_of(Char(kCtrlZ), end) != sText.npos;
    sText.resize(end);
    return bLost;
}

bool isAscii(std::string_view sText)
{
    return std::all_of(sText.begin(), sText.end(), [](char c) { return (c & 0x80) == 0; });
}

}  // namespace

CTextFileContents::CTextFileContents(const char* sFileName, bool bDetectEncoding)
{
    load(sFileName);
    m_bUnicode = bDetectEncoding && m_sBytes.compare(0, 2, "\xFF\xFE") == 0;
    if (m_bUnicode)
        decode();
    else
        cutAtEnd();
}

CTextFileContents::CTextFileContents(std::string sBytes) : m_sBytes(std::move(sBytes)) { cutAtEnd(); }

void CTextFileContents::cutAtEnd() { m_bCut = cut(m_sBytes); }

void CTextFileContents::load(const char* sFileName)
{
    const auto close = [](FILE* pFile) { TESK_VERIFY_TEXT(std::fclose(pFile) == 0, "::fclose(pInput) == 0"); };
    const std::unique_ptr<FILE, decltype(close)> pInput(std::fopen(sFileName, "rb"), close);
    if (!pInput)
        CFileException::ThrowErrno(errno, sFileName);
    const long long size = ::_filelengthi64(::_fileno(pInput.get()));
    if (size >= kMost)
        CFileException::ThrowErrno(EFBIG, sFileName);
    std::setvbuf(pInput.get(), nullptr, _IONBF, 0);  // one block takes all
    std::size_t filled = 0;
    for (std::size_t block = size > 0 ? static_cast<std::size_t>(size) + 1 : kLeastBlock;; block = kLeastBlock) {
        m_sBytes.resize(filled + std::max(block, filled));
        const std::size_t got = std::fread(m_sBytes.data() + filled, 1, m_sBytes.size() - filled, pInput.get());
        filled += got;
        if (filled < m_sBytes.size())
            break;
    }
    m_sBytes.resize(filled);
    if (std::ferror(pInput.get()))
        CFileException::ThrowErrno(errno, sFileName);
}

// An odd last byte is no character; 0xFFFF reads as the end-of-file value and
// so adds nothing.
void CTextFileContents::decode()
{
    m_sWide.resize(m_sBytes.size() / 2 - 1);
    std::memcpy(m_sWide.data(), m_sBytes.data() + 2, m_sWide.size() * 2);
    m_sBytes = std::string();
    m_bCut = cut(m_sWide);
    m_sWide.erase(std::remove(m_sWide.begin(), m_sWide.end(), wchar_t(0xFFFF)), m_sWide.end());
}

bool CTextFileContents::nextNarrow(std::string_view& sLine) { return splitLine<char>(m_sBytes, m_position, sLine); }

bool CTextFileContents::nextWide(std::wstring_view& sLine) { return splitLine<wchar_t>(m_sWide, m_position, sLine); }

bool CTextFileContents::nextConverted(std::string_view& sLine)
{
    if (m_bUnicode) {
        std::wstring_view sWideLine;
        if (!nextWide(sWideLine))
            return false;
        m_vecConverted.push_back(toNarrow(sWideLine));
    } else {
        if (!nextNarrow(sLine))
            return false;
        if (isAscii(sLine))
            return true;  // the same in every ANSI code page
        std::string sConverted = toNarrow(toWide(sLine));
        if (sConverted == sLine)
            return true;
        m_vecConverted.push_back(std::move(sConverted));
    }
    sLine = m_vecConverted.back();
    return true;
}

}  // namespace Tesk
