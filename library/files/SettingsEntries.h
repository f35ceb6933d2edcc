#pragma once

// What the lines of a settings file say, before anything is made of it.

#include "library/files/TextFileContents.h"

#include <cstdint>
#include <string_view>

namespace Tesk {

struct CSettingsEntry {
    enum Kind {
        Section,
        IgnoredHeader,  // it does not end in "]"
        Key,
        Damage  // a line without "="
    };
    Kind m_kind;
    uint32_t m_uLine;           // from 1; empty lines and comments count
    std::string_view m_sLine;   // as read
    std::string_view m_sKey;    // trimmed; of a section its name, without brackets
    std::string_view m_sValue;  // trimmed
};

// The entries in the order of the lines, good while the contents are.
class CSettingsEntries {
public:
    explicit CSettingsEntries(CTextFileContents& contents) : m_contents(contents) {}

    // False at the end of the file.
    bool next(CSettingsEntry& entry);

private:
    CTextFileContents& m_contents;
    uint32_t m_uLine = 0;
};

}  // namespace Tesk
