#include "library/files/SettingsEntries.h"

#include "library/diagnostics/Prerelease.h"
#include "library/text/MultiByte.h"

namespace Tesk {

using MultiByte::trim;

namespace {

constexpr char cSectionOpen = '[';
constexpr char kSectionClose = ']';
constexpr char kComment = ';';
constexpr char kEquals = '=';

// How many "]" the text ends in. It is read from its start, as "]" may be the
// second byte of a double-byte character.
std::size_t countClosing(std::string_view sText)
{
    const MultiByte::CLeadBytes lead;
    std::size_t count = 0;
    for (std::size_t i = 0; i < sText.size(); i = lead.next(sText, i))
        count = sText[i] == kSectionClose ? count + 1 : 0;
    return count;
}

void parseHeader(std::string_view sLine, CSettingsEntry& entry)
{
    TESK_ASSERT(sLine[0] == cSectionOpen);
    const std::size_t closing = countClosing(sLine);
    entry.m_kind = closing == 0 ? CSettingsEntry::IgnoredHeader : CSettingsEntry::Section;
    sLine.remove_suffix(closing);
    const std::size_t first = sLine.find_first_not_of(cSectionOpen);
    entry.m_sKey = first == sLine.npos ? std::string_view() : sLine.substr(first);
}

void parseKey(std::string_view sLine, CSettingsEntry& entry)
{
    const std::size_t equals = sLine.find(kEquals);
    if (equals == sLine.npos) {
        entry.m_kind = CSettingsEntry::Damage;
        return;
    }
    entry.m_sKey = trim(sLine.substr(0, equals));
    entry.m_sValue = trim(sLine.substr(equals + 1));
}

}  // namespace

bool CSettingsEntries::next(CSettingsEntry& entry)
{
    for (std::string_view sLine; m_contents.nextConverted(sLine);) {
        ++m_uLine;
        const std::string_view sText = trim(sLine);
        if (sText.empty() || sText[0] == kComment)
            continue;
        entry = {CSettingsEntry::Key, m_uLine, sLine, {}, {}};
        if (sText[0] == cSectionOpen)
            parseHeader(sText, entry);
        else
            parseKey(sText, entry);
        return true;
    }
    return false;
}

}  // namespace Tesk
