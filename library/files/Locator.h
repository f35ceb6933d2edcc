#pragma once

// Finds the existing copies of a settings file, from the most general to the most
// specific: application root, domain settings, projects' "Settings", drawings' folders.

#include "library/files/SupportFileLocator.h"
#include "mfc/afx.h"

#include <vector>

namespace Tesk::Support::File {

using CStringList = std::vector<CString>;

struct CCandidate {
    Layer m_eLayer;
    CString m_sPath;
};

// Polymorphic so that a caller can bring a locator of its own. Output lists are appended
// to. Nothing here raises: what does not exist is left out.
class CLocator {
public:
    virtual ~CLocator();
    CLocator();
    CLocator(const CLocator&) = delete;
    CLocator& operator=(const CLocator&) = delete;

    // The most specific copy, or empty.
    virtual CString findFileIn(const CStringList& vecBases, const CStringList& vecDrawings, const char* sFileName,
                               const char* sSubfolder);
    virtual CString findFile(const CStringList& vecDrawings, const char* sFileName, const char* sSubfolder);
    virtual CString findFileForDrawing(const char* sDrawing, const char* sFileName, const char* sSubfolder);

    // Where a search looks, in its order, whether anything is there or not: each path stands
    // for its variants, too. Of the base folders the first is the standard one.
    std::vector<CCandidate> getCandidates(const CStringList& vecBases, const CStringList& vecDrawings,
                                          const char* sFileName, const char* sSubfolder);

    // Every copy: below each base folder and each project's "Settings" folder in the
    // support sub-folder, then beside the drawings. No drawing path may be empty.
    virtual void findFilesIn(CStringList& vecFiles, const CStringList& vecBases, const CStringList& vecDrawings,
                             const char* sFileName, const char* sSubfolder);
    // The same with the standard directories as base folders.
    virtual void findFiles(CStringList& vecFiles, const CStringList& vecDrawings, const char* sFileName,
                           const char* sSubfolder);
    virtual void findFilesForDrawing(CStringList& vecFiles, const char* sDrawing, const char* sFileName,
                                     const char* sSubfolder);
    virtual void findFilesInForDrawing(CStringList& vecFiles, const CStringList& vecBases, const char* sDrawing,
                                       const char* sFileName, const char* sSubfolder);

    // The second search form, over the same three kinds of folders.
    virtual void findAllFiles(CStringList& vecFiles, const CStringList& vecDrawings, const char* sFileName,
                              const char* sSubfolder);
    virtual void findAllFilesIn(CStringList& vecFiles, const CStringList& vecBases, const CStringList& vecDrawings,
                                const char* sFileName, const char* sSubfolder);

    // The path itself, then with the host's release before the extension, then with the
    // host's product name, "_" and the release.
    static CStringList variantsOf(const char* sPath);
    // Appends those that exist.
    virtual void addExistingVariants(CStringList& vecFiles, const char* sPath);

    // "NAME\", or "support\" for an empty name.
    virtual CString getSupportSubfolder(const char* sName);

    // The application root and the domain settings folder.
    virtual CStringList getStandardDirectories();

    // The parts of a list delimited by ";", empty ones left out.
    virtual CStringList splitPathList(const char* sPaths);

    // The last element, or empty.
    virtual CString lastOf(const CStringList& vecFiles);
};

}  // namespace Tesk::Support::File
