#pragma once

// Tells apart the tabs of drawings that share a name, where their texts ask for it
// ("SameNameText"). Of the others nothing is known but the name: no text is looked up.

#include "tabs/ARXMDITabs.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

class CSameNames {
public:
    explicit CSameNames(CARXMDITabs& tabs) : m_tabs(tabs) {}

    // What goes behind the document's name, by which it is known from now on.
    CString getSuffix(AcApDocument* pDocument, const CString& sName);
    void remove(AcApDocument* pDocument);
    // Makes the tabs' texts anew that another drawing's coming, going or renaming has changed.
    void updateOthers();

private:
    struct Folder {
        CString sName;
        std::string sKey;  // the name in one case
    };
    struct Name {
        std::string sKey;                // the name in one case
        CString sFilename;               // the full path, once the name is shared
        CString sTemplate;               // empty: does not ask, or shares its name with none
        std::vector<Folder> vecFolders;  // from the drawing's own up, once the name is shared
        std::optional<CString> shown;    // by which the tab's text tells it apart now, if it does
    };
    // The documents of one name, and how many of them lie below a folder of that name.
    struct Group {
        std::vector<AcApDocument*> vecDocuments;
        std::map<std::string, int> mapFolders;

        bool isShared() const { return vecDocuments.size() > 1; }
    };

    static std::vector<Folder> foldersOf(const CString& sFilename);
    static std::set<std::string> keysOf(const std::vector<Folder>& vecFolders);
    Name& remember(AcApDocument* pDocument, const CString& sName);
    void forget(AcApDocument* pDocument);
    // Looks up what a shared name needs.
    void lookUp(AcApDocument* pDocument);
    // Nothing for a drawing that shares its name with none, or was never saved.
    std::optional<CString> distinguish(const Name& name) const;
    CString nearestFolder(const Group& group, const Name& name) const;

    CARXMDITabs& m_tabs;
    std::map<AcApDocument*, Name> m_mapNames;
    std::map<std::string, Group> m_mapGroups;
    std::set<std::string> m_setChanged;  // groups whose texts have not been looked at yet
};
