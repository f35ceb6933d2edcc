#include "tabscheck/DrawingCheck.h"

#include "dxf/Drawing.h"
#include "library/drawing/ARXDrawingProperties.h"
#include "library/drawing/WorkingDatabase.h"
#include "library/files/FileSearch.h"
#include "library/files/PathParts.h"
#include "library/text/MultiByte.h"
#include "library/titleblock/ARXTitleBlock.h"
#include "tabscheck/Registry.h"

#include <windows.h>

#include <algorithm>

namespace tabscheck {

namespace {

using Tesk::MultiByte::equalNoCase;

constexpr const char* kLabel = "HALVORAN_PROJECT_LABEL";
constexpr const char* kForwardLabel = "X_HALVORAN_PROJECT_LABEL";
constexpr const char* kFolder = "DISTINCT_FOLDER";

// With those of title blocks, or as SameNameText knows them.
Keywords keywordsOf(const Tesk::CKeywordExpansion& expansion, bool titleBlocks)
{
    Keywords keywords;
    for (const auto& [sKeyword, sValue] : expansion.getKeywords())
        if (titleBlocks || sKeyword.find("HALVORAN") == sKeyword.npos)
            keywords.names.insert(sKeyword);
    if (titleBlocks) {
        keywords.lost[kFolder] = "it is for SameNameText alone";
        return keywords;
    }
    keywords.names.insert(kFolder);
    for (const char* sName : {"HALVORAN", kLabel, kForwardLabel})
        keywords.lost[sName] = "SameNameText knows nothing of title blocks";
    return keywords;
}

void append(std::vector<Problem>& problems, const std::vector<Problem>& others)
{
    problems.insert(problems.end(), others.begin(), others.end());
}

}  // namespace

// One drawing under way.
class Check {
public:
    Check(DrawingCheck& all, DrawingReport& report)
        : m_all(all),
          m_folder(all.folderOf(report.path)),
          m_texts(*m_folder.texts),
          m_projects(m_folder.projects),
          m_expansion(all.m_expansion),
          m_report(report)
    {
        const bool timeIsShown = m_texts.valueOf("TooltipText").find("UPDATE_DATE") != std::string::npos;
        m_expansion.become(report.path, m_projects.root, timeIsShown);
    }

    void run()
    {
        m_report.searched = &m_folder.searched;
        m_report.texts = &m_texts.texts;
        m_report.problems = m_texts.problems;
        m_report.project.root = m_projects.root;
        m_report.project.label = m_projects.label();
        for (const ProjectFile* pFile : m_projects.files) {
            m_report.project.searched.push_back(pFile->place);
            append(m_report.problems, pFile->problems);
        }
        show();
        // Without a text there is no balloon.
        if (!m_report.tooltip.text.empty())
            m_report.tooltip.title = m_texts.valueOf("TooltipTitle");
    }

private:
    void show()
    {
        try {
            dxf::Drawing drawing(dxf::DxfFile::read(m_report.path), m_report.path);
            if (!drawing.file().notRead().empty())
                return showUnread(drawing.file().notRead());
            m_report.contents = kRead;
            showDrawing(drawing);
        } catch (const dxf::FileError& error) {
            if (::GetFileAttributesA(m_report.path.c_str()) == INVALID_FILE_ATTRIBUTES)
                return showUnread("it is not there yet");
            chooseSource();
            m_report.contents = error.reason();
            const bool opens = Tesk::fileExists(m_report.path.c_str());
            Problem problem = problemOf(opens ? RuleName("drawing-damaged") : RuleName("file-unread"), error.file(),
                                        {error.reason()});
            problem.line = static_cast<unsigned>(error.line());
            problem.column = std::min(problem.line, 1U);
            m_report.problems.push_back(problem);
        }
    }

    void showUnread(const std::string& sReason)
    {
        m_report.contents = sReason;
        chooseSource();
        if (!m_projects.root.empty())
            m_expansion.addLabel(m_projects.label().c_str());
        showTemplate();
    }

    void showDrawing(dxf::Drawing& database)
    {
        const Tesk::CWorkingDatabase workingDatabase(&database);
        Tesk::CARXTitleBlock titleBlock(&database, m_report.path.c_str());
        m_report.project.sourceIsCertain = true;
        chooseBorder(titleBlock);
        m_expansion.addTitleBlock(titleBlock);
        if (titleBlock.hasInstance()) {
            showTemplate();
            return checkMapping(titleBlock);
        }
        // The properties count for those without a title block alone.
        m_report.tooltip.text = Tesk::CARXDrawingProperties(&database).getTitle().GetString();
        m_report.tooltip.rule = m_report.tooltip.text.empty() ? "default" : "title";
        if (m_report.tooltip.text.empty())
            m_report.tooltip.text = m_texts.valueOf("DefaultTooltipText");
        checkTemplates();
    }

    void showTemplate()
    {
        m_report.tooltip.rule = "template";
        m_report.tooltip.text = m_expansion.expandString(m_texts.valueOf("TooltipText").c_str()).GetString();
        checkTemplates();
    }

    // The file that the search for the title block stopped at; without one all files were
    // asked in vain.
    void chooseBorder(const Tesk::CTitleBlock& titleBlock)
    {
        const std::string sBlock = titleBlock.getBorderBlock().GetString();
        const ProjectFile* const pSource = m_projects.find(titleBlock.getSettingsFile().GetString());
        if (const ProjectFile* const pOwn = m_projects.own()) {
            ++m_all.m_uses[pOwn].drawings;
            m_all.m_uses[pOwn].held += pSource == pOwn ? 1 : 0;
        }
        if (pSource != nullptr)
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
        const std::string sTemplate = m_texts.valueOf("TooltipText");
        const std::vector<CString> tags = titleBlock.getTags();
        for (const Mapping& mapping : m_report.project.mapping) {
            const auto same = [&mapping](const CString& sTag) { return equalNoCase(sTag.GetString(), mapping.tag); };
            if (std::find(tags.begin(), tags.end(), mapping.tag.c_str()) != tags.end() ||
                sTemplate.find("HALVORAN::" + mapping.key + "%") == std::string::npos ||
                mapping.tag.find_first_of(" \t") != std::string::npos)
                continue;
            const auto other = std::find_if(tags.begin(), tags.end(), same);
            const std::string sHelp = other == tags.end() ? ""
                                                          : "; the drawing's is \"" + std::string(other->GetString()) +
                                                                "\", and the case of letters counts";
            const SourceFile& file = m_all.m_files.get(mapping.file, Form::Project);
            const Tesk::CProjectEntry& entry = file.entryOf(mapping.line);
            m_report.problems.push_back(
                file.problem("tag-absent", entry, Tesk::MultiByte::withoutQuotes(entry.m_sValue),
                             {titleBlock.getBorderBlock().GetString(), mapping.tag, mapping.key, sHelp}));
        }
    }

    // Drawings of one project with the same texts and values of title blocks have the same.
    void checkTemplates()
    {
        std::string sNames =
            m_projects.root + "\n" + m_report.tooltip.rule + m_report.contents + m_report.project.source;
        const auto& known = m_expansion.getKeywords();
        for (auto name = known.lower_bound("HALVORAN"); name != known.end() && name->first < "HALVORANZ"; ++name)
            sNames += "\n" + name->first;
        const auto [found, fresh] = m_all.m_templates.try_emplace({&m_texts, sNames});
        if (fresh)
            checkTemplates(keywordsOf(m_expansion, true), found->second);
        append(m_report.problems, found->second);
    }

    void checkTemplates(Keywords keywords, std::vector<Problem>& problems) const
    {
        const bool any = m_report.tooltip.rule != "template" || m_report.contents != kRead;
        for (const ProjectFile* pFile : m_projects.files)
            for (const std::vector<Mapping>& mappings : pFile->mappings)
                for (const Mapping& mapping : mappings)
                    for (const std::string& sKey : {"HALVORAN::" + mapping.key, "X_HALVORAN::" + mapping.key}) {
                        if (any)
                            keywords.names.insert(sKey);
                        else if (keywords.names.count(sKey) == 0)
                            keywords.lost[sKey] = "its mapping, in line " + std::to_string(mapping.line) + " of " +
                                                  mapping.file + ", is of another title block than the drawing's";
                    }
        for (const char* sName : {kLabel, kForwardLabel})
            if (m_projects.own() == nullptr)
                keywords.lost[sName] = "the drawing is in no project";
        if (const ProjectFile* const pOwn = m_projects.own(); pOwn && pOwn->label.empty() && !anyError(pOwn->problems))
            keywords.emptyLabel = pOwn->place.path;
        m_all.m_texts.checkTemplateOf(m_texts, "TooltipText", keywords, problems);
        m_all.m_texts.checkTemplateOf(m_texts, "SameNameText", keywordsOf(m_expansion, false), problems);
    }

    DrawingCheck& m_all;
    const DrawingCheck::Folder& m_folder;
    const TextFindings& m_texts;
    const ProjectFindings& m_projects;
    DrawingExpansion& m_expansion;
    DrawingReport& m_report;
};

DrawingCheck::DrawingCheck()
    : m_texts(m_files), m_projects(m_files), m_domainFolders(findDomainFolders(m_commonProblems))
{
    checkLoadEntries(m_commonProblems);
}

DrawingReport DrawingCheck::check(const std::string& sPath)
{
    DrawingReport report;
    report.path = sPath;
    report.domain = &m_domainFolders;
    Check(*this, report).run();
    append(report.problems, m_commonProblems);
    m_files.removeAccepted(report.problems);
    std::sort(report.problems.begin(), report.problems.end());
    return report;
}

std::vector<Problem> DrawingCheck::checkFile(const std::string& sPath)
{
    const Tesk::CPathParts parts(sPath);
    m_strays.look(parts.parent(), 0);
    std::vector<Problem> problems =
        equalNoCase(parts.m_sExtension, ".ini") ? checkTexts(sPath) : m_projects.get(Layer::Project, sPath).problems;
    m_files.removeAccepted(problems);
    return problems;
}

std::vector<Problem> DrawingCheck::checkTexts(const std::string& sPath)
{
    const TextFindings findings = m_texts.ofFile(sPath);
    std::vector<Problem> problems = findings.problems;
    m_expansion.become(sPath, "", false);
    Keywords keywords = keywordsOf(m_expansion, true);
    keywords.names.insert({kLabel, kForwardLabel});
    keywords.mappingKnown = false;
    m_texts.checkTemplateOf(findings, "TooltipText", keywords, problems);
    m_texts.checkTemplateOf(findings, "SameNameText", keywordsOf(m_expansion, false), problems);
    return problems;
}

const DrawingCheck::Folder& DrawingCheck::folderOf(const std::string& sDrawing)
{
    const std::string sFolder = Tesk::CPathParts(sDrawing).parent();
    if (m_folders.empty() || m_folders.back().path != sFolder) {
        Folder& folder = m_folders.emplace_back(sFolder, m_projects.of(sDrawing));
        folder.texts = &m_texts.of(sDrawing, folder.searched);
        m_strays.lookAround(sDrawing, folder.projects.root);
    }
    return m_folders.back();
}

std::vector<Problem> DrawingCheck::finish(const std::vector<std::string>& folders)
{
    std::vector<Problem> problems = m_strays.find();
    // What other hosts read, or drawings that were not asked about.
    for (const std::string& sPath : m_strays.counting())
        if (!m_files.knows(sPath))
            append(problems, checkFile(sPath));
    for (const auto& [pFile, use] : m_uses) {
        const std::string sRoot = Tesk::CPathParts(pFile->place.path).parent();
        const bool all = std::any_of(folders.begin(), folders.end(),
                                     [&sRoot](const std::string& sFolder) { return isBelow(sRoot, sFolder); });
        if (!all || use.held != 0 || pFile->borders.empty())
            continue;
        const SourceFile& source = m_files.get(pFile->place.path, Form::Project);
        const Tesk::CProjectEntry& entry = source.entryOf(pFile->borders.front().line);
        problems.push_back(source.problem("border-absent", entry, entry.m_sText, {counted(use.drawings, "drawing")}));
    }
    m_files.removeAccepted(problems);
    return problems;
}

}  // namespace tabscheck
