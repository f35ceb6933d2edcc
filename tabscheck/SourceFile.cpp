#include "tabscheck/SourceFile.h"

#include "library/diagnostics/ExceptionBase.h"
#include "library/text/CodePage.h"
#include "library/text/MultiByte.h"

#include <windows.h>

#include <algorithm>
#include <exception>

namespace tabscheck {

namespace {

constexpr std::string_view kDosLetters = "\x81\x82\x84\x8D\x94";  // u umlaut, which 1252 lacks, first
constexpr std::string_view kAccept = "tabscheck: accept ";

constexpr struct {
    std::string_view mark;
    const char* name;
    bool texts;  // the texts' reader knows it
    bool wide;   // no line of it can be read
} kMarks[] = {{"\xEF\xBB\xBF", "UTF-8", false, false},
              {"\xFE\xFF", "UTF-16, big-endian", false, true},
              {"\xFF\xFE", "UTF-16", true, true},
              {"", "UTF-16 without its mark", false, true}};  // known by the zero of its first letter

bool isHigh(char c) { return (c & 0x80) != 0; }

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// As UTF-8, where it is that and more than ASCII; else empty.
std::wstring decodeUtf8(std::string_view sText)
{
    if (std::none_of(sText.begin(), sText.end(), isHigh) || Tesk::MultiByte::CLeadBytes().any())
        return {};
    std::wstring sWide(sText.size(), L'\0');
    const int length = static_cast<int>(sText.size());
    const int count = ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, sText.data(), length, sWide.data(), length);
    sWide.resize(static_cast<std::size_t>(count));
    return sWide;
}

// A letter of code pages 437 and 850 that Windows' 1252 has as a sign of punctuation, or not
// at all, within a word.
std::size_t findDosLetter(std::string_view sLine)
{
    if (Tesk::getThreadCodePage() != 1252 || !decodeUtf8(sLine).empty())
        return sLine.npos;
    for (std::size_t at = sLine.find_first_of(kDosLetters); at != sLine.npos;
         at = sLine.find_first_of(kDosLetters, at + 1)) {
        const bool within = at > 0 && at + 1 < sLine.size() && isLetter(sLine[at - 1]) &&
                            (isLetter(sLine[at + 1]) || isHigh(sLine[at + 1]));
        if (within || sLine[at] == kDosLetters[0])
            return at;
    }
    return sLine.npos;
}

std::size_t findMergeMark(std::string_view sLine)
{
    const std::string_view sMark = sLine.substr(0, 7);
    const bool marked = sMark == "<<<<<<<" || sMark == "=======" || sMark == ">>>>>>>";
    return marked && (sLine.size() == 7 || sLine[7] == ' ') ? 0 : sLine.npos;
}

// What stands in no line that was written for Windows.
const struct {
    RuleName rule;
    std::size_t (*find)(std::string_view);
} kLineRules[] = {
    {"zero-byte", [](std::string_view sLine) { return sLine.find('\0'); }},
    {"lone-return", [](std::string_view sLine) { return sLine.find('\r'); }},
    {"merge-mark", findMergeMark},
    {"dos-letter", findDosLetter},
};

}  // namespace

SourceFile::SourceFile(const std::string& sPath, Form form) : m_path(sPath)
{
    try {
        read(form);
    } catch (CException* pException) {
        m_problems.push_back(problemOf("file-unread", m_path, {Tesk::takeExceptionText(pException).GetString()}));
    } catch (const std::exception&) {
        m_problems.push_back(problemOf("file-unread", m_path, {"it cannot be read: it is too large for the memory"}));
    }
}

void SourceFile::read(Form form)
{
    m_contents = std::make_unique<Tesk::CTextFileContents>(m_path.c_str(), form == Form::Texts);
    if (form == Form::Project) {
        m_project = Tesk::parseProject(*m_contents);
    } else {
        Tesk::CSettingsEntries entries(*m_contents);
        for (Tesk::CSettingsEntry entry; entries.next(entry);)
            m_texts.push_back(entry);
    }
    m_sound = std::none_of(m_texts.begin(), m_texts.end(),
                           [](const auto& entry) { return entry.m_kind == Tesk::CSettingsEntry::Damage; });
    checkMark(form);
    m_contents->rewind();
    if (!m_garbled)
        checkLines();
    m_contents->rewind();
    if (m_contents->isUnicode())
        checkWideLines();
}

Problem SourceFile::problemAt(RuleName name, unsigned line, std::size_t position, std::string_view sLine,
                              std::initializer_list<std::string_view> parts) const
{
    const auto column = static_cast<unsigned>(position + 1);
    return {m_path, line, column, name.rule(), wordsOf(*name.rule(), parts), std::string(sLine)};
}

void SourceFile::checkMark(Form form)
{
    const std::string_view sBytes = m_contents->getBytes();
    for (const auto& [mark, name, texts, wide] : kMarks) {
        const bool found = mark.empty() ? sBytes.size() > 1 && sBytes[1] == '\0' : sBytes.starts_with(mark);
        if (!found || (texts && form == Form::Texts))
            continue;
        m_garbled |= wide;
        m_explained.insert(1);
        m_problems.push_back(problemAt("encoding", 1, 0, sBytes.substr(0, sBytes.find_first_of("\r\n")),
                                       {name, form == Form::Project ? "ANSI" : "ANSI or as \"Unicode\""}));
    }
}

void SourceFile::checkLines()
{
    std::set<std::string_view> accepted;
    std::string_view sLine;
    unsigned line = 1;
    for (; m_contents->nextConverted(sLine); ++line) {
        const std::string_view sText = Tesk::MultiByte::trim(sLine);
        const bool comment = sText.starts_with(";") || Tesk::isCommentString(sText);
        if (const std::size_t at = sText.find(kAccept); comment && at != sText.npos) {
            std::string_view sNames = sText.substr(at + kAccept.size());
            while (!(sNames = Tesk::MultiByte::trim(sNames, " ,\t")).empty()) {
                const std::size_t end = std::min(sNames.find_first_of(" ,\t"), sNames.size());
                accepted.emplace(sNames.substr(0, end));
                sNames.remove_prefix(end);
            }
        } else if (!comment && !sText.empty()) {
            for (const std::string_view sName : accepted)
                m_accepted.insert({line, sName});
            accepted.clear();
        }
        checkLine(line, sLine);
    }
    if (m_contents->isCut())
        m_problems.push_back(problemAt("text-end", std::max(line, 2U) - 1, sLine.size(), sLine, {}));
}

// Each kind where it is seen first.
void SourceFile::checkLine(unsigned line, std::string_view sLine)
{
    for (const auto& [name, find] : kLineRules) {
        const std::size_t at = find(sLine);
        if (at == sLine.npos)
            continue;
        if (name.rule() == RuleName("merge-mark").rule())
            m_explained.insert(line);
        if (m_told.insert(name.rule()).second)
            m_problems.push_back(problemAt(name, line, at, sLine, {quoted(sLine.substr(at, 1))}));
    }
    const std::wstring sMeant = m_contents->isUnicode() || explained(line) ? std::wstring() : decodeUtf8(sLine);
    if (sMeant.empty() || !m_told.insert(RuleName("utf-8").rule()).second)
        return;
    const auto at = static_cast<std::size_t>(std::find_if(sLine.begin(), sLine.end(), isHigh) - sLine.begin());
    m_problems.push_back(
        problemAt("utf-8", line, at, sLine,
                  {quoted(Tesk::toNarrow(std::wstring_view(sMeant).substr(at, 20))), quoted(sLine.substr(at, 20))}));
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
        const std::size_t at = Tesk::toNarrow(std::wstring_view(sLine.begin(), lost)).size();
        m_problems.push_back(problemAt("letter-lost", line, at, sNarrow,
                                       {sCode, quoted(std::string_view(sNarrow).substr(at, pair ? 2 : 1))}));
    }
}

const SourceFile& SourceFiles::get(const std::string& sPath, Form form)
{
    return m_files.try_emplace(sPath, sPath, form).first->second;
}

void SourceFiles::removeAccepted(std::vector<Problem>& problems) const
{
    std::erase_if(problems, [this](const Problem& problem) {
        const auto found = m_files.find(problem.file);
        return found != m_files.end() && found->second.accepts(problem);
    });
}

Place SourceFiles::placeOf(Layer layer, const std::string& sPath, std::vector<Problem>& problems)
{
    const auto [known, fresh] = m_openings.try_emplace(sPath);
    if (fresh)
        known->second = tryToOpen(sPath);
    const auto& [opens, sReason] = known->second;
    if (!sReason.empty())
        problems.push_back(problemOf("file-closed", sPath, {sReason}));
    return {nameOf(layer), sPath, opens, 0, false};
}

}  // namespace tabscheck
