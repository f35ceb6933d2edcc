#pragma once

// Which border block carries a drawing's job data, and that data under the names that
// the settings files give it. How to look into the drawing is the derived class's part.

#include "library/files/SettingsFile.h"
#include "mfc/afx.h"

#include <map>
#include <set>

namespace Tesk {

class CTitleBlock {
public:
    // A derived class runs search() in its constructor.
    explicit CTitleBlock(const char* sFileName);
    virtual ~CTitleBlock();

    // Finds the definition, in the settings files, and its first instance, in the drawing.
    void search();

    // Whether the drawing holds an instance; searches again while none is known.
    const bool& searchForInstance();
    // What the last search found.
    bool hasInstance() const { return m_bInstance; }
    // Whether a project settings file was read; search() must have been run.
    const bool& isProject();
    // There must be a project settings file.
    const CString& getProjectLabel();

    // The settings file that defines the drawing's border, and the border's block; empty
    // when no file defines one that the drawing has.
    const CString& getSettingsFile() const { return m_sSettingsFile; }
    const CString& getBorderBlock() const { return m_sBorderBlock; }

    // For these there must be an instance.
    // Mapping key to attribute tag.
    const std::map<CString, CString>& getMap();
    std::set<CString> getMapKeys();
    // The attribute's present value; empty for an unknown key or a missing attribute.
    CString get(const char* sKey);

    // Remembers the handle of the first reference of the block, if there is one.
    virtual void findInstance(const char* sBorder) = 0;
    // Whether the drawing has the block.
    virtual bool hasDefinition(const char* sBlockName) = 0;
    // Collects the attributes of the instance that was found.
    virtual void readAttributes() = 0;
    // Empty for an unknown tag.
    virtual CString getAttributeValue(const char* sTag) = 0;
    // False when the tag is unknown or the attribute cannot be changed.
    virtual bool setAttributeValue(const char* sTag, const char* sValue) = 0;
    virtual bool hasAttribute(const char* sTag) = 0;

private:
    // Tries the project's settings file, the domain's and the standard one; true when
    // one of them defines a title block of this drawing.
    bool getMapping();
    bool getMappingFromFile(const char* sFile, bool bProject);
    // Takes the first border entry whose block the drawing has.
    bool chooseBorder();

protected:
    bool m_bSearch = false;
    bool m_bProject = false;
    bool m_bDefinition = false;
    bool m_bInstance = false;
    CString m_sHandle;  // of the instance, in hexadecimal

private:
    CSettingsFile m_settings;
    CString m_sFileName;
    CString m_sProjectLabel;
    CString m_sSettingsFile;
    CString m_sBorderBlock;
    CString m_sBorder;  // the category of the title block that was chosen
    std::map<CString, CString> m_mapAttributes;
};

}  // namespace Tesk
