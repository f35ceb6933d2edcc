#include "library/drawing/ARXDrawingProperties.h"

#include "library/diagnostics/Prerelease.h"
#include "library/drawing/ObjectPointer.h"
#include "objectarx/summinfo.h"

#include <memory>

namespace Tesk {

namespace {

using CSummaryInfo = std::unique_ptr<AcDbDatabaseSummaryInfo>;

// Null when the host does not give it.
CSummaryInfo getSummaryInfo(AcDbDatabase* pDatabase)
{
    AcDbDatabaseSummaryInfo* pInfo = nullptr;
    const bool bSummaryInfo = pDatabase != nullptr && acdbGetSummaryInfo(pDatabase, pInfo) == Acad::eOk;
    TESK_ASSERT(bSummaryInfo);
    return CSummaryInfo(bSummaryInfo ? pInfo : nullptr);
}

using Getter = Acad::ErrorStatus (AcDbDatabaseSummaryInfo::*)(char*&) const;

void readField(const AcDbDatabaseSummaryInfo* pInfo, Getter getter, CString& sValue, const char* sCall)
{
    CDatabaseString sField;
    TESK_VERIFY_TEXT((pInfo->*getter)(sField.out()) == Acad::eOk, sCall);
    sValue = sField.text();
}

}  // namespace

CARXDrawingProperties::CARXDrawingProperties(AcDbDatabase* pDatabase) : m_pDatabase(pDatabase)
{
    CARXDrawingProperties::read();
}

void CARXDrawingProperties::read()
{
    TESK_ASSERT(m_pDatabase != NULL);
    m_mapCustomEntries.clear();
    if (const CSummaryInfo pInfo = getSummaryInfo(m_pDatabase)) {
        readFields(pInfo.get());
        readCustomEntries(pInfo.get());
    }
    m_bValid = true;
}

void CARXDrawingProperties::readFields(const AcDbDatabaseSummaryInfo* pInfo)
{
    using Info = AcDbDatabaseSummaryInfo;
    readField(pInfo, &Info::getHyperlinkBase, m_sHyperLink, "pInfo->getHyperlinkBase(szHyperLink) == Acad::eOk");
    readField(pInfo, &Info::getTitle, m_sTitle, "pInfo->getTitle(szTitle) == Acad::eOk");
    readField(pInfo, &Info::getSubject, m_sSubject, "pInfo->getSubject(szSubject) == Acad::eOk");
    readField(pInfo, &Info::getAuthor, m_sAuthor, "pInfo->getAuthor(szAuthor) == Acad::eOk");
    readField(pInfo, &Info::getComments, m_sComments, "pInfo->getComments(szComments) == Acad::eOk");
    readField(pInfo, &Info::getKeywords, m_sKeywords, "pInfo->getKeywords(szKeywords) == Acad::eOk");
    readField(pInfo, &Info::getLastSavedBy, m_sLastSavedBy, "pInfo->getLastSavedBy(szLastSavedBy) == Acad::eOk");
    readField(pInfo, &Info::getRevisionNumber, m_sRevisionNumber,
              "pInfo->getRevisionNumber(szRevisionNumber) == Acad::eOk");
}

void CARXDrawingProperties::readCustomEntries(const AcDbDatabaseSummaryInfo* pInfo)
{
    m_iNumberOfCustomEntries = pInfo->numCustomInfo();
    for (int i = 0; i < m_iNumberOfCustomEntries; ++i) {
        CDatabaseString sKey;
        CDatabaseString sValue;
        const bool bRead = pInfo->getCustomSummaryInfo(i, sKey.out(), sValue.out()) == Acad::eOk;
        TESK_ASSERT_TEXT(bRead, "pInfo->getCustomSummaryInfo(i, szKey, szValue) == Acad::eOk");
        if (bRead)
            m_mapCustomEntries.insert_or_assign(sKey.text(), sValue.text());
    }
    TESK_ASSERT_TEXT(m_mapCustomEntries.size() == static_cast<std::size_t>(m_iNumberOfCustomEntries),
                     "m_mapCustomEntries.size() == m_iNumberOfCustomEntries");
}

void CARXDrawingProperties::write()
{
    TESK_TRACE("CARXDrawingProperties::write()\n");
    TESK_ASSERT(m_pDatabase != NULL);
    TESK_ASSERT(m_bValid);
    const CSummaryInfo pInfo = getSummaryInfo(m_pDatabase);
    if (pInfo == nullptr)
        return;
    writeFields(pInfo.get());
    writeCustomEntries(pInfo.get());
    TESK_VERIFY_TEXT(::acdbPutSummaryInfo(pInfo.get(), m_pDatabase) == Acad::eOk,
                     "::acdbPutSummaryInfo(pInfo) == Acad::eOk");
}

void CARXDrawingProperties::writeFields(AcDbDatabaseSummaryInfo* pInfo)
{
    TESK_VERIFY(pInfo->setHyperlinkBase(m_sHyperLink) == Acad::eOk);
    TESK_VERIFY(pInfo->setTitle(m_sTitle) == Acad::eOk);
    TESK_VERIFY(pInfo->setSubject(m_sSubject) == Acad::eOk);
    TESK_VERIFY(pInfo->setAuthor(m_sAuthor) == Acad::eOk);
    TESK_VERIFY(pInfo->setComments(m_sComments) == Acad::eOk);
    TESK_VERIFY(pInfo->setKeywords(m_sKeywords) == Acad::eOk);
    TESK_VERIFY(pInfo->setLastSavedBy(m_sLastSavedBy) == Acad::eOk);
    TESK_VERIFY(pInfo->setRevisionNumber(m_sRevisionNumber) == Acad::eOk);
}

void CARXDrawingProperties::writeCustomEntries(AcDbDatabaseSummaryInfo* pInfo)
{
    for (int i = pInfo->numCustomInfo() - 1; i >= 0; --i)
        TESK_VERIFY(pInfo->deleteCustomSummaryInfo(i) == Acad::eOk);
    for (auto iterEntry = m_mapCustomEntries.begin(); iterEntry != m_mapCustomEntries.end(); ++iterEntry)
        TESK_VERIFY(pInfo->addCustomSummaryInfo((*iterEntry).first, (*iterEntry).second) == Acad::eOk);
    TESK_ASSERT_TEXT(m_mapCustomEntries.size() == static_cast<std::size_t>(pInfo->numCustomInfo()),
                     "m_mapCustomEntries.size() == pInfo->numCustomInfo()");
}

}  // namespace Tesk
