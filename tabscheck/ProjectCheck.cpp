#include "tabscheck/ProjectCheck.h"

#include "library/files/FileSearch.h"
#include "library/files/PathParts.h"
#include "library/text/CodePage.h"
#include "library/text/MultiByte.h"
#include "tabscheck/Folders.h"
#include "tabscheck/Spelling.h"

#include <algorithm>
#include <tuple>

namespace tabscheck {

namespace {

using Tesk::CProjectEntry;
using Tesk::ProjectBlock;

std::string_view firstWord(const CProjectEntry& entry)
{
    return entry.m_sText.substr(0, entry.m_sText.find_first_of(" \t"));
}

bool isRemark(const CProjectEntry& entry) { return entry.m_sText[0] == ';'; }

// Those between which Word puts what it takes for a quotation.
bool hasTypographicQuote(std::string_view sText)
{
    const std::wstring sWide = Tesk::toWide(sText);
    return sWide.find_first_of(L"\x201C\x201D\x201E\x201F") != std::wstring::npos;
}

std::string nameOf(const CProjectEntry& block)
{
    return std::string(firstWord(block)) + " of line " + std::to_string(block.m_uLine);
}

// Goes through the entries of one file and takes down what each gives.
class Reader {
public:
    Reader(const SourceFile& source, ProjectFile& file) : m_source(source), m_file(file) {}

    void read()
    {
        const std::vector<CProjectEntry>& entries = m_source.project();
        for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
            const CProjectEntry* const pNext = entry + 1 == entries.end() ? nullptr : &entry[1];
            if (entry->m_kind != CProjectEntry::Open && entry->m_kind != CProjectEntry::Close)
                take(*entry, pNext);
            if (entry->m_kind == CProjectEntry::Close)
                close(*entry);
            else if (entry->m_sText.size() > 1 && m_brace == nullptr &&
                     (entry->m_sText.front() == '}' || entry->m_sText.back() == '}'))
                m_brace = &*entry;
        }
        const ProjectBlock block = m_block == nullptr ? ProjectBlock::Unknown : Tesk::blockOf(m_block->m_sKey);
        const bool titles = block == ProjectBlock::TitleBlocks;
        if (block != ProjectBlock::Unknown)
            add(titles, *m_block,
                std::string("this block has no line \"}\"") + (titles ? ": its borders and mappings are ignored" : ""));
    }

private:
    void take(const CProjectEntry& entry, const CProjectEntry* pNext)
    {
        switch (entry.m_kind) {
        case CProjectEntry::Keyword:
            open(entry);
            return;
        case CProjectEntry::Border:
            takeBorder(entry);
            break;
        case CProjectEntry::Mapping:
            if (entry.m_block == ProjectBlock::TitleBlocks)
                takeMapping(entry);
            break;
        case CProjectEntry::Line:
            if (entry.m_block == ProjectBlock::ProjectLabel)
                m_file.label = entry.m_sText;
            break;
        default:
            break;
        }
        if (isRemark(entry) && entry.m_block != ProjectBlock::Unknown)
            add(false, entry, "\";\" begins no remark here, \"#\" and \"//\" do: the line counts");
        checkNested(entry, pNext);
    }

    void open(const CProjectEntry& entry)
    {
        m_block = &entry;
        m_brace = nullptr;
        m_borders.clear();
        m_mapping.clear();
        if (entry.m_block != ProjectBlock::Unknown || isRemark(entry))
            return;  // what a remark costs is told at the block that it costs
        if (entry.m_uLine != 1 || !m_source.marked())
            add(false, entry,
                "unknown keyword \"" + std::string(firstWord(entry)) + "\": skipped with its block" +
                    suggestion(entry.m_sKey, unusedKeywords()));
    }

    std::vector<std::string> unusedKeywords() const
    {
        std::vector<std::string> names;
        for (const auto& [sName, block] : Tesk::kProjectKeywords)
            if (std::none_of(m_source.project().begin(), m_source.project().end(), [&sName = sName](const auto& entry) {
                    return entry.m_kind == CProjectEntry::Keyword && entry.m_sKey == sName;
                }))
                names.push_back(sName);
        return names;
    }

    void close(const CProjectEntry& entry)
    {
        if (entry.m_block == ProjectBlock::TitleBlocks) {
            m_file.borders.insert(m_file.borders.end(), m_borders.begin(), m_borders.end());
            m_file.mappings.push_back(m_mapping);
        }
        if (m_block != nullptr && isRemark(*m_block))
            tellRemark("what follows up to line " + std::to_string(entry.m_uLine));
        else if (m_block != nullptr && m_brace != nullptr && m_brace->m_sText.front() == '}')
            add(true, *m_brace,
                "this \"}\" does not stand on its own: the block " + nameOf(*m_block) + " goes on to line " +
                    std::to_string(entry.m_uLine));
        m_block = nullptr;
    }

    void tellRemark(const std::string& sLost)
    {
        add(true, *m_block, "\";\" begins no remark here, \"#\" and \"//\" do: " + sLost + " is lost with it");
    }

    // A keyword that an earlier block takes for one of its lines. What follows is meant as its
    // block.
    void checkNested(const CProjectEntry& entry, const CProjectEntry* pNext)
    {
        const bool opens = entry.m_sValue.empty() ? pNext != nullptr && pNext->m_kind == CProjectEntry::Open
                                                  : entry.m_sValue[0] == '{';
        const ProjectBlock block = Tesk::blockOf(entry.m_sKey);
        if (block == ProjectBlock::Unknown || m_block == nullptr ||
            !(opens || (block == ProjectBlock::TitleBlocks && entry.m_sValue.empty())))
            return;
        const std::string sWhere =
            m_brace != nullptr ? "the \"}\" of line " + std::to_string(m_brace->m_uLine) + " does not stand on its own"
                               : "a line \"}\" is missing before line " + std::to_string(entry.m_uLine);
        if (isRemark(*m_block))
            tellRemark("the block " + nameOf(entry));
        else if (m_block->m_uLine != 1 || !m_source.marked())
            add(true, entry,
                std::string(firstWord(entry)) + " stands inside the block " + nameOf(*m_block) +
                    ", and is lost: " + sWhere);
        m_block = &entry;
        m_brace = nullptr;
    }

    void takeBorder(const CProjectEntry& entry)
    {
        const std::vector<std::string> fields = Tesk::borderFields(entry.m_sValue);
        if (Tesk::isBorder(fields.size())) {
            if (entry.m_block == ProjectBlock::TitleBlocks)
                m_borders.push_back({fields[1].substr(0, fields[1].find('.')), m_source.path(), entry.m_uLine, false,
                                     m_file.mappings.size()});
        } else if (hasTypographicQuote(entry.m_sValue)) {
            add(true, entry, "this border is ignored: it has typographic quotes where straight ones are read");
        } else {
            add(true, entry,
                "this border is ignored: it has " + std::to_string(fields.size()) + " quoted field" +
                    (fields.size() == 1 ? "" : "s") + " where 2, 5 or 6 are read, none of them empty");
        }
    }

    // Of two lines with one key the later counts.
    void takeMapping(const CProjectEntry& entry)
    {
        if (entry.m_sKey.starts_with("BORDER\"") || Tesk::isBorder(Tesk::borderFields(entry.m_sValue).size()))
            add(true, entry, "this border is ignored: \"BORDER\" and a blank stand before its fields");
        else if (hasTypographicQuote(entry.m_sValue))
            add(false, entry, "these typographic quotes are part of the tag, straight ones are not");
        std::erase_if(m_mapping, [&entry](const Mapping& mapping) { return mapping.key == entry.m_sKey; });
        m_mapping.push_back({entry.m_sKey, std::string(Tesk::MultiByte::withoutQuotes(entry.m_sValue)), m_source.path(),
                             entry.m_uLine});
    }

    void add(bool error, const CProjectEntry& entry, std::string sText)
    {
        m_file.problems.push_back(m_source.problem(error, entry, entry.m_sText, std::move(sText)));
    }

    const SourceFile& m_source;
    ProjectFile& m_file;
    std::vector<Border> m_borders;  // of the block that is read
    std::vector<Mapping> m_mapping;
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

std::string ProjectFindings::label() const { return root.empty() ? "" : files.front()->label; }

ProjectCheck::ProjectCheck(SourceFiles& files) : m_files(files)
{
    for (const Layer layer : Tesk::kTitleBlockLayers)
        if (layer != Layer::Project)
            m_shared[layer] = Tesk::getTitleBlockFile(layer, "").GetString();
}

const ProjectFindings& ProjectCheck::of(const std::string& sDrawing)
{
    const auto [found, fresh] = m_byFolder.try_emplace(Tesk::CPathParts(sDrawing).parent());
    ProjectFindings& findings = found->second;
    if (!fresh)
        return findings;
    for (const Layer layer : Tesk::kTitleBlockLayers) {
        const auto shared = m_shared.find(layer);
        const std::string sFile =
            shared != m_shared.end() ? shared->second : Tesk::getTitleBlockFile(layer, sDrawing.c_str()).GetString();
        if (layer == Layer::Project)
            findings.root = Tesk::CPathParts(sFile).parent();
        if (!sFile.empty())
            findings.files.push_back(&get(layer, sFile));
    }
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
    file.place = placeOf(layer, sPath, file.problems);
    if (!file.place.found)
        return file;
    const SourceFile& source = m_files.get(sPath, Form::Project);
    file.problems = source.problems();
    Reader(source, file).read();
    return file;
}

}  // namespace tabscheck
