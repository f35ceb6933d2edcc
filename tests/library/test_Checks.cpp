// What is said of a caller's fault, for whoever reads the log.

#include "library/drawing/ARXDrawingProperties.h"
#include "library/drawing/ARXVariable.h"
#include "library/drawing/WorkingDatabase.h"
#include "library/expansion/ARXKeywordExpansion.h"
#include "library/files/DefaultSettingsManager.h"
#include "library/files/SupportFileLocator.h"
#include "library/titleblock/ARXTitleBlock.h"
#include "tests/library/DrawingFixture.h"
#include "tests/library/LibraryFixture.h"
#include "tests/library/Raised.h"
#include "tests/support/Answers.h"

using namespace Tesk;

namespace {

class CBareManager : public CDefaultSettingsManager {
public:
    CBareManager() : CDefaultSettingsManager("", nullptr) {}
    bool reset(const std::vector<CString>&, bool) override { return false; }
    void traceContents(int) override {}
    using CDefaultSettingsManager::getSupportSubfolderName;
};

class CTwice : public CARXKeywordExpansion {
public:
    explicit CTwice(AcDbDatabase& database) : CARXKeywordExpansion(&database, "", 1, 1) { buildFileMappings(); }
};

}  // namespace

TEST_CASE_FIXTURE(CLibraryFixture, "a caller's fault is reported, and the work goes on")
{
    startAt(2);
    const DrawingFixture files;
    files.settings(files.sProject, "Job", "BORDER \"A1\" \".dwg\"\r\nBORDER \"A1\" x\r\nBORDER \"A1\" \"B\"\r\nNO NR");
    const CString sTexts = files.tree().write("a.ini", "[S]\r\nk = v").c_str();
    const auto database = files.open(DrawingText().border("B", {{"NR", "1"}}));
    const Answers answers;
    CARXTitleBlock title(database.get(), database->path().c_str());
    host::Faults::failNth("AcDbText::setTextString", 1);
    title.setAttributeValue("NR", "2");
    host::Faults::failNth("AcDbObject::getAcDbHandle", 1);
    title.search();
    CARXTitleBlock(database.get(), "C:\\none.dwg").getProjectLabel();
    {
        const CWorkingDatabase working(database.get());
        CTwice twice(*database);
    }
    host::Faults::failNth("AcDbDatabaseSummaryInfo::getComments", 1);
    CARXDrawingProperties{database.get()}.write();
    CARXDrawingProperties().getTitle();
    CVariable number("N");
    number.set(short{2});
    number.getBool();
    messageOf([] { CARXVariable("NONE").write(); });
    messageOf([] { CDefaultSettings({""}, false); });
    CDefaultSettings({sTexts}, false).traceContents(2);
    CBareManager manager;
    manager.getAllValues();
    manager.getValue("k");
    CHECK(manager.getSupportSubfolderName() == "ZavikMDITabs");
    Support::File::CLocator().findFile({""}, "a.ini", "");
    getLocation(-1);
    getLocation(LOCATION_DIRS);
    Registry::SetValue(HKEY_CURRENT_USER, "Software\\Zavik\\Test", "", DWORD{1});
    CHECK(answers.assertions() ==
          "ARXTitleBlock: _tcslen(sBlockName) > 0\nARXTitleBlock: bValidDB\n"
          "ARXTitleBlock: pAttribute->setTextString(sValue) == Acad::eOk\n"
          "ARXTitleBlock: _tcslen(sBlockName) > 0\nARXTitleBlock: !handleBorder.isNull()\nARXTitleBlock: bValidDB\n"
          "ARXTitleBlock: ads_handent(hBlockReference, eBlockReference) == RTNORM\n"
          "ARXTitleBlock: acdbOpenAcDbObject(pObject, idBlockReference, AcDb::kForRead) == Acad::eOk\n"
          "TitleBlock: m_bProject\nARXKeywordExpansion: !m_bHalvoranMappingsBuilt\n"
          "ARXDrawingProperties: pInfo->getComments(szComments) == Acad::eOk\nDrawingProperties: m_bValid\n"
          "Variable: (m_iValue == 1) || (m_iValue == 0)\nVariable: false\n"
          "DefaultSettings: _tcslen(sFileName) != 0\nDefaultSettingsManager: false\nDefaultSettingsManager: false\n"
          "Locator: !sCurrentFile.IsEmpty()\nSupportFileLocator: false\n"
          "SupportFileLocator: (iWhere != LOCATION_DIRS) && (iWhere != LOCATION_FILES)\n"
          "Registry: CString(sValue).IsEmpty() ? (dwType == REG_SZ) : true\n");
    const std::string sLog = log();
    for (const char* sTrace : {" : ** Invalid border entry.\r\n", " : CARXDrawingProperties::write()\r\n",
                               " : Written - NONE value is :  ().\r\n", " : \tsSection = \"S\"\r\n", " : \t\t[S]\r\n"})
        CHECK_MESSAGE(sLog.find(sTrace) != std::string::npos, sTrace);
}
