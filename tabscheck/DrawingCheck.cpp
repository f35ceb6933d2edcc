#include "tabscheck/DrawingCheck.h"

#include "dxf/Drawing.h"
#include "library/drawing/ARXDrawingProperties.h"
#include "library/drawing/WorkingDatabase.h"
#include "library/expansion/ARXKeywordExpansion.h"
#include "library/files/DomainSettings.h"
#include "library/files/FileSearch.h"
#include "library/files/SupportFileLocator.h"
#include "library/titleblock/TitleBlock.h"
#include "settings/TooltipRule.h"
#include "tabscheck/Folders.h"
#include "tabscheck/LoadEntries.h"
#include "tabscheck/TemplateCheck.h"

#include <windows.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
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

// One drawing under way.
class Check {
public:
    Check(SourceFiles& files, const TextFindings& texts, const ProjectFindings& projects, DrawingReport& report)
        : m_files(files), m_texts(texts), m_projects(projects), m_report(report)
    {
    }

    void run()
    {
        m_report.tooltip.title = textOf("TooltipTitle");
        m_report.findings.project.root = m_projects.root;
        m_report.findings.project.label = m_projects.label();
        for (const ProjectFile* pFile : m_projects.files)
            m_report.findings.project.searched.push_back(pFile->place);
        if (::GetFileAttributesA(m_report.path.c_str()) == INVALID_FILE_ATTRIBUTES) {
            showTemplate();
            return;
        }
        m_report.unreadable = !Tesk::fileExists(m_report.path.c_str());
        try {
            dxf::Drawing drawing(dxf::DxfFile::read(m_report.path), m_report.path);
            if (drawing.file().contentsNotRead())
                showTemplate();
            else
                showDrawing(drawing);
        } catch (const dxf::FileError& error) {
            chooseSource(m_projects.files);
            addProblem({true, error.file(), static_cast<unsigned>(error.line()), error.line() != 0 ? 1U : 0U,
                        "the drawing cannot be read: " + error.reason(), ""});
        }
    }

private:
    std::string textOf(const char* sKey) const { return m_texts.find(sKey)->value(); }

    void showTemplate()
    {
        chooseSource(m_projects.files);
        const KnownExpansion expansion(m_report.path, m_projects);
        m_report.tooltip.rule = "template";
        m_report.tooltip.text = expansion.expandString(textOf("TooltipText").c_str()).GetString();
        checkTooltipText(expansion, m_projects.files);
    }

    void showDrawing(dxf::Drawing& database)
    {
        const Tesk::CWorkingDatabase workingDatabase(&database);
        Tesk::CARXDrawingProperties properties(&database);
        const Tesk::CARXKeywordExpansion expansion(&database, m_report.path.c_str(), 1, 1);
        Tesk::CTitleBlock& titleBlock = *expansion.getTitleBlock();
        m_report.tooltip.contentsKnown = true;
        m_report.findings.project.sourceIsCertain = true;
        chooseBorder(titleBlock);

        switch (chooseTooltipRule(expansion, properties)) {
        case TooltipRule::Template:
            m_report.tooltip.rule = "template";
            m_report.tooltip.text = expansion.expandString(textOf("TooltipText").c_str()).GetString();
            checkMapping(titleBlock);
            checkTooltipText(expansion, {});
            break;
        case TooltipRule::Title:
            m_report.tooltip.rule = "title";
            m_report.tooltip.text = properties.getTitle().GetString();
            checkTooltipText(expansion, m_projects.files);
            break;
        default:
            m_report.tooltip.rule = "default";
            m_report.tooltip.text = textOf("DefaultTooltipText");
            checkTooltipText(expansion, m_projects.files);
        }
    }

    // The file that the search for the title block stopped at; without one all files were
    // asked in vain.
    void chooseBorder(const Tesk::CTitleBlock& titleBlock)
    {
        Project& project = m_report.findings.project;
        const ProjectFile* pSource = m_projects.find(titleBlock.getSettingsFile().GetString());
        if (pSource == nullptr) {
            for (const ProjectFile* pFile : m_projects.files)
                addBorders(*pFile);
            return;
        }
        project.source = pSource->place.path;
        addBorders(*pSource);
        for (const ProjectFile::Group& group : pSource->groups) {
            const auto found = std::find_if(group.borders.begin(), group.borders.end(), [&](const Border& border) {
                return border.block == titleBlock.getBorderBlock().GetString();
            });
            if (found == group.borders.end())
                continue;
            for (Border& border : project.borders)
                border.chosen = border == *found;
            project.mapping = group.mapping;
            return;
        }
    }

    // Without the drawing's blocks: the first file that has borders is the one asked first.
    void chooseSource(const std::vector<const ProjectFile*>& files)
    {
        Project& project = m_report.findings.project;
        for (const ProjectFile* pFile : files) {
            const auto first = std::find_if(pFile->groups.begin(), pFile->groups.end(),
                                            [](const ProjectFile::Group& group) { return !group.borders.empty(); });
            if (first == pFile->groups.end())
                continue;
            addBorders(*pFile);
            project.source = pFile->place.path;
            project.mapping = first->mapping;
            return;
        }
    }

    void addBorders(const ProjectFile& file)
    {
        for (const ProjectFile::Group& group : file.groups)
            m_report.findings.project.borders.insert(m_report.findings.project.borders.end(), group.borders.begin(),
                                                     group.borders.end());
    }

    void checkMapping(Tesk::CTitleBlock& titleBlock)
    {
        for (const Mapping& mapping : m_report.findings.project.mapping) {
            if (titleBlock.hasAttribute(mapping.tag.c_str()))
                continue;
            const SourceFile& file = m_files.get(mapping.file, Reading::Ansi);
            const std::string& sLine = file.line(mapping.line);
            const std::size_t tag = sLine.rfind(mapping.tag);
            addProblem(file.problem(false, mapping.line, tag == std::string::npos ? firstWord(sLine) : tag,
                                    "the drawing's border \"" + std::string(titleBlock.getBorderBlock().GetString()) +
                                        "\" has no attribute \"" + mapping.tag + "\": %HALVORAN::" + mapping.key +
                                        "% is empty"));
        }
    }

    // Against the keywords that there are, and the mappings of these files.
    void checkTooltipText(const Tesk::CKeywordExpansion& expansion, const std::vector<const ProjectFile*>& files)
    {
        const Text& text = *m_texts.find("TooltipText");
        if (text.settings.empty())
            return;
        std::set<std::string> keywords;
        for (const auto& [sKeyword, sValue] : expansion.getKeywords())
            keywords.insert(sKeyword);
        for (const ProjectFile* pFile : files)
            for (const ProjectFile::Group& group : pFile->groups)
                for (const Mapping& mapping : group.mapping)
                    keywords.insert({"HALVORAN::" + mapping.key, "X_HALVORAN::" + mapping.key});

        const Setting& setting = text.settings.front();
        const SourceFile& file = m_files.get(setting.file, Reading::Detecting);
        const std::string& sLine = file.line(setting.line);
        const std::size_t value = sLine.find(setting.value, sLine.find('='));
        for (const TemplateFault& fault : checkTemplate(setting.value, keywords))
            addProblem(file.problem(fault.error, setting.line, value + fault.position, fault.text));
    }

    void addProblem(Problem problem) { m_report.findings.problems.push_back(std::move(problem)); }

    SourceFiles& m_files;
    const TextFindings& m_texts;
    const ProjectFindings& m_projects;
    DrawingReport& m_report;
};

std::vector<Place> findDomainFolders()
{
    std::vector<Place> folders;
    for (const CString& sCandidate : Tesk::getDomainSettingsCandidates())
        folders.push_back({Layer::Domain, fullPath(sCandidate.GetString()), Tesk::folderExists(sCandidate)});
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

}  // namespace

DrawingCheck::DrawingCheck()
    : m_texts(m_files), m_projects(m_files), m_domainFolders(findDomainFolders()), m_loadProblems(checkLoadEntries())
{
}

DrawingReport DrawingCheck::check(const std::string& sDrawing)
{
    DrawingReport report;
    report.path = sDrawing;
    const TextFindings& texts = m_texts.of(sDrawing);
    const ProjectFindings projects = m_projects.of(sDrawing);
    Findings& findings = report.findings;
    findings.domainFolders = m_domainFolders;
    findings.searched = texts.searched;
    findings.texts = texts.texts;
    findings.problems = texts.problems;
    for (const ProjectFile* pFile : projects.files)
        findings.problems.insert(findings.problems.end(), pFile->problems.begin(), pFile->problems.end());
    Check(m_files, texts, projects, report).run();
    findings.problems.insert(findings.problems.end(), m_loadProblems.begin(), m_loadProblems.end());
    sortByPlace(findings.problems);
    return report;
}

}  // namespace tabscheck
