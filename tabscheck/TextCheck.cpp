#include "tabscheck/TextCheck.h"

#include "library/diagnostics/ExceptionText.h"
#include "library/files/DefaultSettings.h"
#include "library/files/FileSearch.h"
#include "library/files/Locator.h"
#include "library/files/PathParts.h"
#include "library/text/CaseFold.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"
#include "settings/TabsDefaultSettings.h"
#include "settings/TextKeys.h"
#include "tabscheck/Spelling.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <set>

namespace tabscheck {

namespace {

using Tesk::MultiByte::equalNoCase;

constexpr const char* kSettingsFile = "MDITabs.ini";
constexpr std::size_t kMostListed = 5;

const TextKey* findKey(std::string_view sKey)
{
    const auto found = std::find_if(std::begin(kTextKeys), std::end(kTextKeys),
                                    [sKey](const TextKey& key) { return equalNoCase(key.sName, sKey); });
    return found == std::end(kTextKeys) ? nullptr : &*found;
}

std::vector<std::string> knownKeys()
{
    std::vector<std::string> names;
    for (const TextKey& key : kTextKeys)
        names.push_back(key.sName);
    return names;
}

// The product's locator, which tells also where it looked in vain.
class RecordingLocator : public Tesk::Support::File::CLocator {
public:
    explicit RecordingLocator(std::string sFolder) : m_folder(std::move(sFolder)) {}

    void addExistingVariants(Tesk::Support::File::CStringList& vecFiles, const char* sPath) override
    {
        const Layer layer = nextLayer(sPath);
        for (const CString& sVariant : variantsOf(sPath))
            m_places.push_back({layer, sVariant.GetString(), false});
        const std::size_t first = vecFiles.size();
        CLocator::addExistingVariants(vecFiles, sPath);
        for (std::size_t i = first; i < vecFiles.size(); ++i)
            for (auto place = m_places.end() - kVariants; place != m_places.end(); ++place)
                place->found |= place->path == vecFiles[i].GetString();
    }

    std::vector<Place>& places() { return m_places; }

private:
    static constexpr int kVariants = 3;

    // The application root and the domain's folder come first, the drawing's own last.
    Layer nextLayer(const std::string& sPath) const
    {
        switch (m_places.size() / kVariants) {
        case 0:
            return Layer::Standard;
        case 1:
            return Layer::Domain;
        default:
            return sPath == m_folder + kSettingsFile ? Layer::Folder : Layer::Project;
        }
    }

    const std::string m_folder;
    std::vector<Place> m_places;
};

// What the reader made of the files, in their order.
class Recorder : public Tesk::CSettingsListener {
public:
    Recorder(SourceFiles& files, std::vector<Place>& places, TextFindings& findings)
        : m_files(files), m_places(places), m_findings(findings)
    {
    }

    void onFile(const char* sFileName) override
    {
        m_place = &*std::find_if(m_places.begin(), m_places.end(),
                                 [sFileName](const Place& place) { return place.path == sFileName; });
        m_keys.clear();
    }

    void onSection(unsigned line, std::string_view sName) override
    {
        closeSection();
        if (!sName.empty())
            m_section = Section{m_place->path, line, std::string(sName)};
    }

    void onIgnoredHeader(unsigned line) override
    {
        add(false, line,
            "this header does not end in \"]\" and is ignored: the keys below it belong to " +
                (m_section ? "[" + m_section->name + "]" : std::string("no section, and are read")));
    }

    void onKey(unsigned line, std::string_view, std::string_view sKey, std::string_view sValue) override
    {
        const TextKey* pKey = findKey(sKey);
        if (m_section) {
            swallow(line, sKey, pKey != nullptr);
            return;
        }
        m_keys.insert(Tesk::toCString(sKey));
        m_place->keys = static_cast<unsigned>(m_keys.size());
        if (pKey == nullptr) {
            // The mark of an encoding, which is told already, stands before the key.
            if (line == 1 && !m_files.get(m_place->path, Reading::Detecting).problems().empty())
                return;
            add(false, line,
                "unknown key \"" + std::string(sKey) + "\": the strip does not read it" +
                    suggestion(sKey, knownKeys()));
            return;
        }
        const auto text = std::find_if(m_findings.texts.begin(), m_findings.texts.end(),
                                       [pKey](const Text& t) { return t.key == pKey->sName; });
        // Of two lines in one file the later counts, and the earlier is overridden like any other.
        const std::string sText(sValue.substr(0, sValue.find('\0')));
        text->settings.insert(text->settings.begin(), {m_place->layer, m_place->path, line, sText});
    }

    // After the last file.
    void closeSection()
    {
        if (m_section && (m_section->known || !m_section->later.empty()))
            report(*m_section);
        m_section.reset();
    }

private:
    struct Section {
        std::string file;
        unsigned line;
        std::string name;
        std::vector<std::string> own = {};
        std::vector<std::string> later = {};
        bool known = false;
    };

    void swallow(unsigned line, std::string_view sKey, bool known)
    {
        m_section->known |= known;
        if (m_place->path == m_section->file)
            m_section->own.push_back(std::string(sKey));
        else
            m_section->later.push_back(std::string(sKey) + " (" + m_place->path + ":" + std::to_string(line) + ")");
    }

    void report(const Section& section)
    {
        std::string sText = "section [" + section.name + "] swallows ";
        if (!section.own.empty())
            sText += "the keys below it: " + list(section.own);
        if (!section.later.empty())
            sText +=
                (section.own.empty() ? "keys of later files: " : "; and keys of later files: ") + list(section.later);
        const SourceFile& file = m_files.get(section.file, Reading::Detecting);
        m_findings.problems.push_back(
            file.problem(true, section.line, firstWord(file.line(section.line)), std::move(sText)));
    }

    static std::string list(const std::vector<std::string>& names)
    {
        std::string sList;
        for (std::size_t i = 0; i < std::min(names.size(), kMostListed); ++i)
            sList += (i == 0 ? "" : ", ") + names[i];
        return names.size() <= kMostListed ? sList
                                           : sList + " and " + std::to_string(names.size() - kMostListed) + " more";
    }

    void add(bool error, unsigned line, std::string sText)
    {
        const SourceFile& file = m_files.get(m_place->path, Reading::Detecting);
        m_findings.problems.push_back(file.problem(error, line, firstWord(file.line(line)), std::move(sText)));
    }

    SourceFiles& m_files;
    std::vector<Place>& m_places;
    TextFindings& m_findings;
    Place* m_place = nullptr;
    std::set<CString, Tesk::CLessNoCase> m_keys;  // of the file
    std::optional<Section> m_section;
};

// Empty when the strip can use the copy.
std::optional<Problem> findDamage(SourceFiles& files, const std::string& sPath)
{
    try {
        Tesk::CDefaultSettings({sPath.c_str()}, false);
        return std::nullopt;
    } catch (CException* pException) {
        const auto* pDamage = dynamic_cast<Tesk::CDefaultSettingsException*>(pException);
        const unsigned line = pDamage != nullptr ? pDamage->getLine() : 0;
        const std::string sError = Tesk::takeExceptionText(pException).GetString();
        const SourceFile& file = files.get(sPath, Reading::Detecting);
        if (line == 0)
            return file.problem(true, 0, 0, sError);
        return file.problem(true, line, firstWord(file.line(line)),
                            "no \"=\" in this line: the strip drops this whole copy of the file");
    }
}

}  // namespace

const Text* TextFindings::find(const std::string& sKey) const
{
    const auto found = std::find_if(texts.begin(), texts.end(), [&sKey](const Text& text) { return text.key == sKey; });
    return found == texts.end() ? nullptr : &*found;
}

const TextFindings& TextCheck::of(const std::string& sDrawing)
{
    const std::string sFolder = Tesk::PathParts(sDrawing).parent();
    const auto found = m_byFolder.find(sFolder);
    return found != m_byFolder.end() ? found->second : m_byFolder.emplace(sFolder, read(sDrawing)).first->second;
}

TextFindings TextCheck::read(const std::string& sDrawing)
{
    TextFindings findings;
    RecordingLocator locator(Tesk::PathParts(sDrawing).parent());
    std::vector<CString> vecCopies;
    locator.findFilesForDrawing(vecCopies, sDrawing.c_str(), kSettingsFile, "");

    std::vector<CString> vecReadable;
    for (const CString& sCopy : vecCopies) {
        const SourceFile& file = m_files.get(sCopy.GetString(), Reading::Detecting);
        findings.problems.insert(findings.problems.end(), file.problems().begin(), file.problems().end());
        if (const std::optional<Problem> damage = findDamage(m_files, sCopy.GetString())) {
            findings.problems.push_back(*damage);
            for (Place& place : locator.places())
                place.dropped |= place.path == sCopy.GetString();
        } else {
            vecReadable.push_back(sCopy);
        }
    }

    for (const TextKey& key : kTextKeys)
        findings.texts.push_back({key.sName, {}});
    Recorder recorder(m_files, locator.places(), findings);
    const Tesk::CDefaultSettings settings(vecReadable, false, &recorder);
    recorder.closeSection();
    findings.searched = std::move(locator.places());

    // Where a text comes from is the recorder's to say; what it is, the strip's.
    const std::unique_ptr<CTabsDefaultSettings> pShown = CTabsDefaultSettings::createReadable(sDrawing.c_str());
    for (Text& text : findings.texts) {
        if (!text.settings.empty())
            text.settings.front().value = pShown->getValue(text.key.c_str()).GetString();
        for (Setting& setting : text.settings)
            if (findKey(text.key)->bQuoted)
                setting.value = CString(setting.value.c_str()).Trim("\"'").GetString();
    }
    std::erase_if(findings.texts, [](const Text& text) { return text.settings.empty() && findKey(text.key)->bOptIn; });
    return findings;
}

}  // namespace tabscheck
