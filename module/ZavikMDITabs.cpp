#include "module/ZavikMDITabs.h"

#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Maintenance.h"
#include "library/diagnostics/Prerelease.h"
#include "module/AcadARXUtil.h"
#include "module/TabForwarders.h"
#include "objectarx/rxdlinkr.h"
#include "objectarx/rxmfcapi.h"
#include "reactors/DocManagerReactor.h"
#include "reactors/EditorReactor.h"
#include "settings/MDITabSettings.h"

// The C++ runtime's own: frees the reserve that it keeps for throwing without memory.
namespace __gnu_cxx {
void __freeres();
}  // namespace __gnu_cxx

// Where this image begins, which is its instance; the linker's name for it.
extern "C" IMAGE_DOS_HEADER __ImageBase;

std::unique_ptr<CARXMDITabs> m_pWndTabs;

namespace {

constexpr const char* kApplicationName = "ZavikMDITabs";

// The options as they stand in the registry; what cannot be read has its default.
struct Options {
    bool bUse = true;
    DWORD dwTabLocation = 1;
    bool bDiscreet = false;
    bool bToolTips = true;
    bool bExtensions = false;
    bool bIcons = true;

    static Options read()
    {
        Options options;
        CMDITabSettings::getUse(options.bUse);
        CMDITabSettings::getTabLocation(options.dwTabLocation);
        CMDITabSettings::getIsDiscreet(options.bDiscreet);
        CMDITabSettings::getUseToolTips(options.bToolTips);
        CMDITabSettings::getUseExtensions(options.bExtensions);
        CMDITabSettings::getUseIcons(options.bIcons);
        return options;
    }

    bool sameStyle(const Options& other) const
    {
        return dwTabLocation == other.dwTabLocation && bDiscreet == other.bDiscreet && bToolTips == other.bToolTips;
    }
    bool sameTexts(const Options& other) const { return bExtensions == other.bExtensions && bIcons == other.bIcons; }
};

// What the command does to the strip after the options were changed.
struct Decision {
    bool bDestroy;
    bool bCreate;
    bool bRebuild;

    Decision(const Options& before, const Options& after)
    {
        const bool bTurnOn = !before.bUse && after.bUse;
        const bool bTurnOff = before.bUse && !after.bUse;
        const bool bStyleChanged = !before.sameStyle(after);
        const bool bTextChanged = !before.sameTexts(after);
        bDestroy = bTurnOff || bStyleChanged;
        bCreate = bTurnOn || bStyleChanged;
        bRebuild = after.bUse && (bCreate || bTextChanged);
    }
};

bool isStripUsed()
{
    bool bUse = true;
    CMDITabSettings::getUse(bUse);
    return bUse;
}

void reapplyDiagnosticsLevel() { Tesk::setDiagnosticsLevel(Tesk::getDiagnosticsLevel() == 2 ? 2 : 0); }

void attachReactors()
{
    CDocManagerReactor::attach();
    CEditorReactor::attach();
}

// Each step under a guard of its own: whatever stayed registered with the host
// would be called after the module is gone.
void closeStrip()
{
    Tesk::guarded("CEditorReactor::detach", [] { CEditorReactor::detach(); });
    Tesk::guarded("CDocManagerReactor::detach", [] { CDocManagerReactor::detach(); });
    Tesk::guarded("destroyTabWindow", [] { destroyTabWindow(); });
}

// The strip can be up although it is switched off: the registry was changed by
// others, or a style was changed together with the switch. Nothing of it may
// outlive the module.
void releaseLeftStrip()
{
    if (CEditorReactor::isAttached())
        Tesk::guarded("CEditorReactor::detach", [] { CEditorReactor::detach(); });
    if (CDocManagerReactor::isAttached())
        Tesk::guarded("CDocManagerReactor::detach", [] { CDocManagerReactor::detach(); });
    if (m_pWndTabs != nullptr)
        Tesk::guarded("destroyTabWindow", [] { destroyTabWindow(); });
}

void applyOptions(const Options& before, const Options& after)
{
    const Decision decision(before, after);
    reapplyDiagnosticsLevel();
    if (decision.bDestroy)
        closeStrip();
    if (decision.bCreate) {
        createTabWindow();
        attachReactors();
    }
    if (decision.bRebuild)
        if (CDocManagerReactor* pReactor = CDocManagerReactor::getReactor())
            pReactor->refreshDocuments();
    acedGetAcadFrame()->RecalcLayout(TRUE);
}

// The runtime is linked into the module, but leaves its reserve behind at each unloading.
[[gnu::destructor]] void freeRuntimeReserve() { __gnu_cxx::__freeres(); }

// What a handler of one of our windows let out.
void traceWindowException(const CException& exception)
{
    char sText[1024] = "";
    exception.GetErrorMessage(sText, sizeof sText);
    TESK_TRACE("a window's handler ended by an exception: %s\n", sText);
}

}  // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt)
{
    Tesk::guarded("acrxEntryPoint", [&] {
        switch (msg) {
        case AcRx::kInitAppMsg:
            acrxDynamicLinker->unlockApplication(pkt);
            acrxDynamicLinker->registerAppMDIAware(pkt);
            initApplication();
            break;
        case AcRx::kUnloadAppMsg:
            unloadApplication();
            break;
        default:
            break;
        }
    });
    return AcRx::kRetOK;
}

void initApplication()
{
    AfxSetExceptionHook(&traceWindowException);
    Tesk::initialiseLibrary(kApplicationName, reinterpret_cast<HINSTANCE>(&__ImageBase), false);
    CMDITabSettings::assertNoDefaultSettings();
    reapplyDiagnosticsLevel();
    // Whatever becomes of the strip, its options can be reached.
    Tesk::guarded("initApplication", [] {
        if (isStripUsed()) {
            createTabWindow();
            attachReactors();
        }
    });
    Tesk::registerCommand(kApplicationName, kApplicationName, &runOptionsCommand, ACRX_CMD_MODAL);
}

void unloadApplication()
{
    if (isStripUsed())
        closeStrip();
    else
        releaseLeftStrip();
    CMDITabSettings::clearDefaultSettings();
    // So that the module can be loaded again in the same session.
    if (AcEdCommandStack* pStack = acedRegCmds)
        pStack->removeGroup(kApplicationName);
    Tesk::terminateLibrary();
    AfxSetExceptionHook(nullptr);
}

void createTabWindow()
{
    CMDIFrameWnd* pMainFrame = acedGetAcadFrame();
    const Options options = Options::read();
    DWORD dwStyle = MDITABS_IMAGES;
    if (options.dwTabLocation != 1)
        dwStyle |= MDITABS_TOP;
    if (options.bDiscreet)
        dwStyle |= MDITABS_DISCREET;
    if (options.bToolTips)
        dwStyle |= MDITABS_TOOLTIPS;

    TESK_ASSERT(m_pWndTabs == NULL);
    if (m_pWndTabs != nullptr)
        m_pWndTabs->DestroyWindow();
    m_pWndTabs = std::make_unique<CARXMDITabs>();
    m_pWndTabs->Create(pMainFrame, dwStyle);
}

void destroyTabWindow()
{
    TESK_ASSERT(m_pWndTabs != NULL);
    if (m_pWndTabs == nullptr)
        return;
    m_pWndTabs->DestroyWindow();
    m_pWndTabs.reset();
}

void updateFrameLayout()
{
    if (m_pWndTabs->GetItemCount() <= 2)
        acedGetAcadFrame()->RecalcLayout(TRUE);
}

void tabsAddDocument(AcApDocument* pDocument)
{
    TESK_ASSERT(m_pWndTabs != NULL);
    if (m_pWndTabs == nullptr)
        return;
    m_pWndTabs->addDocument(pDocument);
    updateFrameLayout();
}

void tabsRemoveDocument(AcApDocument* pDocument)
{
    TESK_ASSERT(m_pWndTabs != NULL);
    if (m_pWndTabs == nullptr)
        return;
    m_pWndTabs->removeDocument(pDocument);
    updateFrameLayout();
}

void tabsActivateDocument(AcApDocument* pDocument)
{
    TESK_ASSERT(m_pWndTabs != NULL);
    if (m_pWndTabs != nullptr)
        m_pWndTabs->activateDocument(pDocument);
}

void tabsUpdateDocumentModified(AcApDocument* pDocument)
{
    TESK_ASSERT(m_pWndTabs != NULL);
    if (m_pWndTabs != nullptr)
        m_pWndTabs->updateDocumentModified(pDocument);
}

void runOptionsCommand()
{
    Tesk::guarded("runOptionsCommand", [] {
        const Options before = Options::read();
        if (CMDITabSettings::editOptions())
            applyOptions(before, Options::read());
    });
}
