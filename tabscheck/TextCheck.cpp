#include "library/text/Regex.h"

#include "tabscheck/TextCheck.h"

#include "library/controls/HyperLink.h"
#include "library/files/Locator.h"
#include "library/files/PathParts.h"
#include "library/text/CaseFold.h"
#include "library/text/MultiByte.h"
#include "settings/TextKeys.h"
#include "tabscheck/Spelling.h"

#include <algorithm>
#include <iterator>

namespace tabscheck {

namespace {

using Tesk::CSettingsEntry;
using Tesk::MultiByte::equalNoCase;
using Tesk::MultiByte::withoutQuotes;

const TextKey* findKey(std::string_view sKey)
{
    const auto found = std::find_if(std::begin(kTextKeys), std::end(kTextKeys),
                                    [sKey](const TextKey& key) { return equalNoCase(key.sName, sKey); });
    return found == std::end(kTextKeys) ? nullptr : &*found;
}

// What no hand meant, by the part of a value that the words name.
const struct {
    RuleName rule;
    bool any;  // not alone of what is shown as it stands
    boost::regex part;
} kValueParts[] = {
    {"value-equals", true, boost::regex("^=")},
    {"value-coded", true, boost::regex("^3D(?=[^ -])")},
    {"value-remark", true, boost::regex("(?<=[ \t]);[ \t].*")},
    {"quotes-shown", true, boost::regex("^([\"']).+\\1$")},
    {"no-template", false, boost::regex("%[A-Za-z][A-Za-z0-9_]{2,}(::?[^%]*)?%")},
};

// Takes copy after copy, as the strip merges them.
class Merge {
public:
    Merge(SourceFiles& files, TextFindings& findings) : m_files(files), m_findings(findings)
    {
        for (const TextKey& key : kTextKeys)
            m_findings.texts.push_back({{}, key.sName, {}});
    }

    void take(Place place)
    {
        if (!place.found)
            return;
        read(m_files.get(place.path, Form::Texts), place);
        m_findings.copies.push_back(place);
    }

    // After the last copy of all for a drawing, whose first is looked for there; or of one alone.
    void finish(const std::string& sFirst)
    {
        if (!sFirst.empty())
            checkAbsent(sFirst);
        for (const char* sKey : {"HelpAddress", "SupportAddress"})
            if (!sFirst.empty() && !m_findings.valueOf(sKey).empty() && m_findings.valueOf("PopupHelpText").empty())
                tell("key-alone", *m_findings.find(sKey), {sKey});
        std::erase_if(m_findings.texts, [](const Text& t) { return t.line == 0 && findKey(t.key)->bOptIn; });
    }

private:
    struct Section {
        const SourceFile* file = nullptr;  // none before the first section
        CSettingsEntry header = {};
        bool told = false;
    };
    using Lines = std::map<std::string, unsigned, Tesk::CLessNoCase>;

    void read(const SourceFile& file, Place& place)
    {
        m_findings.problems.insert(m_findings.problems.end(), file.problems().begin(), file.problems().end());
        place.dropped = !file.sound();
        Lines keys;
        for (const CSettingsEntry& entry : file.texts()) {
            if (entry.m_kind == CSettingsEntry::Damage)
                add(file, "line-damaged", entry);
            else if (place.dropped)
                continue;
            else if (entry.m_kind == CSettingsEntry::Key)
                takeKey(file, entry, place, keys);
            else if (entry.m_kind == CSettingsEntry::Section)
                m_section = entry.m_sKey.empty() ? Section() : Section{&file, entry};
            else
                add(file, "header-open", entry,
                    {m_section.file != nullptr ? "[" + std::string(m_section.header.m_sKey) + "]"
                                               : "no section, and are read"});
        }
        place.keys = static_cast<unsigned>(keys.size());
    }

    void takeKey(const SourceFile& file, const CSettingsEntry& entry, const Place& place, Lines& lines)
    {
        const TextKey* pKey = findKey(entry.m_sKey);
        const std::string sKey(entry.m_sKey);
        if (m_section.file != nullptr) {
            // It matters with one of ours in it, or with a later file behind it.
            if (!m_section.told && (m_section.file != &file || pKey != nullptr)) {
                m_section.told = true;
                add(*m_section.file, "section", m_section.header,
                    {m_section.header.m_sKey, sKey + " (" + place.path + ":" + std::to_string(entry.m_uLine) + ")"});
            }
            return;
        }
        if (pKey == nullptr)
            return add(file, "key-unknown", entry, {sKey, suggestion(sKey, namesOf(kTextKeys))});
        if (const auto [first, fresh] = lines.try_emplace(sKey, entry.m_uLine); !fresh)
            add(file, "key-twice", entry, {sKey, std::to_string(first->second)});
        // Of two lines in one file the later counts, and the earlier is overridden like any other.
        std::string_view sValue = entry.m_sValue.substr(0, entry.m_sValue.find('\0'));
        if (pKey->bQuoted)
            sValue = withoutQuotes(sValue);
        Text& text = *std::find_if(m_findings.texts.begin(), m_findings.texts.end(),
                                   [pKey](const Text& one) { return one.key == pKey->sName; });
        Setting setting = {place.layer, place.path, entry.m_uLine, std::string(sValue)};
        std::swap<Setting>(text, setting);
        if (setting.line != 0)
            text.overrides.insert(text.overrides.begin(), std::move(setting));
        m_entries[pKey->sName] = {&file, &entry};
        checkValue(*pKey, text);
    }

    void checkValue(const TextKey& key, const Text& text)
    {
        if (text.value.empty())
            return;
        const std::string sTarget = CHyperLink::getTarget(text.value.c_str()).GetString();
        const bool mail = key.eKind == TextKind::MailAddress;
        if ((mail && !sTarget.starts_with("mailto:")) || (key.eKind == TextKind::Address && sTarget.empty()))
            tell("address", text,
                 {text.value, mail ? "one mail address" : "http://, https://, www. or one mail address"});
        const bool shown = key.eKind == TextKind::Caption || key.eKind == TextKind::Plain;
        for (const auto& [name, any, part] : kValueParts)
            if (boost::smatch found; (any || shown) && boost::regex_search(text.value, found, part))
                tell(name, text, {found.str()});
    }

    // Of texts that are defined as nothing each one, of those that no file defines all at once.
    // What a damaged copy does to texts is told with the damage.
    void checkAbsent(const std::string& sFirst)
    {
        const bool damaged = anyError(m_findings.problems);
        std::map<bool, std::string> nowhere;
        for (const Text& text : m_findings.texts) {
            const bool caption = findKey(text.key)->eKind == TextKind::Caption;
            if (findKey(text.key)->bOptIn || !text.value.empty())
                continue;
            if (text.line != 0)
                tell(absent(caption), text, {text.key, ""});
            else
                nowhere[caption] += (nowhere[caption].empty() ? "" : ", ") + text.key;
        }
        for (const auto& [caption, sKeys] : nowhere)
            if (!damaged)
                m_findings.problems.push_back(
                    problemOf(absent(caption), sFirst, {sKeys, "; is this the application root (--root)?"}));
    }

    static RuleName absent(bool caption) { return caption ? RuleName("caption-absent") : RuleName("text-absent"); }

    // At the value that counts.
    void tell(RuleName name, const Text& text, std::initializer_list<std::string_view> parts)
    {
        const auto& [pFile, pEntry] = m_entries.at(text.key);
        m_findings.problems.push_back(pFile->problem(name, *pEntry, pEntry->m_sValue, parts));
    }

    void add(const SourceFile& file, RuleName name, const CSettingsEntry& entry,
             std::initializer_list<std::string_view> parts = {})
    {
        if (!file.explained(entry.m_uLine))
            m_findings.problems.push_back(file.problem(name, entry, Tesk::MultiByte::trim(entry.m_sLine), parts));
    }

    SourceFiles& m_files;
    TextFindings& m_findings;
    Section m_section;
    std::map<std::string, std::pair<const SourceFile*, const CSettingsEntry*>> m_entries;  // that count, by key
};

}  // namespace

const Text* TextFindings::find(std::string_view sKey) const
{
    const auto found = std::find_if(texts.begin(), texts.end(), [&sKey](const Text& text) { return text.key == sKey; });
    return found == texts.end() ? nullptr : &*found;
}

std::string TextFindings::valueOf(std::string_view sKey) const
{
    const Text* const pText = find(sKey);
    return pText == nullptr ? "" : pText->value;
}

TextCheck::TextCheck(SourceFiles& files)
    : m_files(files), m_bases(Tesk::Support::File::CLocator().getStandardDirectories())
{
}

const TextFindings& TextCheck::of(const std::string& sDrawing, std::vector<Place>& searched)
{
    using Tesk::Support::File::CLocator;
    std::vector<Problem> closed;
    std::string sCopies;
    for (const auto& [layer, sPath] : CLocator().getCandidates(m_bases, {sDrawing.c_str()}, kSettingsFile, ""))
        for (const CString& sVariant : CLocator::variantsOf(sPath)) {
            searched.push_back(m_files.placeOf(layer, sVariant.GetString(), closed));
            if (searched.back().found)
                sCopies += searched.back().path + "\n";
        }
    for (const Problem& problem : closed)
        sCopies += problem.file + "\n";
    const auto [known, fresh] = m_merged.try_emplace(sCopies);
    TextFindings& findings = known->second;
    if (fresh) {
        findings.problems = closed;
        Merge merge(m_files, findings);
        for (const Place& place : searched)
            merge.take(place);
        merge.finish(searched.front().path);
    }
    auto copy = findings.copies.begin();
    for (Place& place : searched)
        if (place.found)
            place = *copy++;
    return findings;
}

TextFindings TextCheck::ofFile(const std::string& sPath)
{
    TextFindings findings;
    Merge merge(m_files, findings);
    merge.take(m_files.placeOf(Layer::Folder, sPath, findings.problems));
    merge.finish("");
    return findings;
}

void TextCheck::checkTemplateOf(const TextFindings& texts, const char* sKey, const Keywords& keywords,
                                std::vector<Problem>& problems) const
{
    const Text* const pText = texts.find(sKey);
    if (pText == nullptr || pText->line == 0)
        return;
    const SourceFile& file = m_files.get(pText->file, Form::Texts);
    const CSettingsEntry& entry = *std::find_if(file.texts().begin(), file.texts().end(),
                                                [pText](const auto& one) { return one.m_uLine == pText->line; });
    const std::string_view sValue = entry.m_sValue.substr(entry.m_sValue.find(pText->value));
    for (const TemplateFault& fault : checkTemplate(pText->value, keywords)) {
        problems.push_back(file.problem("token-unknown", entry, sValue.substr(fault.position)));
        problems.back().rule = fault.rule;
        problems.back().text = fault.text;
    }
}

}  // namespace tabscheck
