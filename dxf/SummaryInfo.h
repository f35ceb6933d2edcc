#pragma once

// A drawing's summary information: the API's object, and where a drawing keeps
// it. From R2004 on that is the header; before, an XRECORD named DWGPROPS in the
// named objects. Drawings older than that keep it in the header too.

#include "dxf/Memory.h"
#include "objectarx/summinfo.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dxf {

class DxfFile;

struct Summary {
    // Custom stands for what all custom properties share.
    enum Field : std::size_t {
        Title,
        Subject,
        Author,
        Keywords,
        Comments,
        LastSavedBy,
        RevisionNumber,
        HyperlinkBase,
        Custom,
        None
    };

    std::array<std::string, Custom> fields;
    // In the drawing's order; a key may be there twice.
    std::vector<std::pair<std::string, std::string>> custom;

    bool operator==(const Summary&) const = default;
};

// What a header variable ("$TITLE") keeps, and the variable of a field.
std::size_t summaryField(std::string_view variable);
std::string_view summaryVariable(std::size_t field);
bool keepsSummaryInRecord(const DxfFile& file);
Summary readSummary(const DxfFile& file);

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
    Summary m_summary;
    HandedOut m_handedOut;
};

}  // namespace dxf
