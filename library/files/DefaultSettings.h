#pragma once

// Settings read from text files: bracketed sections of key=value lines, kept as
// one table in which neither section names nor keys heed letter case.
//
// A line starting with ";" is a comment; there is no other comment, no quoting
// and no escaping. Keys before any section header, or after "[]", belong to the
// section of the empty name.

#include "library/files/DefaultSettingsException.h"
#include "library/files/SettingsEntries.h"
#include "library/text/CaseFold.h"
#include "mfc/afx.h"

#include <map>
#include <memory>
#include <string_view>
#include <vector>

namespace Tesk {

class CDefaultSettings {
public:
    // Reads the files in order; a later value replaces an earlier one of the
    // same section and key. Raises what readAFile raises. With bKeepLines the
    // key lines are kept as read, trimmed.
    CDefaultSettings(const std::vector<CString>& vFileNames, bool bKeepLines);

    CDefaultSettings(const CDefaultSettings&) = delete;
    CDefaultSettings& operator=(const CDefaultSettings&) = delete;

    // Adds one file. Raises CFileException when it cannot be read, and
    // CDefaultSettingsException at a key line without "="; what came before
    // that line stays.
    void readAFile(const char* sFileName);

    // The same, but of a file with such a line nothing stays.
    void readASoundFile(const char* sFileName);

    bool isDefined(const char* sSection, const char* sKey) const;

    // Raises CDefaultSettingsException when the section or the key is missing.
    // Good until the settings are gone or the key is set again.
    const CString& getValue(const char* sSection, const char* sKey) const;

    // The spelling of a section's or a key's first appearance stays.
    void setValue(const CString& sSection, const CString& sKey, const CString& sValue);

    // The table as lines, sections and keys in order; the keys of the section
    // without a name have no header.
    std::vector<CString> getContents() const;

    // The same to the trace, each line after that many tab characters.
    void traceContents(int iIndent) const;

    // Empty unless key lines are kept.
    const std::vector<CString>& getKeyLines() const { return m_vecKeyLines; }

private:
    using Keys = std::map<CString, CString, CLessNoCase>;
    using Sections = std::map<CString, Keys, CLessNoCase>;

    void read(const char* sFileName, bool bSoundOnly);
    void merge(const CSettingsEntry& entry);
    void mergeKey(const CSettingsEntry& entry);
    Keys& findOrAddSection(std::string_view sSection);
    static void assign(Keys& mapKeys, std::string_view sKey, CString sValue);

    Sections m_mapSections;
    std::vector<CString> m_vecKeyLines;
    bool m_bKeepLines;
    std::unique_ptr<CDefaultSettingsException> m_pCurrentException;
    CString m_sCurrentSection;
};

}  // namespace Tesk
