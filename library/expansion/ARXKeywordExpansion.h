#pragma once

// Keyword expansion for an open drawing: adds the values of its title block, as
// HALVORAN:: and the mapping key, and its project's label, as HALVORAN_PROJECT_LABEL.

#include "library/expansion/KeywordExpansion.h"

#include <boost/shared_ptr.hpp>

#include <map>

class AcDbDatabase;

namespace Tesk {

class CTitleBlock;

class CARXKeywordExpansion : public CKeywordExpansion {
public:
    // The database must be the working one now, and stays the host's. It is read here
    // and never again: a new object sees what changes later.
    CARXKeywordExpansion(AcDbDatabase* pDatabase, const char* sFileName, int iIndex, int iCount);
    // Without a drawing there is no title block; the base's keywords are all.
    CARXKeywordExpansion(const char* sFileName, int iIndex, int iCount);
    // Copies share the title block.
    CARXKeywordExpansion(const CARXKeywordExpansion&) = default;
    CARXKeywordExpansion& operator=(const CARXKeywordExpansion&) = default;
    ~CARXKeywordExpansion() override;

    // Texts to be replaced in every title-block value. Once, before the keywords are
    // built, which the constructor does.
    void setSubstitutions(const std::map<CString, CString>& mapSubstitutions);

    // The drawing held an instance of its title block when this was built.
    const bool& hasTitleInstance() const { return m_bTitleInstance; }
    // Null without a drawing; shared with the copies of this.
    CTitleBlock* getTitleBlock() const { return m_pTitle.get(); }

protected:
    void buildFileMappings() override;

private:
    void createTitleBlock();
    void buildHalvoranMappings();
    CString applySubstitutions(const CString& sValue) const;

    AcDbDatabase* m_pDatabase = nullptr;
    std::map<CString, CString> m_mapSubstitutions;
    boost::shared_ptr<CTitleBlock> m_pTitle;
    bool m_bHalvoranMappingsBuilt = false;
    bool m_bHasTitleAttributes = false;
    bool m_bHalvoranSubstitutions = false;
    bool m_bTitleInstance = false;
};

}  // namespace Tesk
