#include "module/OptionsCommand.h"

#include "library/diagnostics/Guard.h"
#include "module/ZavikMDITabs.h"
#include "objectarx/rxmfcapi.h"
#include "reactors/DocManagerReactor.h"
#include "settings/MDITabSettings.h"
#include "settings/TabOptions.h"
#include "tabs/OptionsKick.h"

namespace {

// What becomes of the strip after the options were changed.
struct Decision {
    bool bDestroy;
    bool bCreate;
    bool bRebuild;

    Decision(const CTabOptions& before, const CTabOptions& after)
    {
        const bool bTurnOn = !before.bUse && after.bUse;
        const bool bTurnOff = before.bUse && !after.bUse;
        const bool bStyleChanged = before.dwLocation != after.dwLocation || before.bDiscreet != after.bDiscreet ||
                                   before.bToolTips != after.bToolTips;
        const bool bTextChanged = before.bExtensions != after.bExtensions || before.bIcons != after.bIcons;
        bDestroy = bTurnOff || bStyleChanged;
        bCreate = bTurnOn || bStyleChanged;
        bRebuild = after.bUse && (bCreate || bTextChanged);
    }
};

void apply(const Decision& decision)
{
    reapplyDiagnosticsLevel();
    if (decision.bDestroy)
        closeStrip();
    if (decision.bCreate)
        openStrip();
    CDocManagerReactor* pReactor = decision.bRebuild ? CDocManagerReactor::getReactor() : nullptr;
    if (pReactor != nullptr) {
        m_pWndTabs->addDrawingIcon();
        pReactor->refreshDocuments();
    }
    acedGetAcadFrame()->RecalcLayout(TRUE);
}

}  // namespace

void runOptionsCommand()
{
    if (COptionsKick::putOff())
        return;
    Tesk::guarded("runOptionsCommand", [] {
        const CTabOptions before = CTabOptions::read();
        if (CMDITabSettings::editOptions())
            apply(Decision(before, CTabOptions::read()));
    });
}
