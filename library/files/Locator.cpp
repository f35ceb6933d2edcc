#include "library/files/Locator.h"

#include "library/diagnostics/Prerelease.h"
#include "library/files/FileSearch.h"
#include "library/files/PathParts.h"
#include "library/files/SupportFileLocator.h"
#include "library/text/MultiByte.h"
#include "objectarx/dbapserv.h"

#include <set>
#include <string>

namespace Tesk::Support::File {

CLocator::CLocator() { TESK_TRACE("%s()\n", "Tesk::Support::File::CLocator::CLocator"); }

CLocator::~CLocator() { TESK_TRACE("%s()\n", "Tesk::Support::File::CLocator::~CLocator"); }

CString CLocator::findFileIn(const CStringList& vecBases, const CStringList& vecDrawings, const char* sFileName,
                             const char* sSubfolder)
{
    CStringList vecFiles;
    findFilesIn(vecFiles, vecBases, vecDrawings, sFileName, sSubfolder);
    return lastOf(vecFiles);
}

CString CLocator::findFile(const CStringList& vecDrawings, const char* sFileName, const char* sSubfolder)
{
    CStringList vecFiles;
    findFiles(vecFiles, vecDrawings, sFileName, sSubfolder);
    return lastOf(vecFiles);
}

CString CLocator::findFileForDrawing(const char* sDrawing, const char* sFileName, const char* sSubfolder)
{
    CStringList vecFiles;
    findFilesForDrawing(vecFiles, sDrawing, sFileName, sSubfolder);
    return lastOf(vecFiles);
}

std::vector<CCandidate> CLocator::getCandidates(const CStringList& vecBases, const CStringList& vecDrawings,
                                                const char* sFileName, const char* sSubfolder)
{
    const CString sTail = getSupportSubfolder(sSubfolder) + sFileName;
    std::vector<CCandidate> vecCandidates;
    for (const CString& sBase : vecBases)
        vecCandidates.push_back({vecCandidates.empty() ? Layer::Standard : Layer::Domain, sBase + sTail});

    // Ordered sets: several drawings of one project give one candidate.
    std::set<CString> setProject;
    std::set<CString> setDrawing;
    for (const CString& sCurrentFile : vecDrawings) {
        TESK_ASSERT(!sCurrentFile.IsEmpty());
        const CString sFolder = CPathParts(sCurrentFile.GetString()).parent().c_str();
        const CString sProject = findProjectFolder(sFolder);
        if (!sProject.IsEmpty())
            setProject.insert(sProject + "Settings\\" + sTail);
        setDrawing.insert(sFolder + sFileName);
    }
    for (const CString& sCandidate : setProject)
        vecCandidates.push_back({Layer::Project, sCandidate});
    for (const CString& sCandidate : setDrawing)
        vecCandidates.push_back({Layer::Folder, sCandidate});
    return vecCandidates;
}

void CLocator::findFilesIn(CStringList& vecFiles, const CStringList& vecBases, const CStringList& vecDrawings,
                           const char* sFileName, const char* sSubfolder)
{
    for (const CCandidate& candidate : getCandidates(vecBases, vecDrawings, sFileName, sSubfolder))
        addExistingVariants(vecFiles, candidate.m_sPath);
}

void CLocator::findFiles(CStringList& vecFiles, const CStringList& vecDrawings, const char* sFileName,
                         const char* sSubfolder)
{
    findFilesIn(vecFiles, getStandardDirectories(), vecDrawings, sFileName, sSubfolder);
}

void CLocator::findFilesForDrawing(CStringList& vecFiles, const char* sDrawing, const char* sFileName,
                                   const char* sSubfolder)
{
    findFiles(vecFiles, CStringList(1, sDrawing), sFileName, sSubfolder);
}

void CLocator::findFilesInForDrawing(CStringList& vecFiles, const CStringList& vecBases, const char* sDrawing,
                                     const char* sFileName, const char* sSubfolder)
{
    findFilesIn(vecFiles, vecBases, CStringList(1, sDrawing), sFileName, sSubfolder);
}

void CLocator::findAllFiles(CStringList& vecFiles, const CStringList& vecDrawings, const char* sFileName,
                            const char* sSubfolder)
{
    findAllFilesIn(vecFiles, getStandardDirectories(), vecDrawings, sFileName, sSubfolder);
}

void CLocator::findAllFilesIn(CStringList& vecFiles, const CStringList& vecBases, const CStringList& vecDrawings,
                              const char* sFileName, const char* sSubfolder)
{
    // A caller's own findFilesIn does not change what this form finds.
    CLocator::findFilesIn(vecFiles, vecBases, vecDrawings, sFileName, sSubfolder);
}

CStringList CLocator::variantsOf(const char* sPath)
{
    const CPathParts parts(sPath);
    const AcDbHostApplicationServices* pHost = ::acdbHostApplicationServices();
    const std::string sRelease = pHost->releaseMajorMinorString();
    const std::string sProduct = pHost->product();
    const std::string sStem = parts.parent() + parts.m_sBase;
    const std::string sExtension = "." + (parts.m_sExtension.empty() ? "" : parts.m_sExtension.substr(1));
    return {sPath, (sStem + sRelease + sExtension).c_str(), (sStem + sProduct + "_" + sRelease + sExtension).c_str()};
}

void CLocator::addExistingVariants(CStringList& vecFiles, const char* sPath)
{
    for (const CString& sVariant : variantsOf(sPath)) {
        if (fileExists(sVariant))
            vecFiles.push_back(sVariant);
    }
}

CString CLocator::getSupportSubfolder(const char* sName) { return CString(*sName ? sName : "support") + "\\"; }

CStringList CLocator::getStandardDirectories()
{
    TESK_TRACE("%s()\n", "Tesk::Support::File::CLocator::getStandardDirectories");
    return {getLocation(LOCATION_DIR_APPLICATION_ROOT), getLocation(LOCATION_DIR_DOMAIN_SETTINGS)};
}

CStringList CLocator::splitPathList(const char* sPaths)
{
    CStringList vecPaths;
    std::string_view sRest(sPaths);
    while (!sRest.empty()) {
        // No second byte of a character is a semicolon.
        const std::string_view sPart = sRest.substr(0, sRest.find(';'));
        sRest.remove_prefix(sPart.size() < sRest.size() ? sPart.size() + 1 : sPart.size());
        if (!sPart.empty())
            vecPaths.push_back(std::string(sPart).c_str());
    }
    return vecPaths;
}

CString CLocator::lastOf(const CStringList& vecFiles) { return vecFiles.empty() ? CString() : vecFiles.back(); }

}  // namespace Tesk::Support::File
