#pragma once

// Tells apart the tabs of drawings that share a name, where their texts ask for it
// ("SameNameText"). Of the others nothing is known but the name: no text is looked up.

#include "tabs/ARXMDITabs.h"

#include <map>
#include <optional>
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
    // What is known of a document once it shares its name.
    struct Shared {
        CString sFilename;               // the full path
        CString sTemplate;               // empty: does not ask
        std::vector<Folder> vecFolders;  // from the drawing's own up, each name once
        std::optional<CString> shown;    // by which the tab's text tells it apart now, if it does
    };
    // The documents of one name, and how many of them lie below a folder of that name.
    struct Group {
        std::vector<AcApDocument*> vecDocuments;
        std::map<AcApDocument*, Shared> mapShared;
        std::map<std::string, int> mapFolders;
    };
    using Groups = std::map<std::string, Group>;  // by the name in one case

    static std::vector<Folder> foldersOf(const CString& sFilename);
    Group& remember(AcApDocument* pDocument, const CString& sName);
    void forget(AcApDocument* pDocument);
    static Shared& lookUp(Group& group, AcApDocument* pDocument);
    // Nothing for a drawing that shares its name with none, or was never saved.
    static std::optional<CString> distinguish(const Group& group, const Shared& shared);

    CARXMDITabs& m_tabs;
    Groups m_mapGroups;
    std::map<AcApDocument*, Groups::iterator> m_mapGroupOf;
    bool m_bChanged = false;  // who shares a name, and the texts have not been looked at yet
};
