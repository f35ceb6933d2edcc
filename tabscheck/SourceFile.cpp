#include "tabscheck/SourceFile.h"

#include "library/diagnostics/ExceptionBase.h"
#include "library/files/FileSearch.h"
#include "library/text/CodePage.h"
#include "library/text/MultiByte.h"
#include "tabscheck/Folders.h"

#include <windows.h>

#include <algorithm>
#include <exception>

namespace tabscheck {

namespace {

constexpr struct {
    std::string_view mark;
    const char* name;
    bool texts;  // the texts' reader knows it
} kMarks[] = {{"\xEF\xBB\xBF", "UTF-8", false},
              {"\xFE\xFF", "UTF-16, big-endian", false},
              {"\xFF\xFE", "UTF-16", true},
              {"", "UTF-16 without its mark", false}};  // known by the zero of its first letter

// As UTF-8, where it is that and more than ASCII; else empty.
std::wstring decodeUtf8(std::string_view sText)
{
    const bool ascii = std::all_of(sText.begin(), sText.end(), [](char c) { return (c & 0x80) == 0; });
    if (ascii || Tesk::MultiByte::CLeadBytes().any())
        return {};
    std::wstring sWide(sText.size(), L'\0');
    const int length = static_cast<int>(sText.size());
    const int count = ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, sText.data(), length, sWide.data(), length);
    sWide.resize(static_cast<std::size_t>(count));
    return sWide;
}

std::size_t firstHigh(std::string_view sText)
{
    return static_cast<std::size_t>(std::find_if(sText.begin(), sText.end(), [](char c) { return (c & 0x80) != 0; }) -
                                    sText.begin());
}

std::string quoted(std::string_view sText) { return "\"" + std::string(sText) + "\""; }

}  // namespace

SourceFile::SourceFile(const std::string& sPath, Form form) : m_path(sPath)
{
    try {
        m_contents = std::make_unique<Tesk::CTextFileContents>(sPath.c_str(), form == Form::Texts);
        if (form == Form::Project) {
            m_project = Tesk::parseProject(*m_contents);
        } else {
            Tesk::CSettingsEntries entries(*m_contents);
            for (Tesk::CSettingsEntry entry; entries.next(entry);)
                m_texts.push_back(entry);
        }
        checkMark(form);
        m_marked = !m_problems.empty();
        m_contents->rewind();
        if (m_contents->isUnicode())
            checkWideLines();
        else if (m_problems.empty())
            checkLines();
    } catch (CException* pException) {
        m_problems.push_back(problemAt(true, 0, 0, Tesk::takeExceptionText(pException).GetString(), {}));
        m_problems.back().unchecked = true;
    } catch (const std::exception&) {
        m_problems.push_back(problemAt(true, 0, 0, "it cannot be read: it is too large for the memory", {}));
        m_problems.back().unchecked = true;
    }
}

bool SourceFile::sound() const
{
    return m_contents != nullptr && (m_texts.empty() || m_texts.back().m_kind != Tesk::CSettingsEntry::Damage);
}

Problem SourceFile::problemAt(bool error, unsigned line, std::size_t position, std::string sText,
                              std::string_view sLine) const
{
    const unsigned column = line == 0 ? 0 : static_cast<unsigned>(position + 1);
    return {m_path, line, column, error, std::move(sText), std::string(sLine), false};
}

void SourceFile::checkMark(Form form)
{
    const std::string_view sBytes = m_contents->getBytes();
    for (const auto& [mark, name, texts] : kMarks) {
        const bool found = mark.empty() ? sBytes.size() > 1 && sBytes[1] == '\0' : sBytes.starts_with(mark);
        if (!found || (texts && form == Form::Texts))
            continue;
        const char* const sHelp = form == Form::Project ? "save it as ANSI" : "save it as ANSI or as \"Unicode\"";
        m_problems.push_back(problemAt(true, 1, 0,
                                       "the file is in " + std::string(name) + ", which is not read: " + sHelp,
                                       sBytes.substr(0, sBytes.find_first_of("\r\n"))));
    }
}

// The first line that was meant otherwise, and the first with what stands in no text file of
// Windows.
void SourceFile::checkLines()
{
    std::string_view sLine;
    bool told = false, odd = false;
    for (unsigned line = 1; m_contents->nextNarrow(sLine); ++line) {
        const std::wstring sMeant = told ? std::wstring() : decodeUtf8(sLine);
        if (!sMeant.empty()) {
            told = true;
            const std::size_t at = firstHigh(sLine);
            m_problems.push_back(problemAt(false, line, at,
                                           "UTF-8 without a mark, which is read as ANSI: " +
                                               quoted(Tesk::toNarrow(std::wstring_view(sMeant).substr(at, 20))) +
                                               " becomes " + quoted(sLine.substr(at, 20)) + "; save the file as ANSI",
                                           sLine));
        }
        const std::size_t at = sLine.find_first_of(std::string_view("\0\r", 2));
        if (at != sLine.npos && !odd) {
            odd = true;
            m_problems.push_back(problemAt(
                false, line, at,
                sLine[at] == '\r' ? "a carriage return alone ends no line: save the file with the line ends of Windows"
                                  : "a zero byte: Windows shows a text only up to it; is this a text file?",
                sLine));
        }
    }
}

// The characters that the code page lacks.
void SourceFile::checkWideLines()
{
    std::wstring_view sLine;
    for (unsigned line = 1; m_contents->nextWide(sLine); ++line) {
        const std::string sNarrow = Tesk::toNarrow(sLine);
        const std::wstring sBack = Tesk::toWide(sNarrow);
        const auto [lost, became] = std::mismatch(sLine.begin(), sLine.end(), sBack.begin(), sBack.end());
        if (lost == sLine.end())
            continue;
        const bool pair = (*lost & 0xFC00) == 0xD800 && lost + 1 != sLine.end();
        char sCode[16];
        std::snprintf(sCode, sizeof sCode, "U+%04X",
                      pair ? 0x10000U + ((*lost & 0x3FFU) << 10) + (lost[1] & 0x3FFU) : unsigned{*lost});
        const std::string sBefore = Tesk::toNarrow(std::wstring_view(sLine.begin(), lost));
        m_problems.push_back(problemAt(false, line, sBefore.size(),
                                       std::string(sCode) + " is not in the Windows code page: it becomes " +
                                           quoted(std::string_view(sNarrow).substr(sBefore.size(), pair ? 2 : 1)),
                                       sNarrow));
    }
}

const SourceFile& SourceFiles::get(const std::string& sPath, Form form)
{
    return m_files.try_emplace({sPath, form}, sPath, form).first->second;
}

Place placeOf(Layer layer, const std::string& sPath, std::vector<Problem>& problems)
{
    const bool found = Tesk::fileExists(sPath.c_str());
    if (const std::string sReason = found ? "" : whyClosed(sPath); !sReason.empty())
        problems.push_back({sPath, 0, 0, true, "the strip cannot open it: " + sReason, "", true});
    return {nameOf(layer), sPath, found, 0, false};
}

}  // namespace tabscheck
