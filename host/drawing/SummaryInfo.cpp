#include "host/drawing/SummaryInfo.h"

#include "host/drawing/Database.h"
#include "host/drawing/Faults.h"

#include "objectarx/dbapserv.h"

namespace host {

// A getter and a setter for each field.
#define SUMMARY_FIELD(FIELD) \
    Acad::ErrorStatus SummaryInfo::get##FIELD(char*& sValue) const \
    { \
        return get("AcDbDatabaseSummaryInfo::get" #FIELD, Summary::FIELD, sValue); \
    } \
    Acad::ErrorStatus SummaryInfo::set##FIELD(const char* sValue) \
    { \
        return set("AcDbDatabaseSummaryInfo::set" #FIELD, Summary::FIELD, sValue); \
    }

SUMMARY_FIELD(Title)
SUMMARY_FIELD(Subject)
SUMMARY_FIELD(Author)
SUMMARY_FIELD(Keywords)
SUMMARY_FIELD(Comments)
SUMMARY_FIELD(LastSavedBy)
SUMMARY_FIELD(RevisionNumber)
SUMMARY_FIELD(HyperlinkBase)

Acad::ErrorStatus SummaryInfo::get(const char* sCall, Summary::Field field, char*& sValue) const
{
    sValue = nullptr;
    return Faults::hit(sCall) ? Acad::eOutOfMemory : acutNewString(m_summary.fields[field].c_str(), sValue);
}

Acad::ErrorStatus SummaryInfo::set(const char* sCall, Summary::Field field, const char* sValue)
{
    if (Faults::hit(sCall))
        return Acad::eInvalidInput;
    m_summary.fields[field] = sValue == nullptr ? "" : sValue;
    return Acad::eOk;
}

int SummaryInfo::numCustomInfo() const
{
    return Faults::hit("AcDbDatabaseSummaryInfo::numCustomInfo") ? 0 : static_cast<int>(m_summary.custom.size());
}

Acad::ErrorStatus SummaryInfo::getCustomSummaryInfo(int iIndex, char*& sKey, char*& sValue) const
{
    sKey = sValue = nullptr;
    if (Faults::hit("AcDbDatabaseSummaryInfo::getCustomSummaryInfo"))
        return Acad::eOutOfMemory;
    if (iIndex < 0 || iIndex >= std::ssize(m_summary.custom))
        return Acad::eInvalidIndex;
    const auto& [sName, sText] = m_summary.custom[static_cast<std::size_t>(iIndex)];
    Acad::ErrorStatus status = acutNewString(sName.c_str(), sKey);
    if (status == Acad::eOk)
        status = acutNewString(sText.c_str(), sValue);
    if (status != Acad::eOk)
        acutDelString(sKey);
    return status;
}

Acad::ErrorStatus SummaryInfo::addCustomSummaryInfo(const char* sKey, const char* sValue)
{
    if (Faults::hit("AcDbDatabaseSummaryInfo::addCustomSummaryInfo"))
        return Acad::eOutOfMemory;
    if (sKey == nullptr || *sKey == '\0')
        return Acad::eInvalidKey;
    m_summary.custom.emplace_back(sKey, sValue == nullptr ? "" : sValue);
    return Acad::eOk;
}

Acad::ErrorStatus SummaryInfo::deleteCustomSummaryInfo(int iIndex)
{
    if (Faults::hit("AcDbDatabaseSummaryInfo::deleteCustomSummaryInfo") || iIndex < 0 ||
        iIndex >= std::ssize(m_summary.custom))
        return Acad::eInvalidIndex;
    m_summary.custom.erase(m_summary.custom.begin() + iIndex);
    return Acad::eOk;
}

Acad::ErrorStatus Database::setSummaryField(const std::string& sField, const std::string& sValue)
{
    Summary summary = readSummary(*this);
    for (int i = 0; i < Summary::Count; ++i)
        if (sameName(sField, summaryFieldName(i))) {
            summary.fields[static_cast<std::size_t>(i)] = sValue;
            return writeSummary(*this, summary);
        }
    for (auto& [sKey, sOld] : summary.custom)
        if (sKey == sField) {
            sOld = sValue;
            return writeSummary(*this, summary);
        }
    summary.custom.emplace_back(sField, sValue);
    return writeSummary(*this, summary);
}

}  // namespace host

Acad::ErrorStatus acdbGetSummaryInfo(AcDbDatabase* pDatabase, AcDbDatabaseSummaryInfo*& pInfo)
{
    pInfo = nullptr;
    if (host::Faults::hit("acdbGetSummaryInfo"))
        return Acad::eOutOfMemory;
    if (pDatabase == nullptr)
        return Acad::eInvalidInput;
    pInfo = new host::SummaryInfo(host::readSummary(*host::Database::of(pDatabase)));
    return Acad::eOk;
}

Acad::ErrorStatus acdbPutSummaryInfo(const AcDbDatabaseSummaryInfo* pInfo, AcDbDatabase* pDatabase)
{
    if (host::Faults::hit("acdbPutSummaryInfo"))
        return Acad::eInvalidInput;
    if (pDatabase == nullptr)
        pDatabase = acdbHostApplicationServices()->workingDatabase();
    if (pInfo == nullptr)
        return Acad::eInvalidInput;
    if (pDatabase == nullptr)
        return Acad::eNoDatabase;
    return host::writeSummary(*host::Database::of(pDatabase), static_cast<const host::SummaryInfo*>(pInfo)->summary());
}
