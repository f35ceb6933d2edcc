#pragma once

// The title block of an open drawing, found and read through its database.

#include "library/titleblock/ARXAttribute.h"
#include "library/titleblock/TitleBlock.h"

#include <map>
#include <vector>

class AcDbDatabase;

namespace Tesk {

class CARXTitleBlock : public CTitleBlock {
public:
    // Searches at once. The database stays the host's and must outlive this.
    CARXTitleBlock(AcDbDatabase* pDatabase, const char* sFileName);
    ~CARXTitleBlock() override;
    CARXTitleBlock(const CARXTitleBlock&) = delete;
    CARXTitleBlock& operator=(const CARXTitleBlock&) = delete;

    void findInstance(const char* sBorder) override;
    bool hasDefinition(const char* sBlockName) override;
    void readAttributes() override;
    CString getAttributeValue(const char* sTag) override;
    bool setAttributeValue(const char* sTag, const char* sValue) override;
    bool hasAttribute(const char* sTag) override;

    // Those of the instance.
    std::vector<CString> getTags() const;

private:
    // The id of the instance's block reference, by its handle; null without one.
    AcDbObjectId instanceId() const;
    // The id of the attribute with the tag; null when the instance has none.
    AcDbObjectId attributeId(const char* sTag) const;

    AcDbDatabase* m_pDatabase;
    CString m_sDrawingFileName;
    // By tag; of attributes with one tag, the last.
    std::map<CString, CARXAttribute> m_mapInstanceAttributes;
};

}  // namespace Tesk
