#include "tabscheck/TextCheck.h"

#include "library/controls/HyperLink.h"
#include "library/files/FileSearch.h"
#include "library/files/Locator.h"
#include "library/files/PathParts.h"
#include "library/text/CaseFold.h"
#include "library/text/MultiByte.h"
#include "settings/TextKeys.h"
#include "tabscheck/Folders.h"
#include "tabscheck/Spelling.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>

namespace tabscheck {

namespace {

using Tesk::CSettingsEntry;
using Tesk::MultiByte::equalNoCase;
using Tesk::MultiByte::withoutQuotes;

constexpr const char* kSettingsFile = "MDITabs.ini";
constexpr std::size_t kMostListed = 5;

const TextKey* findKey(std::string_view sKey)
{
    const auto found = std::find_if(std::begin(kTextKeys), std::end(kTextKeys),
                                    [sKey](const TextKey& key) { return equalNoCase(key.sName, sKey); });
    return found == std::end(kTextKeys) ? nullptr : &*found;
}

std::string list(const std::vector<std::string>& names)
{
    std::string sList;
    for (std::size_t i = 0; i < std::min(names.size(), kMostListed); ++i)
        sList += (i == 0 ? "" : ", ") + names[i];
    return names.size() <= kMostListed ? sList : sList + " and " + std::to_string(names.size() - kMostListed) + " more";
}

// What follows the first single "&" of a caption, as a capital; none without one.
std::string mnemonic(const std::string& sCaption)
{
    for (std::size_t at = 0; at + 1 < sCaption.size(); ++at) {
        if (sCaption[at] != '&')
            continue;
        if (sCaption[++at] != '&')
            return Tesk::MultiByte::upper(std::string_view(sCaption).substr(at, 1));
    }
    return {};
}

// Takes copy after copy, as the strip merges them.
class Merge {
public:
    Merge(SourceFiles& files, TextFindings& findings) : m_files(files), m_findings(findings)
    {
        for (const TextKey& key : kTextKeys)
            m_findings.texts.push_back({{}, key.sName, {}});
    }

    void take(Layer layer, const std::string& sPath)
    {
        Place place = placeOf(layer, sPath, m_findings.problems);
        if (place.found)
            read(m_files.get(sPath, Form::Texts), place);
        m_findings.searched.push_back(place);
    }

    // After the last copy.
    void finish()
    {
        closeSection();
        for (Text& text : m_findings.texts)
            if (text.line != 0)
                checkValue(text, *findKey(text.key));
        checkMnemonics();
        std::erase_if(m_findings.texts, [](const Text& t) { return t.line == 0 && findKey(t.key)->bOptIn; });
    }

private:
    struct Section {
        const SourceFile* file;
        CSettingsEntry header;
        std::vector<std::string> own = {};
        std::vector<std::string> later = {};
        bool known = false;
    };

    void read(const SourceFile& file, Place& place)
    {
        m_findings.problems.insert(m_findings.problems.end(), file.problems().begin(), file.problems().end());
        place.dropped = !file.sound();
        if (place.dropped && !file.texts().empty())
            add(file, true, file.texts().back(), "no \"=\" in this line: the strip drops this whole copy of the file");
        if (place.dropped)
            return;
        std::set<std::string, Tesk::CLessNoCase> keys;
        for (const CSettingsEntry& entry : file.texts()) {
            if (entry.m_kind == CSettingsEntry::Key)
                takeKey(file, entry, place, keys);
            else if (entry.m_kind == CSettingsEntry::Section)
                openSection(file, entry);
            else
                add(file, false, entry,
                    "this header does not end in \"]\" and is ignored: the keys below it belong to " +
                        (m_section ? "[" + std::string(m_section->header.m_sKey) + "]"
                                   : std::string("no section, and are read")));
        }
        place.keys = static_cast<unsigned>(keys.size());
    }

    void openSection(const SourceFile& file, const CSettingsEntry& header)
    {
        closeSection();
        if (!header.m_sKey.empty())
            m_section = Section{&file, header};
    }

    void closeSection()
    {
        if (m_section && (m_section->known || !m_section->later.empty())) {
            std::string sText = "section [" + std::string(m_section->header.m_sKey) + "] swallows ";
            if (!m_section->own.empty())
                sText += "the keys below it: " + list(m_section->own);
            if (!m_section->later.empty())
                sText += (m_section->own.empty() ? "keys of later files: " : "; and keys of later files: ") +
                         list(m_section->later);
            add(*m_section->file, true, m_section->header, std::move(sText));
        }
        m_section.reset();
    }

    template <class Keys>
    void takeKey(const SourceFile& file, const CSettingsEntry& entry, const Place& place, Keys& keys)
    {
        const TextKey* pKey = findKey(entry.m_sKey);
        const std::string sKey(entry.m_sKey);
        if (m_section) {
            m_section->known |= pKey != nullptr;
            if (m_section->file == &file)
                m_section->own.push_back(sKey);
            else
                m_section->later.push_back(sKey + " (" + place.path + ":" + std::to_string(entry.m_uLine) + ")");
            return;
        }
        keys.insert(sKey);
        if (pKey == nullptr) {
            if (entry.m_uLine != 1 || !file.marked())
                add(file, false, entry,
                    "unknown key \"" + sKey + "\": the strip does not read it" + suggestion(sKey, unusedKeys(file)));
            return;
        }
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
    }

    static std::vector<std::string> unusedKeys(const SourceFile& file)
    {
        std::vector<std::string> names;
        for (const TextKey& key : kTextKeys)
            if (std::none_of(file.texts().begin(), file.texts().end(),
                             [&key](const CSettingsEntry& entry) { return equalNoCase(entry.m_sKey, key.sName); }))
                names.push_back(key.sName);
        return names;
    }

    void checkValue(const Text& text, const TextKey& key)
    {
        const auto& [pFile, pEntry] = m_entries.at(text.key);
        const std::string& sValue = text.value;
        const auto tell = [&, this](const std::string& sText) {
            m_findings.problems.push_back(pFile->problem(false, *pEntry, pEntry->m_sValue, sText));
        };
        if (!key.bQuoted && sValue.size() > 1 && withoutQuotes(sValue).size() + 2 <= sValue.size() &&
            sValue.front() == sValue.back())
            tell("the quotes are shown: the strip drops those of ModifiedText, XrefsReadOnlyText and SameNameText "
                 "alone");
        const std::string sTarget = sValue.empty() ? "" : CHyperLink::getTarget(sValue.c_str()).GetString();
        if (key.eKind == TextKind::Address && !sValue.empty() && sTarget.empty())
            tell("this is no address that can be opened: http://, https://, www. or one mail address");
        if (key.eKind == TextKind::MailAddress && !sValue.empty() && sTarget.compare(0, 7, "mailto:") != 0)
            tell("this is no mail address: the button is not offered");
        const bool shown = key.eKind == TextKind::Caption || key.eKind == TextKind::Plain;
        if (const std::string sToken = shown ? findToken(sValue) : ""; !sToken.empty())
            tell(sToken + " stays as it is written: " + text.key + " is no template; TooltipText and SameNameText are");
    }

    void checkMnemonics()
    {
        std::map<std::string, const Text*> known;
        for (const Text& text : m_findings.texts) {
            const std::string sLetter = findKey(text.key)->eKind == TextKind::Caption ? mnemonic(text.value) : "";
            const auto [other, fresh] = known.emplace(sLetter, &text);
            if (sLetter.empty() || fresh)
                continue;
            const auto& [pFile, pEntry] = m_entries.at(text.key);
            m_findings.problems.push_back(pFile->problem(false, *pEntry, pEntry->m_sValue,
                                                         "\"" + text.value + "\" shares its mnemonic \"" + sLetter +
                                                             "\" with \"" + other->second->value + "\" (" +
                                                             other->second->key + "): one key does not choose either"));
        }
    }

    void add(const SourceFile& file, bool error, const CSettingsEntry& entry, std::string sText)
    {
        m_findings.problems.push_back(file.problem(error, entry, Tesk::MultiByte::trim(entry.m_sLine), sText));
    }

    SourceFiles& m_files;
    TextFindings& m_findings;
    std::optional<Section> m_section;
    std::map<std::string, std::pair<const SourceFile*, const CSettingsEntry*>> m_entries;  // that count, by key
};

// One line for all menu items that nobody gives a caption.
void checkUndefined(TextFindings& findings)
{
    std::vector<std::string> names;
    for (const Text& text : findings.texts)
        if (text.line == 0 && findKey(text.key)->eKind == TextKind::Caption)
            names.push_back(text.key);
    if (!names.empty())
        findings.problems.push_back(
            {findings.searched.front().path, 0, 0, true,
             "no file defines " + list(names) + ": the menu has blank items; is this the application root (--root)?",
             "", false});
}

}  // namespace

const Text* TextFindings::find(const std::string& sKey) const
{
    const auto found = std::find_if(texts.begin(), texts.end(), [&sKey](const Text& text) { return text.key == sKey; });
    return found == texts.end() ? nullptr : &*found;
}

TextCheck::TextCheck(SourceFiles& files)
    : m_files(files), m_bases(Tesk::Support::File::CLocator().getStandardDirectories())
{
}

const TextFindings& TextCheck::of(const std::string& sDrawing)
{
    using Tesk::Support::File::CLocator;
    const auto [found, fresh] = m_byFolder.try_emplace(Tesk::CPathParts(sDrawing).parent());
    TextFindings& findings = found->second;
    if (!fresh)
        return findings;
    Merge merge(m_files, findings);
    for (const auto& [layer, sPath] : CLocator().getCandidates(m_bases, {sDrawing.c_str()}, kSettingsFile, ""))
        for (const CString& sVariant : CLocator::variantsOf(sPath))
            merge.take(layer, sVariant.GetString());
    merge.finish();
    checkUndefined(findings);
    return findings;
}

TextFindings TextCheck::ofFile(const std::string& sPath)
{
    TextFindings findings;
    Merge merge(m_files, findings);
    merge.take(Layer::Folder, sPath);
    merge.finish();
    return findings;
}

void TextCheck::checkTemplateOf(const Text* pText, const Keywords& keywords, std::vector<Problem>& problems) const
{
    if (pText == nullptr || pText->line == 0)
        return;
    const SourceFile& file = m_files.get(pText->file, Form::Texts);
    const CSettingsEntry& entry = *std::find_if(file.texts().begin(), file.texts().end(),
                                                [pText](const auto& one) { return one.m_uLine == pText->line; });
    const std::size_t value = entry.m_sValue.find(pText->value);
    for (const TemplateFault& fault : checkTemplate(pText->value, keywords))
        problems.push_back(file.problem(fault.error, entry, entry.m_sValue.substr(value + fault.position), fault.text));
}

}  // namespace tabscheck
