#pragma once

// One drawing after the other: what the strip finds and shows for it, and what is wrong; at
// the end, what is wrong with all of them.

#include "library/expansion/KeywordExpansion.h"
#include "library/titleblock/TitleBlock.h"
#include "tabscheck/ProjectCheck.h"
#include "tabscheck/Report.h"
#include "tabscheck/SourceFile.h"
#include "tabscheck/Strays.h"
#include "tabscheck/TextCheck.h"

#include <deque>
#include <map>
#include <string>
#include <vector>

namespace tabscheck {

// The keywords of one drawing after the other, as the strip's tooltips know them. What they
// share is looked up for the first of them alone.
class DrawingExpansion : public Tesk::CKeywordExpansion {
public:
    DrawingExpansion() : CKeywordExpansion("", 1, 1) {}

    // The keywords of another drawing; its file is opened for its time alone.
    void become(const std::string& sDrawing, const std::string& sProject, bool timeIsShown)
    {
        m_sFileName = sDrawing.c_str();
        m_sProjectFolder = sProject.c_str();
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

class DrawingCheck {
public:
    DrawingCheck();

    // The full path of a drawing, which need not exist.
    DrawingReport check(const std::string& sPath);
    // What is wrong with a settings file that was named.
    std::vector<Problem> checkFile(const std::string& sPath);
    // After the last drawing, what belongs to none of them alone; all drawings below these
    // folders were checked.
    std::vector<Problem> finish(const std::vector<std::string>& folders);

    Strays& strays() { return m_strays; }

private:
    friend class Check;

    // What all drawings of one have.
    struct Folder {
        std::string path;
        ProjectFindings projects;
        std::vector<Place> searched = {};
        const TextFindings* texts = nullptr;
    };
    const Folder& folderOf(const std::string& sDrawing);
    // A file of texts that was named, which may be meant for any drawing.
    std::vector<Problem> checkTexts(const std::string& sPath);

    // How many of a project's drawings hold one of its borders.
    struct Use {
        unsigned drawings = 0;
        unsigned held = 0;
    };

    SourceFiles m_files;
    TextCheck m_texts;
    ProjectCheck m_projects;
    Strays m_strays;
    DrawingExpansion m_expansion;           // of the last drawing
    std::deque<Folder> m_folders;           // with its own as the last
    std::vector<Problem> m_commonProblems;  // of the registry
    std::vector<DomainFolder> m_domainFolders;
    std::map<const ProjectFile*, Use> m_uses;
    // Of templates, by what they are and which title-block values there are.
    std::map<std::pair<const TextFindings*, std::string>, std::vector<Problem>> m_templates;
};

}  // namespace tabscheck
