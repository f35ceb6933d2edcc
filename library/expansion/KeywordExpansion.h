#pragma once

// Turns templates such as "%FILENAME% (%DRAWING_INDEX%/%DRAWING_COUNT%)" into text for one
// drawing. The table of keywords is filled once, at construction; a later save or rename is
// seen by a new object alone.

#include "library/expansion/KeywordPass.h"
#include "mfc/afx.h"

#include <stdlib.h>

#include <optional>
#include <string>

namespace Tesk {

class CKeywordExpansion {
public:
    // `sFileName` is the drawing's full name; empty leaves out the file's keywords.
    CKeywordExpansion(const char* sFileName, int iIndex, int iCount);
    virtual ~CKeywordExpansion();
    CKeywordExpansion(const CKeywordExpansion&) = default;
    CKeywordExpansion& operator=(const CKeywordExpansion&) = default;

    // The template with its tokens (sStart + keyword + sEnd) replaced: first the table's
    // keywords in their order, then the date keywords. An empty sEnd stands for sStart.
    // Unknown tokens, and date tokens without a valid time, stay.
    CString expandString(const char* sInput, const char* sStart, const char* sEnd) const;

    // The same for tokens that read %KEYWORD%.
    CString expandString(const char* sInput) const;

    // By keyword, without delimiters; dates are not among them.
    const KeywordMap& getKeywords() const { return m_mapKeywords; }

protected:
    // The constructor runs this class's own versions; a derived class that overrides one
    // calls it again at the end of its constructor.
    virtual void buildFileMappings();
    virtual void buildLocationMappings();
    virtual void buildSystemMappings();

    // Stores the value under the keyword and, with "\" turned into "/", under "X_" +
    // keyword. A null value counts as empty.
    void addToMap(const char* sKey, const char* sValue);
    void addIntToMap(const char* sKey, int iValue);
    void readFileTime();

private:
    std::string expandDates(std::string sText, const char* sStart, const char* sEnd) const;
    std::string expandFileDates(std::string sText, const char* sStart, const char* sEnd) const;
    std::string expandCurrentDates(std::string sText, const char* sStart, const char* sEnd) const;

protected:
    CString m_sFileName;
    KeywordMap m_mapKeywords;
    bool m_bCurrentTimeValid = false;
    bool m_bFileTimeValid = false;
    int m_iCount;
    int m_iIndex;
    __time64_t m_timeFile = 0;     // the file's last write
    __time64_t m_timeCurrent = 0;  // the object's construction
    // Looked up, like the file's time, the first time that buildFileMappings runs.
    std::optional<CString> m_sProjectFolder;
};

}  // namespace Tesk
