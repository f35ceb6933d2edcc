#include "module/AcadARXUtil.h"

#include "library/diagnostics/Prerelease.h"

#include <tchar.h>

namespace Tesk {

Acad::ErrorStatus registerCommand(const char* sCommand, const char* sGroupName, AcRxFunctionPtr functionAddr,
                                  Adesk::Int32 iPrimaryFlags, Adesk::Int32 iSecondaryFlags, HINSTANCE hResourceHandle)
{
    TESK_ASSERT((iPrimaryFlags == ACRX_CMD_MODAL) || (iPrimaryFlags == ACRX_CMD_TRANSPARENT));
    TESK_ASSERT(_tcslen(sCommand) < 31);

    AcEdUIContext* pUIContext = nullptr;
    const int iFCode = -1;
    AcEdCommand** pCmdPtrRet = nullptr;
    AcEdCommandStack* pStack = acedRegCmds;
    const Acad::ErrorStatus status =
        pStack == nullptr ? Acad::eNullObjectPointer
                          : pStack->addCommand(sGroupName, sCommand, sCommand, iPrimaryFlags | iSecondaryFlags,
                                               functionAddr, pUIContext, iFCode, hResourceHandle, pCmdPtrRet);
    TESK_ASSERT_TEXT(status == Acad::eOk,
                     "acedRegCmds->addCommand( sGroupName, sCommand, sCommand, iPrimaryFlags | iSecondaryFlags, "
                     "functionAddr, pUIContext, iFCode, hResourceHandle, pCmdPtrRet) == Acad::eOk");
    return status;
}

}  // namespace Tesk
