#include "dxf/DxfText.h"

#include "dxf/TagReader.h"
#include "library/text/Ascii.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

namespace dxf {

namespace {

constexpr unsigned kUtf8 = CP_UTF8;
constexpr std::size_t kEscape = 7;  // the length of \U+XXXX

// The system is asked again only after the thread's language has changed.
unsigned ansiCodePage()
{
    static LCID locale = 0;
    static unsigned page = 0;
    if (page == 0 || locale != GetThreadLocale()) {
        locale = GetThreadLocale();
        char digits[8] = "";
        GetLocaleInfoA(locale, LOCALE_IDEFAULTANSICODEPAGE, digits, sizeof digits);
        const int number = std::atoi(digits);
        page = number > 1 ? static_cast<unsigned>(number) : GetACP();
    }
    return page;
}

unsigned codePageByName(std::string_view name)
{
    static constexpr struct {
        std::string_view name;
        unsigned page;
    } kNames[] = {{"ascii", 20127},     {"iso8859-1", 28591}, {"iso8859-2", 28592}, {"iso8859-5", 28595},
                  {"iso8859-7", 28597}, {"iso8859-9", 28599}, {"mac-roman", 10000}, {"big5", 950},
                  {"gb2312", 936},      {"ksc5601", 949},     {"johab", 1361},      {"utf-8", kUtf8},
                  {"utf8", kUtf8}};
    name = trimmed(name);
    for (const auto& known : kNames)
        if (sameName(name, known.name))
            return known.page;
    for (std::string_view prefix : {"ansi_", "dos"})
        if (name.size() > prefix.size() && sameName(name.substr(0, prefix.size()), prefix)) {
            const unsigned page = static_cast<unsigned>(toInt(name.substr(prefix.size())));
            if (IsValidCodePage(page))
                return page;
        }
    return 1252;
}

std::wstring widen(std::string_view text, unsigned page)
{
    if (text.empty())
        return {};
    const int length = static_cast<int>(text.size());
    std::wstring wide(text.size() + 1, L'\0');
    const int count = MultiByteToWideChar(page, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<std::size_t>(count));
    return wide;
}

// False when the code page lacks one of the characters.
bool narrow(std::wstring_view wide, unsigned page, std::string& text)
{
    text.resize(wide.size() * 4 + 1);
    BOOL lost = FALSE;
    const bool utf8 = page == kUtf8;
    const int count =
        WideCharToMultiByte(page, utf8 ? 0 : WC_NO_BEST_FIT_CHARS, wide.data(), static_cast<int>(wide.size()),
                            text.data(), static_cast<int>(text.size()), nullptr, utf8 ? nullptr : &lost);
    text.resize(static_cast<std::size_t>(count));
    return !lost;
}

// Characters that the code page lacks become escapes.
std::string narrowWithEscapes(std::wstring_view wide, unsigned page)
{
    std::string text;
    if (wide.empty() || narrow(wide, page, text))
        return text;
    std::string result;
    for (const wchar_t c : wide) {
        if (narrow({&c, 1}, page, text)) {
            result += text;
            continue;
        }
        char escape[kEscape + 1];
        std::snprintf(escape, sizeof escape, "\\U+%04X", static_cast<unsigned>(c) & 0xFFFF);
        result += escape;
    }
    return result;
}

// The value of four hexadecimal digits; 0 when one of them is none.
wchar_t hexValue(const std::wstring& digits)
{
    const bool sound = digits.find_first_not_of(L"0123456789ABCDEFabcdef") == std::wstring::npos;
    return sound ? static_cast<wchar_t>(std::wcstoul(digits.c_str(), nullptr, 16)) : L'\0';
}

// With \U+XXXX escapes as the characters that they stand for.
std::wstring unescaped(const std::wstring& text)
{
    std::wstring result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escape = text.compare(i, 3, L"\\U+") == 0 && text.size() >= i + kEscape;
        const wchar_t value = escape ? hexValue(text.substr(i + 3, 4)) : L'\0';
        result += value != 0 ? value : text[i];
        i += value != 0 ? kEscape - 1 : 0;
    }
    return result;
}

// With caret marks as the control characters that they stand for.
std::wstring withControls(const std::wstring& wide)
{
    std::wstring result;
    for (std::size_t i = 0; i < wide.size(); ++i) {
        const wchar_t c = wide[i];
        if (c == L'^' && i + 1 < wide.size()) {
            const wchar_t mark = wide[i + 1];
            if (mark == L' ' || (mark >= L'@' && mark <= L'_')) {
                result += mark == L' ' ? L'^' : static_cast<wchar_t>(mark - L'@');
                ++i;
                continue;
            }
        }
        result += c;
    }
    return result;
}

bool isPlain(std::string_view text, bool controls)
{
    for (const char c : text)
        if (static_cast<unsigned char>(c) >= 0x80 || c == '^' || c == '\\' ||
            (controls && static_cast<unsigned char>(c) < 0x20))
            return false;
    return true;
}

}  // namespace

DxfText::DxfText(std::string_view version, std::string_view codePageName)
    : m_codePage(version >= "AC1021" ? kUtf8 : codePageByName(codePageName))
{
}

std::string DxfText::decode(std::string_view raw) const
{
    if (isPlain(raw, false))
        return std::string(raw);
    return narrowWithEscapes(withControls(unescaped(widen(raw, m_codePage))), ansiCodePage());
}

std::string DxfText::encode(std::string_view text) const
{
    if (isPlain(text, true))
        return std::string(text);
    std::wstring line;
    for (const wchar_t c : widen(text, ansiCodePage())) {
        if (c == L'^')
            line += L"^ ";
        else if (c < 0x20)
            line += {L'^', static_cast<wchar_t>(c + L'@')};
        else
            line += c;
    }
    // What could not be shown in ANSI came as an escape: where the file can hold
    // the character itself, it gets it back.
    return narrowWithEscapes(m_codePage == kUtf8 ? unescaped(line) : line, m_codePage);
}

std::string foldedName(std::string_view name)
{
    std::string folded(name);
    for (std::size_t i = 0; i < folded.size(); ++i) {
        const auto byte = static_cast<unsigned char>(folded[i]);
        if (byte >= 0x80 && IsDBCSLeadByteEx(ansiCodePage(), byte))
            ++i;
        else
            folded[i] = Tesk::upperAscii(folded[i]);
    }
    return folded;
}

bool sameName(std::string_view a, std::string_view b)
{
    const auto same = [](char one, char other) { return Tesk::upperAscii(one) == Tesk::upperAscii(other); };
    return a == b || (std::equal(a.begin(), a.end(), b.begin(), b.end(), same) && foldedName(a) == foldedName(b));
}

std::string DxfText::ansiName() { return "ANSI_" + std::to_string(ansiCodePage()); }

}  // namespace dxf
