#pragma once

// Writes the records of new objects as the drawing's version wants them: with
// or without handles, owners and subclass marks.

#include "host/drawing/Database.h"

#include <string>
#include <string_view>
#include <vector>

namespace host {

class EntityText {
public:
    // The tags that every entity begins with.
    EntityText(Database& database, std::string_view type, unsigned long long owner);

    unsigned long long handle() const { return m_handle; }
    EntityText& add(int code, std::string_view value);
    EntityText& add(int code, double value);
    // As it is, in the file's bytes.
    EntityText& addRaw(std::string_view tagText);
    // A subclass mark, left out in versions that have none.
    EntityText& mark(std::string_view subclass);
    const std::string& text() const { return m_sText; }

private:
    const DxfFile& m_file;
    bool m_marks;
    unsigned long long m_handle;
    std::string m_sText;
};

std::string handleText(unsigned long long handle);
bool hasSubclassMarks(const Database& database);

// The record that ends the section: new records go before it. A section that the
// file lacks is added, as part of the edit under way.
DxfRecord& endOfSection(Database& database, std::string_view name);
// The record of the group that begins with the given one (an insert with its
// attributes, a block with its contents), itself first.
std::vector<DxfRecord*> recordsOf(DxfRecord& first);
// The header's text with other values in the entry's tags.
std::string withValues(const DxfRecord& header, const HeaderEntry& entry, const std::vector<std::string>& values);
// Writes the seed of new handles into the header, where the file has one.
void updateHandleSeed(Database& database);

}  // namespace host
