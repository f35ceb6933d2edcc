#pragma once

// Tells apart the tabs of drawings that share a name, where their texts ask for it
// ("SameNameText"). While none does, nothing is kept and no name compared.

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
        CString sFilename;               // the full path
        CString sTemplate;               // empty: does not ask
        std::vector<Folder> vecFolders;  // from the drawing's own up
        std::optional<CString> shown;    // by which the tab's text tells it apart now, if it does
    };
    // The documents of one name, and how many of them lie below a folder of that name.
    struct Group {
        std::vector<AcApDocument*> vecDocuments;
        std::map<std::string, int> mapFolders;
    };

    static std::vector<Folder> foldersOf(const CString& sFilename);
    static std::set<std::string> keysOf(const std::vector<Folder>& vecFolders);
    void rememberTabs();
    void remember(AcApDocument* pDocument, const CString& sName, const CString& sTemplate);
    void forget(AcApDocument* pDocument);
    // Nothing for a drawing that shares its name with none, or was never saved.
    std::optional<CString> distinguish(const Group& group, const Name& name) const;
    CString nearestFolder(const Group& group, const Name& name) const;

    CARXMDITabs& m_tabs;
    std::map<AcApDocument*, Name> m_mapNames;
    std::map<std::string, Group> m_mapGroups;
    std::set<std::string> m_setChanged;  // groups whose texts have not been looked at yet
    int m_iAsking = 0;                   // of the names, those that have a template
};
