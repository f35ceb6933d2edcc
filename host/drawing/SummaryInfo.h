#pragma once

// A drawing's summary information: the API's object, and where a drawing keeps
// it. From R2004 on that is the header; before, an XRECORD named DWGPROPS in the
// named objects, which holds ten custom properties at most. Drawings older than
// that keep it in the header too.

#include "objectarx/summinfo.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace host {

class Database;

struct Summary {
    enum Field { Title, Subject, Author, Keywords, Comments, LastSavedBy, RevisionNumber, HyperlinkBase, Count };

    std::array<std::string, Count> fields;
    // In the drawing's order; a key may be there twice.
    std::vector<std::pair<std::string, std::string>> custom;

    bool operator==(const Summary&) const = default;
};

// The name of a field without the "$": "TITLE" and so on.
const char* summaryFieldName(int field);

Summary readSummary(const Database& database);
// One undo step; nothing happens when nothing differs. eInvalidInput when the
// drawing cannot hold so many custom properties.
Acad::ErrorStatus writeSummary(Database& database, const Summary& summary);

class SummaryInfo final : public AcDbDatabaseSummaryInfo {
public:
    explicit SummaryInfo(Summary summary) : m_summary(std::move(summary)) {}

    const Summary& summary() const { return m_summary; }

    Acad::ErrorStatus getTitle(char*& sValue) const override;
    Acad::ErrorStatus getSubject(char*& sValue) const override;
    Acad::ErrorStatus getAuthor(char*& sValue) const override;
    Acad::ErrorStatus getKeywords(char*& sValue) const override;
    Acad::ErrorStatus getComments(char*& sValue) const override;
    Acad::ErrorStatus getLastSavedBy(char*& sValue) const override;
    Acad::ErrorStatus getRevisionNumber(char*& sValue) const override;
    Acad::ErrorStatus getHyperlinkBase(char*& sValue) const override;

    Acad::ErrorStatus setTitle(const char* sValue) override;
    Acad::ErrorStatus setSubject(const char* sValue) override;
    Acad::ErrorStatus setAuthor(const char* sValue) override;
    Acad::ErrorStatus setKeywords(const char* sValue) override;
    Acad::ErrorStatus setComments(const char* sValue) override;
    Acad::ErrorStatus setLastSavedBy(const char* sValue) override;
    Acad::ErrorStatus setRevisionNumber(const char* sValue) override;
    Acad::ErrorStatus setHyperlinkBase(const char* sValue) override;

    int numCustomInfo() const override;
    Acad::ErrorStatus getCustomSummaryInfo(int iIndex, char*& sKey, char*& sValue) const override;
    Acad::ErrorStatus addCustomSummaryInfo(const char* sKey, const char* sValue) override;
    Acad::ErrorStatus deleteCustomSummaryInfo(int iIndex) override;

private:
    Acad::ErrorStatus get(const char* sCall, Summary::Field field, char*& sValue) const;
    Acad::ErrorStatus set(const char* sCall, Summary::Field field, const char* sValue);

    Summary m_summary;
};

}  // namespace host
