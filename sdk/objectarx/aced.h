#pragma once

// The editor's events, and the stack of registered commands.

#include "objectarx/acadstrc.h"
#include "objectarx/dbmain.h"
#include "objectarx/rxdefs.h"
#include "objectarx/rxdict.h"

// Hears of drawings being opened, saved, imported and going away, on the
// user-interface thread.
class AcEditorReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditorReactor)

    // The drawing's contents are read and its document owns it.
    virtual void dwgFileOpened(AcDbDatabase*, char* /*fileName*/) {}
    virtual void databaseToBeDestroyed(AcDbDatabase*) {}
    virtual void beginSave(AcDbDatabase*, const char* /*intendedName*/) {}
    // The file is written, and the document carries its new name and state.
    virtual void saveComplete(AcDbDatabase*, const char* /*actualName*/) {}
    virtual void abortSave(AcDbDatabase*) {}
    virtual void beginDxfIn(AcDbDatabase*) {}
    virtual void abortDxfIn(AcDbDatabase*) {}
    virtual void dxfInComplete(AcDbDatabase*) {}
    // The drawing was to be closed, and stays: a person said so when asked.
    virtual void docCloseAborted(AcDbDatabase*) {}
    // An external reference is attached, or read anew.
};

class AcEditor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditor)

    // The reactor stays the caller's.
    virtual void addReactor(AcEditorReactor* pReactor) = 0;
    virtual void removeReactor(AcEditorReactor* pReactor) = 0;
};

#define acedEditor (AcEditor::cast(acrxClassDictionary->at("AcEditor")))

constexpr Adesk::Int32 ACRX_CMD_MODAL = 0x00;
constexpr Adesk::Int32 ACRX_CMD_TRANSPARENT = 0x01;

class AcEdCommand;
class AcEdUIContext;

class AcEdCommandStack : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack)

    // eDuplicateKey when the group holds the name already.
    virtual Acad::ErrorStatus addCommand(const char* sGroupName, const char* sGlobalName, const char* sLocalName,
                                         Adesk::Int32 iFlags, AcRxFunctionPtr functionAddr,
                                         AcEdUIContext* pUIContext = nullptr, int iFCode = -1,
                                         HINSTANCE hResourceHandle = nullptr, AcEdCommand** pCmdPtrRet = nullptr) = 0;
    // eKeyNotFound for an unknown group.
    virtual Acad::ErrorStatus removeGroup(const char* sGroupName) = 0;
};

#define acedRegCmds (AcEdCommandStack::cast(acrxSysRegistry()->at("ACAD_REGISTERED_COMMANDS")))
