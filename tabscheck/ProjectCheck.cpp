#include "tabscheck/ProjectCheck.h"

#include "library/files/FileSearch.h"
#include "library/files/PathParts.h"
#include "library/files/SettingsFile.h"
#include "library/files/SettingsFileReader.h"
#include "library/files/SupportFileLocator.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"
#include "tabscheck/Spelling.h"

#include <algorithm>

namespace tabscheck {

namespace {

using Line = Tesk::CSettingsFileReader::Line;

// Reads one file line by line and takes down what the reader makes of each.
class LineRecorder {
public:
    LineRecorder(const SourceFile& source, ProjectFile& file)
        : m_source(source), m_file(file), m_reader(m_settings, Tesk::PathParts(source.path()).parent())
    {
    }

    void read()
    {
        for (const std::string& sLine : m_source.lines()) {
            ++m_line;
            const bool wasInTitleBlock = m_reader.isInTitleBlock();
            const Line what = m_reader.readLine(sLine);
            if (!wasInTitleBlock && m_reader.isInTitleBlock()) {
                m_group = {};
                m_groupLine = m_line;
            } else if (wasInTitleBlock && !m_reader.isInTitleBlock()) {
                m_file.groups.push_back(m_group);
            }
            take(what, sLine, wasInTitleBlock);
        }
        if (m_reader.isInTitleBlock())
            add(true, m_groupLine, "this block has no \"}\": its borders and mappings are ignored");
        m_file.label = m_settings.m_sProjectLabel.GetString();
    }

private:
    void take(Line what, const std::string& sLine, bool inTitleBlock)
    {
        const std::string_view sTrimmed = Tesk::MultiByte::trim(sLine);
        const auto [sKey, sValue] = Tesk::CSettingsFileReader::splitLine(sTrimmed);
        const bool marked = m_line == 1 && !m_source.problems().empty();  // by an encoding
        if (what == Line::UnknownKeyword && !marked)
            add(false, m_line,
                "unknown keyword \"" + std::string(sTrimmed.substr(0, sTrimmed.find_first_of(" \t"))) +
                    "\": skipped with its block" +
                    suggestion(sKey.GetString(), Tesk::CSettingsFileReader::getKeywords()));
        else if (what == Line::IgnoredBorder)
            add(true, m_line, borderReason(Tesk::CSettingsFileReader::countFields(Tesk::viewOf(sValue))));
        else if (what == Line::Border && inTitleBlock)
            m_group.borders.push_back(
                {m_reader.getGroup().m_vecBorders.back().m_sBlockName.GetString(), m_source.path(), m_line});
        else if (what == Line::Mapping && inTitleBlock)
            map(sKey.GetString());
    }

    static std::string borderReason(std::size_t fields)
    {
        return "this border is ignored: it has " + std::to_string(fields) + " quoted field" + (fields == 1 ? "" : "s") +
               " where 2, 5 or 6 are read, none of them empty";
    }

    // Of two lines with one key the later counts.
    void map(const std::string& sKey)
    {
        const std::string sTag = m_reader.getGroup().m_mapOther.at(sKey.c_str()).GetString();
        std::erase_if(m_group.mapping, [&sKey](const Mapping& mapping) { return mapping.key == sKey; });
        m_group.mapping.push_back({sKey, sTag, m_source.path(), m_line});
    }

    void add(bool error, unsigned line, std::string sText)
    {
        m_file.problems.push_back(m_source.problem(error, line, firstWord(m_source.line(line)), std::move(sText)));
    }

    const SourceFile& m_source;
    ProjectFile& m_file;
    Tesk::CSettingsFile m_settings;
    Tesk::CSettingsFileReader m_reader;
    ProjectFile::Group m_group;
    unsigned m_groupLine = 0;
    unsigned m_line = 0;
};

}  // namespace

const ProjectFile* ProjectFindings::find(const std::string& sPath) const
{
    const auto found = std::find_if(files.begin(), files.end(),
                                    [&sPath](const ProjectFile* pFile) { return pFile->place.path == sPath; });
    return found == files.end() ? nullptr : *found;
}

std::string ProjectFindings::label() const { return root.empty() ? "" : files.front()->label; }

ProjectFindings ProjectCheck::of(const std::string& sDrawing)
{
    ProjectFindings findings;
    findings.root = Tesk::findProjectFolder(Tesk::PathParts(sDrawing).parent().c_str()).GetString();
    if (!findings.root.empty())
        findings.files.push_back(&get(Layer::Project, findings.root + Tesk::kProjectSettings));
    findings.files.push_back(&get(Layer::Domain, Tesk::getLocation(Tesk::LOCATION_FILE_DOMAIN_SETTINGS).GetString()));
    findings.files.push_back(
        &get(Layer::Standard, Tesk::getLocation(Tesk::LOCATION_FILE_STANDARD_SETTINGS).GetString()));
    return findings;
}

const ProjectFile& ProjectCheck::get(Layer layer, const std::string& sPath)
{
    const auto found = m_read.find(sPath);
    return found != m_read.end() ? found->second : m_read.emplace(sPath, read(layer, sPath)).first->second;
}

ProjectFile ProjectCheck::read(Layer layer, const std::string& sPath)
{
    ProjectFile file;
    file.place = {layer, sPath, Tesk::fileExists(sPath.c_str())};
    if (!file.place.found)
        return file;
    const SourceFile& source = m_files.get(sPath, Reading::Ansi);
    file.problems = source.problems();
    LineRecorder(source, file).read();
    for (const ProjectFile::Group& group : file.groups)
        file.place.keys += static_cast<unsigned>(group.mapping.size());
    return file;
}

}  // namespace tabscheck
