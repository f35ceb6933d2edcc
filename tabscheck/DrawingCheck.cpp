#include "tabscheck/DrawingCheck.h"

#include "dxf/Drawing.h"
#include "library/drawing/ARXDrawingProperties.h"
#include "library/drawing/WorkingDatabase.h"
#include "library/expansion/ARXKeywordExpansion.h"
#include "library/files/DomainSettings.h"
#include "library/files/FileSearch.h"
#include "library/files/PathParts.h"
#include "library/files/SupportFileLocator.h"
#include "library/text/MultiByte.h"
#include "library/titleblock/ARXTitleBlock.h"
#include "settings/TooltipRule.h"
#include "tabscheck/Folders.h"
#include "tabscheck/LoadEntries.h"

#include <windows.h>

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

namespace tabscheck {

namespace {

// What is known of a drawing without its contents.
class KnownExpansion : public Tesk::CKeywordExpansion {
public:
    KnownExpansion(const std::string& sDrawing, const ProjectFindings& projects)
        : CKeywordExpansion(sDrawing.c_str(), 1, 1)
    {
        if (!projects.root.empty())
            addToMap("HALVORAN_PROJECT_LABEL", projects.label().c_str());
    }
};

Keywords keywordsOf(const Tesk::CKeywordExpansion& expansion)
{
    Keywords keywords;
    for (const auto& [sKeyword, sValue] : expansion.getKeywords())
        keywords.names.insert(sKeyword);
    return keywords;
}

// One drawing under way.
class Check {
public:
    Check(SourceFiles& files, const TextCheck& check, const TextFindings& texts, const ProjectFindings& projects,
          DrawingReport& report)
        : m_files(files), m_check(check), m_texts(texts), m_projects(projects), m_report(report)
    {
    }

    void run()
    {
        show();
        // Without a text there is no balloon.
        if (!m_report.tooltip.text.empty())
            m_report.tooltip.title = textOf("TooltipTitle");
    }

private:
    std::string textOf(const char* sKey) const { return m_texts.find(sKey)->value; }

    void show()
    {
        m_report.project.root = m_projects.root;
        m_report.project.label = m_projects.label();
        for (const ProjectFile* pFile : m_projects.files)
            m_report.project.searched.push_back(pFile->place);
        if (::GetFileAttributesA(m_report.path.c_str()) == INVALID_FILE_ATTRIBUTES) {
            showUnread();
            return;
        }
        try {
            dxf::Drawing drawing(dxf::DxfFile::read(m_report.path), m_report.path);
            if (!drawing.file().notRead().empty())
                showUnread();
            else
                showDrawing(drawing);
        } catch (const dxf::FileError& error) {
            m_report.unreadable = !Tesk::fileExists(m_report.path.c_str());
            chooseSource();
            m_report.problems.push_back({error.file(), static_cast<unsigned>(error.line()), error.line() != 0 ? 1U : 0U,
                                         true, "the drawing cannot be read: " + error.reason(), "", false});
        }
    }

    void showUnread()
    {
        chooseSource();
        showTemplate(KnownExpansion(m_report.path, m_projects), m_projects.files);
    }

    void showDrawing(dxf::Drawing& database)
    {
        const Tesk::CWorkingDatabase workingDatabase(&database);
        Tesk::CARXDrawingProperties properties(&database);
        const Tesk::CARXKeywordExpansion expansion(&database, m_report.path.c_str(), 1, 1);
        const auto& titleBlock = static_cast<const Tesk::CARXTitleBlock&>(*expansion.getTitleBlock());
        m_report.tooltip.contentsKnown = true;
        m_report.project.sourceIsCertain = true;
        chooseBorder(titleBlock);

        const TooltipRule rule = chooseTooltipRule(expansion, properties);
        if (rule == TooltipRule::Template) {
            showTemplate(expansion, {});
            checkMapping(titleBlock);
            return;
        }
        m_report.tooltip.rule = rule == TooltipRule::Title ? "title" : "default";
        m_report.tooltip.text =
            rule == TooltipRule::Title ? properties.getTitle().GetString() : textOf("DefaultTooltipText");
        checkTooltipText(expansion, m_projects.files);
    }

    void showTemplate(const Tesk::CKeywordExpansion& expansion, const std::vector<const ProjectFile*>& files)
    {
        m_report.tooltip.rule = "template";
        m_report.tooltip.text = expansion.expandString(textOf("TooltipText").c_str()).GetString();
        checkTooltipText(expansion, files);
    }

    // The file that the search for the title block stopped at; without one all files were
    // asked in vain.
    void chooseBorder(const Tesk::CTitleBlock& titleBlock)
    {
        const std::string sBlock = titleBlock.getBorderBlock().GetString();
        if (const ProjectFile* const pSource = m_projects.find(titleBlock.getSettingsFile().GetString()))
            return choose(*pSource, [&sBlock](const Border& border) { return border.block == sBlock; });
        std::vector<Border>& borders = m_report.project.borders;
        for (const ProjectFile* pFile : m_projects.files)
            borders.insert(borders.end(), pFile->borders.begin(), pFile->borders.end());
    }

    // Without the drawing's blocks: the first file that has borders is the one asked first.
    void chooseSource()
    {
        const auto& files = m_projects.files;
        const auto first =
            std::find_if(files.begin(), files.end(), [](const ProjectFile* pFile) { return !pFile->borders.empty(); });
        if (first != files.end())
            choose(**first, [](const Border&) { return true; });
    }

    template <class IsMeant>
    void choose(const ProjectFile& file, IsMeant isMeant)
    {
        Project& project = m_report.project;
        project.source = file.place.path;
        project.borders = file.borders;
        const auto border = std::find_if(project.borders.begin(), project.borders.end(), isMeant);
        if (border == project.borders.end())
            return;
        border->chosen = project.sourceIsCertain;
        project.mapping = file.mappings[border->group];
    }

    // Of the keys that the template shows, those whose attribute the border lacks.
    void checkMapping(const Tesk::CARXTitleBlock& titleBlock)
    {
        const std::string sTemplate = textOf("TooltipText");
        const std::vector<CString> tags = titleBlock.getTags();
        for (const Mapping& mapping : m_report.project.mapping) {
            if (std::find(tags.begin(), tags.end(), mapping.tag.c_str()) != tags.end() ||
                sTemplate.find("HALVORAN::" + mapping.key + "%") == std::string::npos)
                continue;
            const auto other = std::find_if(tags.begin(), tags.end(), [&mapping](const CString& sTag) {
                return sTag.CompareNoCase(mapping.tag.c_str()) == 0;
            });
            const std::string sHelp = other == tags.end() ? ""
                                                          : "; the drawing's is \"" + std::string(other->GetString()) +
                                                                "\", and the case of letters counts";
            const SourceFile& file = m_files.get(mapping.file, Form::Project);
            for (const Tesk::CProjectEntry& entry : file.project())
                if (entry.m_uLine == mapping.line)
                    m_report.problems.push_back(
                        file.problem(false, entry, Tesk::MultiByte::withoutQuotes(entry.m_sValue),
                                     "the drawing's border \"" + std::string(titleBlock.getBorderBlock().GetString()) +
                                         "\" has no attribute \"" + mapping.tag + "\": %HALVORAN::" + mapping.key +
                                         "% is empty" + sHelp));
        }
    }

    // Against the keywords that there are, and the mappings of these files.
    void checkTooltipText(const Tesk::CKeywordExpansion& expansion, const std::vector<const ProjectFile*>& files)
    {
        Keywords keywords = keywordsOf(expansion);
        for (const ProjectFile* pFile : files)
            for (const std::vector<Mapping>& mappings : pFile->mappings)
                for (const Mapping& mapping : mappings)
                    keywords.names.insert({"HALVORAN::" + mapping.key, "X_HALVORAN::" + mapping.key});
        m_check.checkTemplateOf(m_texts.find("TooltipText"), keywords, m_report.problems);
        m_check.checkTemplateOf(m_texts.find("SameNameText"), keywordsOfName(), m_report.problems);
    }

    // Those of any file, whose names are the same for all, and one of its own.
    const Keywords& keywordsOfName() const
    {
        static const Keywords keywords = [this] {
            Keywords ofFile = keywordsOf(Tesk::CKeywordExpansion(m_report.path.c_str(), 1, 1));
            ofFile.names.insert("DISTINCT_FOLDER");
            return ofFile;
        }();
        return keywords;
    }

    SourceFiles& m_files;
    const TextCheck& m_check;
    const TextFindings& m_texts;
    const ProjectFindings& m_projects;
    DrawingReport& m_report;
};

std::vector<DomainFolder> findDomainFolders(std::vector<Problem>& problems)
{
    std::vector<DomainFolder> folders;
    for (const auto& [sFolder, sKey] : Tesk::getDomainSettingsCandidates()) {
        const std::string sPath = Tesk::fullPath(sFolder.GetString());
        folders.push_back({sPath, Tesk::folderExists(sFolder), sKey.GetString()});
        if (!folders.back().found && !sFolder.IsEmpty() && !sKey.IsEmpty())
            problems.push_back({sKey.GetString(), 0, 0, true,
                                "the value \"Domain Settings\" names \"" + sPath + "\", which is not there", "", true});
    }
    return folders;
}

// File by file, in the order in which the files were read, and there line by line.
void sortByPlace(std::vector<Problem>& problems)
{
    std::map<std::string, std::size_t> order;
    for (const Problem& problem : problems)
        order.emplace(problem.file, order.size());
    std::stable_sort(problems.begin(), problems.end(), [&order](const Problem& one, const Problem& other) {
        return std::pair(order[one.file], one.line) < std::pair(order[other.file], other.line);
    });
}

bool isSettingsFile(const std::string& sPath)
{
    const std::string sExtension = Tesk::CPathParts(sPath).m_sExtension;
    return Tesk::MultiByte::equalNoCase(sExtension, ".ini") || Tesk::MultiByte::equalNoCase(sExtension, ".txt");
}

}  // namespace

DrawingCheck::DrawingCheck() : m_texts(m_files), m_projects(m_files), m_commonProblems(checkLoadEntries())
{
    m_domainFolders = findDomainFolders(m_commonProblems);
}

DrawingReport DrawingCheck::check(const std::string& sPath)
{
    DrawingReport report;
    report.path = sPath;
    if (isSettingsFile(sPath)) {
        checkSettingsFile(report);
    } else {
        const TextFindings& texts = m_texts.of(sPath);
        const ProjectFindings& projects = m_projects.of(sPath);
        report.domain = m_domainFolders;
        report.searched = texts.searched;
        report.texts = texts.texts;
        report.problems = texts.problems;
        const auto add = [&report](const std::vector<Problem>& problems) {
            report.problems.insert(report.problems.end(), problems.begin(), problems.end());
        };
        for (const ProjectFile* pFile : projects.files)
            add(pFile->problems);
        Check(m_files, m_texts, texts, projects, report).run();
        add(m_names.of(Tesk::CPathParts(sPath).parent(), projects.root));
        add(m_commonProblems);
    }
    sortByPlace(report.problems);
    return report;
}

void DrawingCheck::checkSettingsFile(DrawingReport& report)
{
    report.settingsFile = true;
    std::vector<Problem>& problems = report.problems;
    for (const Problem& problem : m_names.of(Tesk::CPathParts(report.path).parent(), m_projects.of(report.path).root))
        if (Tesk::MultiByte::equalNoCase(problem.file, report.path))
            problems.push_back(problem);
    if (!problems.empty())
        return;
    if (Tesk::MultiByte::equalNoCase(Tesk::CPathParts(report.path).m_sExtension, ".txt")) {
        problems = m_projects.get(Layer::Project, report.path).problems;
        return;
    }
    const TextFindings findings = m_texts.ofFile(report.path);
    problems = findings.problems;
    Keywords keywords = keywordsOf(KnownExpansion(report.path, m_projects.of(report.path)));
    keywords.names.insert({"DISTINCT_FOLDER", "HALVORAN_PROJECT_LABEL"});
    keywords.mappingKnown = false;
    for (const char* sKey : {"TooltipText", "SameNameText"})
        m_texts.checkTemplateOf(findings.find(sKey), keywords, problems);
}

}  // namespace tabscheck
