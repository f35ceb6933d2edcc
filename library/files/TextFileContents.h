#pragma once

// A text file in memory, handed out line by line as the C runtime's text mode
// would give it: CR LF is one line end, a lone CR belongs to the line, a Ctrl-Z
// ends the text. A UTF-16 little-endian file is known by its byte-order mark.
//
// Read at once; a line is good as long as the contents are.

#include <deque>
#include <string>
#include <string_view>

namespace Tesk {

class CTextFileContents {
public:
    // Without encoding detection every file is narrow text. Raises CFileException.
    CTextFileContents(const char* sFileName, bool bDetectEncoding);
    // Narrow text that somebody has read.
    explicit CTextFileContents(std::string sBytes);
    CTextFileContents(const CTextFileContents&) = delete;
    CTextFileContents& operator=(const CTextFileContents&) = delete;

    bool isUnicode() const { return m_bUnicode; }
    // The whole text, of a narrow file and of a UTF-16 one.
    std::string_view getBytes() const { return m_sBytes; }
    std::wstring_view getWide() const { return m_sWide; }

    // A Ctrl-Z ended the text, and more than one stood behind it.
    bool isCut() const { return m_bCut; }

    // Back to the first line.
    void rewind() { m_position = 0; }
    // The bytes of the next line of a narrow file; false at the end.
    bool nextNarrow(std::string_view& sLine);

    // The characters of the next line of a UTF-16 file; false at the end.
    bool nextWide(std::wstring_view& sLine);

    // The next line of either kind as narrow text that went through UTF-16.
    bool nextConverted(std::string_view& sLine);

private:
    void load(const char* sFileName);
    void cutAtEnd();
    void decode();

    std::string m_sBytes;
    std::wstring m_sWide;
    std::deque<std::string> m_vecConverted;  // the lines that the conversion changes
    std::size_t m_position = 0;
    bool m_bUnicode = false;
    bool m_bCut = false;
};

}  // namespace Tesk
