#pragma once

// The keywords of one drawing after the other, as the strip's tooltips know them. What the
// drawings of a folder share is looked up for the first of them alone.

#include "library/expansion/KeywordExpansion.h"
#include "library/titleblock/TitleBlock.h"

#include <map>
#include <string>

namespace tabscheck {

class DrawingExpansion : public Tesk::CKeywordExpansion {
public:
    explicit DrawingExpansion(const std::string& sDrawing) : CKeywordExpansion(sDrawing.c_str(), 1, 1) {}

    // The keywords of another drawing of the folder; its file is opened for its time alone.
    void become(const std::string& sDrawing, bool timeIsShown)
    {
        m_sFileName = sDrawing.c_str();
        std::erase_if(m_mapKeywords, [](const auto& one) { return one.first.find("HALVORAN") != std::string::npos; });
        buildFileMappings();
        m_bFileTimeValid = false;
        if (timeIsShown)
            readFileTime();
    }

    void addTitleBlock(Tesk::CTitleBlock& titleBlock)
    {
        if (titleBlock.hasInstance())
            for (const CString& sKey : titleBlock.getMapKeys())
                addToMap("HALVORAN::" + sKey, titleBlock.get(sKey));
        if (titleBlock.isProject())
            addLabel(titleBlock.getProjectLabel());
    }
    void addLabel(const char* sLabel) { addToMap("HALVORAN_PROJECT_LABEL", sLabel); }
};

}  // namespace tabscheck
