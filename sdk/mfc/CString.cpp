#include "mfc/CString.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <windows.h>

namespace {

std::size_t clip(int count, std::size_t limit) { return std::min(static_cast<std::size_t>(std::max(count, 0)), limit); }

bool isLeadByte(char byte)
{
    const auto value = static_cast<BYTE>(byte);
    return value >= 0x80 && ::IsDBCSLeadByteEx(CP_THREAD_ACP, value) != FALSE;
}

// Length in bytes of the character at `at`; half a character at the end counts as one byte.
std::size_t characterLength(const std::string& text, std::size_t at)
{
    return at + 1 < text.size() && isLeadByte(text[at]) ? 2 : 1;
}

bool isOneOf(const char* set, const std::string& text, std::size_t at)
{
    return characterLength(text, at) == 1 && text[at] != '\0' && std::strchr(set, text[at]) != nullptr;
}

std::string mapCase(const std::string& text, DWORD flag)
{
    if (text.empty())
        return text;
    const int length = static_cast<int>(text.size());
    const LCID locale = ::GetThreadLocale();
    const int needed = ::LCMapStringA(locale, flag, text.data(), length, nullptr, 0);
    std::string mapped(clip(needed, text.size() * 2), '\0');
    const int written =
        ::LCMapStringA(locale, flag, text.data(), length, mapped.data(), static_cast<int>(mapped.size()));
    if (written <= 0)
        return text;
    mapped.resize(static_cast<std::size_t>(written));
    return mapped;
}

int replaceAll(std::string& text, const std::string& from, const std::string& to)
{
    if (from.empty())
        return 0;
    int count = 0;
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        if (text.compare(at, from.size(), from) == 0) {
            out += to;
            at += from.size();
            ++count;
        } else {
            const std::size_t length = characterLength(text, at);
            out.append(text, at, length);
            at += length;
        }
    }
    text = std::move(out);
    return count;
}

}  // namespace

CString::CString(const char* text, int length)
{
    if (text)
        m_text.assign(text, clip(length, static_cast<std::size_t>(-1)));
}

CString::CString(char character, int repeat) : m_text(clip(repeat, static_cast<std::size_t>(-1)), character) {}

char* CString::GetBuffer(int minimum)
{
    if (minimum > GetLength())
        m_text.resize(static_cast<std::size_t>(minimum));
    return m_text.data();
}

void CString::ReleaseBuffer(int length)
{
    m_text.resize(length < 0 ? std::strlen(m_text.c_str()) : clip(length, m_text.size()));
}

void CString::FormatV(const char* format, va_list arguments)
{
    va_list measured;
    va_copy(measured, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    std::string out(clip(length, static_cast<std::size_t>(-1)), '\0');  // may print its own old text
    if (length > 0)
        std::vsnprintf(out.data(), out.size() + 1, format, arguments);
    m_text = std::move(out);
}

void CString::Format(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    FormatV(format, arguments);
    va_end(arguments);
}

CString CString::Left(int count) const { return Mid(0, count); }

CString CString::Mid(int first) const { return Mid(first, GetLength()); }

CString CString::Mid(int first, int count) const
{
    CString part;
    part.m_text.assign(m_text, clip(first, m_text.size()), clip(count, m_text.size()));
    return part;
}

int CString::Find(char character, int start) const
{
    const char text[] = {character, '\0'};
    return character ? Find(text, start) : -1;
}

int CString::Find(const char* text, int start) const
{
    const std::size_t length = std::strlen(text);
    if (start < 0 || start > GetLength())
        return -1;
    for (auto at = static_cast<std::size_t>(start); at + length <= m_text.size(); at += characterLength(m_text, at)) {
        // A lone lead byte is looked for as such; the first half of a character is not a match.
        const bool wholeCharacter = length != 1 || characterLength(m_text, at) == 1;
        if (wholeCharacter && m_text.compare(at, length, text) == 0)
            return static_cast<int>(at);
    }
    return -1;
}

int CString::ReverseFind(char character) const
{
    int last = -1;
    for (int at = Find(character); at >= 0; at = Find(character, at + 1))
        last = at;
    return last;
}

CString& CString::TrimLeft(const char* characters)
{
    std::size_t at = 0;
    while (at < m_text.size() && isOneOf(characters, m_text, at))
        ++at;
    m_text.erase(0, at);
    return *this;
}

CString& CString::TrimRight(const char* characters)
{
    std::size_t end = 0;
    for (std::size_t at = 0; at < m_text.size();) {
        const std::size_t next = at + characterLength(m_text, at);
        if (!isOneOf(characters, m_text, at))
            end = next;
        at = next;
    }
    m_text.erase(end);
    return *this;
}

int CString::Replace(const char* from, const char* to) { return replaceAll(m_text, from ? from : "", to ? to : ""); }

int CString::Replace(char from, char to) { return replaceAll(m_text, std::string(1, from), std::string(1, to)); }

int CString::Compare(const char* other) const { return std::strcmp(m_text.c_str(), other ? other : ""); }

int CString::CompareNoCase(const char* other) const
{
    return mapCase(m_text, LCMAP_LOWERCASE).compare(mapCase(other ? other : "", LCMAP_LOWERCASE));
}
