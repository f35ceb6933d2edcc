#include "tabscheck/ProjectCheck.h"

#include "library/files/PathParts.h"
#include "library/text/MultiByte.h"
#include "tabscheck/Spelling.h"

#include <algorithm>

namespace tabscheck {

namespace {

using Tesk::CProjectEntry;
using Tesk::ProjectBlock;

std::string firstWord(const CProjectEntry& entry)
{
    return std::string(entry.m_sText.substr(0, entry.m_sText.find_first_of(" \t")));
}

bool isRemark(const CProjectEntry& entry) { return entry.m_sText[0] == ';'; }

// Goes through the entries of one file and takes down what each gives.
class Reader {
public:
    Reader(const SourceFile& source, ProjectFile& file) : m_source(source), m_file(file) {}

    void read()
    {
        const std::vector<CProjectEntry>& entries = m_source.project();
        for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
            const CProjectEntry* const pNext = entry + 1 == entries.end() ? nullptr : &entry[1];
            if (entry->m_kind == CProjectEntry::Close)
                close(*entry);
            else if (entry->m_kind != CProjectEntry::Open)
                take(*entry, pNext);
            if (entry->m_sText.size() > 1 && m_brace == nullptr &&
                (entry->m_sText.front() == '}' || entry->m_sText.back() == '}'))
                m_brace = &*entry;
        }
        if (m_block != nullptr && Tesk::blockOf(m_block->m_sKey) != ProjectBlock::Unknown)
            unclosed("the end");
    }

private:
    void take(const CProjectEntry& entry, const CProjectEntry* pNext)
    {
        if (entry.m_kind == CProjectEntry::Keyword)
            return open(entry);
        if (entry.m_kind == CProjectEntry::Border)
            takeBorder(entry);
        else if (entry.m_kind == CProjectEntry::Mapping && entry.m_block == ProjectBlock::TitleBlocks)
            takeMapping(entry);
        else if (entry.m_kind == CProjectEntry::Line && entry.m_block == ProjectBlock::ProjectLabel)
            takeLabel(entry);
        if (isRemark(entry) && entry.m_block != ProjectBlock::Unknown)
            add("remark-line", entry);
        // A keyword that an earlier block takes for one of its lines; what follows is meant as
        // its block.
        const ProjectBlock block = Tesk::blockOf(entry.m_sKey);
        const bool opens = entry.m_sValue.empty() ? block == ProjectBlock::TitleBlocks ||
                                                        (pNext != nullptr && pNext->m_kind == CProjectEntry::Open)
                                                  : entry.m_sValue[0] == '{';
        if (block != ProjectBlock::Unknown && m_block != nullptr && opens) {
            unclosed("line " + std::to_string(entry.m_uLine));
            m_block = &entry;
            m_brace = nullptr;
        }
    }

    // The block that is read ends too late, or not at all.
    void unclosed(const std::string& sEnd)
    {
        if (isRemark(*m_block))
            return add("remark-block", *m_block);
        const bool brace = m_brace != nullptr;
        add("block-open", brace ? *m_brace : *m_block,
            {firstWord(*m_block) + " of line " + std::to_string(m_block->m_uLine), sEnd,
             brace ? "this \"}\" does not stand on its own" : "a line \"}\" is missing"});
    }

    void open(const CProjectEntry& entry)
    {
        m_block = &entry;
        m_brace = nullptr;
        m_borders.clear();
        m_mapping.clear();
        // What a remark costs is told at the block that it costs.
        if (entry.m_block == ProjectBlock::Unknown && !isRemark(entry))
            add("keyword-unknown", entry,
                {firstWord(entry), suggestion(entry.m_sKey, namesOf(Tesk::kProjectKeywords))});
    }

    void close(const CProjectEntry& entry)
    {
        if (entry.m_block == ProjectBlock::TitleBlocks) {
            m_file.borders.insert(m_file.borders.end(), m_borders.begin(), m_borders.end());
            m_file.mappings.push_back(m_mapping);
        }
        if (m_block != nullptr && (isRemark(*m_block) || (m_brace != nullptr && m_brace->m_sText.front() == '}')))
            unclosed("line " + std::to_string(entry.m_uLine));
        else if (entry.m_block == ProjectBlock::ProjectLabel && m_labels.size() > 1 && m_block != nullptr &&
                 Tesk::blockOf(m_block->m_sKey) == ProjectBlock::ProjectLabel)
            add("label-twice", *m_labels.back());
        m_block = nullptr;
    }

    void takeLabel(const CProjectEntry& entry)
    {
        m_file.label = entry.m_sText;
        m_labels.push_back(&entry);
    }

    void takeBorder(const CProjectEntry& entry)
    {
        const std::vector<std::string> fields = Tesk::borderFields(entry.m_sValue);
        if (!Tesk::isBorder(fields.size()))
            return add("border-fields", entry);
        if (Tesk::MultiByte::trim(fields[1]) != fields[1] || fields[1].find_first_of("\\/:*?<>|") != std::string::npos)
            add("border-name", entry, {fields[1]});
        const std::string sBlock = fields[1].substr(0, fields[1].find('.'));
        if (entry.m_block != ProjectBlock::TitleBlocks)
            return;
        for (const std::vector<Border>* pBorders : {&m_file.borders, &m_borders})
            for (const Border& border : *pBorders)
                if (Tesk::MultiByte::equalNoCase(border.block, sBlock))
                    return add("border-twice", entry, {sBlock, std::to_string(border.line)});
        m_borders.push_back({sBlock, m_source.path(), entry.m_uLine, false, m_file.mappings.size()});
    }

    // Of two lines with one key the later counts.
    void takeMapping(const CProjectEntry& entry)
    {
        const std::string_view sTag = Tesk::MultiByte::withoutQuotes(entry.m_sValue);
        const auto first = std::find_if(m_mapping.begin(), m_mapping.end(),
                                        [&entry](const Mapping& mapping) { return mapping.key == entry.m_sKey; });
        if (entry.m_sKey.starts_with("BORDER\"") || Tesk::isBorder(Tesk::borderFields(entry.m_sValue).size()))
            add("border-fields", entry);
        else if (sTag.find_first_of(" \t") != sTag.npos && !isRemark(entry))
            add("tag-blank", entry, {sTag});
        if (first != m_mapping.end()) {
            if (!isRemark(entry))
                add("mapping-twice", entry, {entry.m_sKey, std::to_string(first->line)});
            m_mapping.erase(first);
        }
        m_mapping.push_back({entry.m_sKey, std::string(sTag), m_source.path(), entry.m_uLine});
    }

    void add(RuleName name, const CProjectEntry& entry, std::initializer_list<std::string_view> parts = {})
    {
        if (!m_source.explained(entry.m_uLine) && !(m_block != nullptr && m_source.explained(m_block->m_uLine)))
            m_file.problems.push_back(m_source.problem(name, entry, entry.m_sText, parts));
    }

    const SourceFile& m_source;
    ProjectFile& m_file;
    std::vector<Border> m_borders;  // of the block that is read
    std::vector<Mapping> m_mapping;
    std::vector<const CProjectEntry*> m_labels;
    const CProjectEntry* m_block = nullptr;  // the keyword of the block that is read
    const CProjectEntry* m_brace = nullptr;  // a line in it that ends in "}"
};

}  // namespace

const ProjectFile* ProjectFindings::find(const std::string& sPath) const
{
    const auto found = std::find_if(files.begin(), files.end(),
                                    [&sPath](const ProjectFile* pFile) { return pFile->place.path == sPath; });
    return found == files.end() ? nullptr : *found;
}

ProjectFindings ProjectCheck::of(const std::string& sDrawing)
{
    ProjectFindings findings;
    for (const Layer layer : Tesk::kTitleBlockLayers) {
        const std::string sFile = Tesk::getTitleBlockFile(layer, sDrawing.c_str()).GetString();
        if (layer == Layer::Project)
            findings.root = Tesk::CPathParts(sFile).parent();
        if (!sFile.empty())
            findings.files.push_back(&get(layer, sFile));
    }
    return findings;
}

const ProjectFile& ProjectCheck::get(Layer layer, const std::string& sPath)
{
    const auto [found, fresh] = m_read.try_emplace(sPath);
    ProjectFile& file = found->second;
    if (!fresh)
        return file;
    file.place = m_files.placeOf(layer, sPath, file.problems);
    if (file.place.found) {
        const SourceFile& source = m_files.get(sPath, Form::Project);
        file.problems = source.problems();
        Reader(source, file).read();
    }
    return file;
}

}  // namespace tabscheck
