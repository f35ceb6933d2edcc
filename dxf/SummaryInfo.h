#pragma once

// A drawing's summary information: the API's object, and where a drawing keeps
// it. From R2004 on that is the header; before, an XRECORD named DWGPROPS in the
// named objects. Drawings older than that keep it in the header too.

#include "dxf/Memory.h"
#include "objectarx/acutads.h"
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

// A getter and a setter for each field.
#define SUMMARY_FIELD(FIELD) \
    Acad::ErrorStatus get##FIELD(char*& sValue) const override \
    { \
        return acutNewString(m_summary.fields[Summary::FIELD].c_str(), sValue); \
    } \
    Acad::ErrorStatus set##FIELD(const char* sValue) override \
    { \
        m_summary.fields[Summary::FIELD] = sValue == nullptr ? "" : sValue; \
        return Acad::eOk; \
    }
    SUMMARY_FIELD(Title)
    SUMMARY_FIELD(Subject)
    SUMMARY_FIELD(Author)
    SUMMARY_FIELD(Keywords)
    SUMMARY_FIELD(Comments)
    SUMMARY_FIELD(LastSavedBy)
    SUMMARY_FIELD(RevisionNumber)
    SUMMARY_FIELD(HyperlinkBase)
#undef SUMMARY_FIELD

    int numCustomInfo() const override { return static_cast<int>(m_summary.custom.size()); }
    Acad::ErrorStatus getCustomSummaryInfo(int iIndex, char*& sKey, char*& sValue) const override;
    Acad::ErrorStatus addCustomSummaryInfo(const char* sKey, const char* sValue) override;
    Acad::ErrorStatus deleteCustomSummaryInfo(int iIndex) override;

private:
    Summary m_summary;
    HandedOut m_handedOut;
};

}  // namespace dxf
