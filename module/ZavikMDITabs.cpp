#include "module/ZavikMDITabs.h"

#include "additions/Additions.h"
#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"
#include "library/maintenance/Maintenance.h"
#include "module/AcadARXUtil.h"
#include "module/OptionsCommand.h"
#include "objectarx/rxdlinkr.h"
#include "objectarx/rxmfcapi.h"
#include "reactors/DocManagerReactor.h"
#include "reactors/EditorReactor.h"
#include "settings/MDITabSettings.h"
#include "settings/TabOptions.h"

// Where this image begins, which is its instance; the linker's name for it.
extern "C" IMAGE_DOS_HEADER __ImageBase;

std::unique_ptr<CARXMDITabs> m_pWndTabs;

namespace {

constexpr const char* kApplicationName = "ZavikMDITabs";

}  // namespace

CARXMDITabs* getTabWindow()
{
    TESK_ASSERT(m_pWndTabs != NULL);
    return m_pWndTabs.get();
}

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
    Tesk::initialiseLibrary(kApplicationName, reinterpret_cast<HINSTANCE>(&__ImageBase), false);
    CMDITabSettings::assertNoDefaultSettings();
    reapplyDiagnosticsLevel();
    // Whatever becomes of the strip, its options can be reached.
    Tesk::guarded("initApplication", [] {
        if (CTabOptions::readUse())
            openStrip();
    });
    Tesk::registerCommand(kApplicationName, kApplicationName, &runOptionsCommand, ACRX_CMD_MODAL);
}

void unloadApplication()
{
    // The strip can be up although it is switched off: the registry was changed by
    // others, or a style together with the switch. Nothing of it may outlive the module.
    if (CTabOptions::readUse() || m_pWndTabs != nullptr)
        closeStrip();
    CMDITabSettings::clearDefaultSettings();
    // So that the module can be loaded again in the same session.
    if (AcEdCommandStack* pStack = acedRegCmds)
        pStack->removeGroup(kApplicationName);
    Tesk::terminateLibrary();
}

void reapplyDiagnosticsLevel() { Tesk::setDiagnosticsLevel(Tesk::getDiagnosticsLevel() == 2 ? 2 : 0); }

void openStrip()
{
    createTabWindow();
    CDocManagerReactor::attach();
    CEditorReactor::attach();
}

// A guard a step: whatever stayed registered with the host would be called after the
// module is gone.
void closeStrip()
{
    Tesk::guarded("CEditorReactor::detach", &CEditorReactor::detach);
    Tesk::guarded("CDocManagerReactor::detach", &CDocManagerReactor::detach);
    Tesk::guarded("destroyTabWindow", &destroyTabWindow);
}

void createTabWindow()
{
    CMDIFrameWnd* pMainFrame = acedGetAcadFrame();
    const CTabOptions options = CTabOptions::read();
    DWORD dwStyle = MDITABS_IMAGES;
    if (options.dwLocation != 1)
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
    m_pWndTabs->setAdditions(createAdditions(*m_pWndTabs));
}

void destroyTabWindow()
{
    if (CARXMDITabs* pTabs = getTabWindow()) {
        pTabs->DestroyWindow();
        m_pWndTabs.reset();
    }
}

void updateFrameLayout()
{
    if (m_pWndTabs->GetItemCount() <= 2)
        acedGetAcadFrame()->RecalcLayout(TRUE);
}
