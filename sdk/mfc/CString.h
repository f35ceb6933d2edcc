#pragma once

// A narrow string in the thread's ANSI code page. Positions and lengths are
// bytes; searching, trimming and case changes never split a double-byte
// character (a trail byte such as 0x5C is not taken for a backslash).
#include <cstdarg>
#include <cstdio>
#include <string>

class CString {
public:
    CString() = default;
    CString(const char* text) : m_text(text ? text : "") {}  // null reads as empty
    CString(const char* text, int length);
    explicit CString(char character, int repeat = 1);

    operator const char*() const { return m_text.c_str(); }
    const char* GetString() const { return m_text.c_str(); }
    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }
    char operator[](int index) const { return m_text.c_str()[index]; }

    // At least `minimum` writable bytes and a terminator; call ReleaseBuffer
    // before any other use. A negative length takes what strlen finds.
    char* GetBuffer(int minimum);
    void ReleaseBuffer(int length = -1);

    void Format(const char* format, ...) __attribute__((format(__MINGW_PRINTF_FORMAT, 2, 3)));
    void FormatV(const char* format, va_list arguments) __attribute__((format(__MINGW_PRINTF_FORMAT, 2, 0)));

    CString& operator+=(const CString& text)
    {
        m_text += text.m_text;
        return *this;
    }
    CString& operator+=(const char* text)
    {
        m_text += text ? text : "";
        return *this;
    }
    CString& operator+=(char character)
    {
        m_text += character;
        return *this;
    }

    // Out-of-range counts are clipped to the string.
    CString Left(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    // First or last position, or -1.
    int Find(char character, int start = 0) const;
    int Find(const char* text, int start = 0) const;
    int ReverseFind(char character) const;

    // Without an argument: blanks, tabs and line ends. `characters` is a set of single bytes.
    CString& Trim() { return TrimLeft().TrimRight(); }
    CString& Trim(const char* characters) { return TrimLeft(characters).TrimRight(characters); }
    CString& TrimLeft() { return TrimLeft(" \t\n\v\f\r"); }
    CString& TrimLeft(const char* characters);
    CString& TrimRight() { return TrimRight(" \t\n\v\f\r"); }
    CString& TrimRight(const char* characters);

    // Replaces every occurrence and returns how many there were.
    int Replace(const char* from, const char* to);
    int Replace(char from, char to);

    // Negative, 0 or positive; without case by the thread's locale, byte by
    // byte after both are in lower case.
    int Compare(const char* other) const;
    int CompareNoCase(const char* other) const;

private:
    std::string m_text;
};

inline CString operator+(CString a, const CString& b)
{
    a += b;
    return a;
}
inline CString operator+(CString a, const char* b)
{
    a += b;
    return a;
}
inline CString operator+(const char* a, const CString& b) { return CString(a) + b; }
inline CString operator+(CString a, char b)
{
    a += b;
    return a;
}
inline CString operator+(char a, const CString& b) { return CString(a) + b; }

inline bool operator==(const CString& a, const CString& b) { return a.Compare(b) == 0; }
inline bool operator==(const CString& a, const char* b) { return a.Compare(b) == 0; }
inline bool operator==(const char* a, const CString& b) { return b.Compare(a) == 0; }
inline bool operator!=(const CString& a, const CString& b) { return a.Compare(b) != 0; }
inline bool operator!=(const CString& a, const char* b) { return a.Compare(b) != 0; }
inline bool operator!=(const char* a, const CString& b) { return b.Compare(a) != 0; }
inline bool operator<(const CString& a, const CString& b) { return a.Compare(b) < 0; }
inline bool operator<(const CString& a, const char* b) { return a.Compare(b) < 0; }
inline bool operator<(const char* a, const CString& b) { return b.Compare(a) > 0; }
inline bool operator>(const CString& a, const CString& b) { return a.Compare(b) > 0; }
