// The calls of the API that can be made to fail. An object's calls go through its class's
// virtual table: there, and not in the calls themselves, a fault is put.

#include "host/drawing/Faults.h"

#include "objectarx/acdocman.h"
#include "objectarx/aced.h"
#include "objectarx/dbapserv.h"
#include "objectarx/dbents.h"
#include "objectarx/dbsymtb.h"
#include "objectarx/rxdlinkr.h"
#include "objectarx/summinfo.h"

#include <algorithm>
#include <bit>
#include <map>
#include <string_view>
#include <type_traits>
#include <vector>

// The virtual tables of the host's objects, under the names that the compiler gives them.
#define VIRTUAL_TABLES(TABLE) \
    TABLE(_ZTVN4host8DocumentE, AcApDocument) \
    TABLE(_ZTVN4host16DocumentIteratorE, AcApDocumentIterator) \
    TABLE(_ZTVN4host15DocumentManagerE, AcApDocManager) \
    TABLE(_ZTVN4host6EditorE, AcEditor) \
    TABLE(_ZTVN4host12CommandStackE, AcEdCommandStack) \
    TABLE(_ZTVN4host13DynamicLinkerE, AcRxDynamicLinker) \
    TABLE(_ZTVN4host12HostServicesE, AcDbHostApplicationServices) \
    TABLE(_ZTVN4host8DatabaseE, AcDbDatabase) \
    TABLE(_ZTVN3dxf10BlockTableE, AcDbBlockTable) \
    TABLE(_ZTVN3dxf18BlockTableIteratorE, AcDbBlockTableIterator) \
    TABLE(_ZTVN3dxf16BlockTableRecordE, AcDbBlockTableRecord) \
    TABLE(_ZTVN3dxf14BlockReferenceE, AcDbBlockReference) \
    TABLE(_ZTVN3dxf17AttributeIteratorE, AcDbObjectIterator) \
    TABLE(_ZTVN3dxf9AttributeE, AcDbAttribute) \
    TABLE(_ZTVN3dxf8TextFaceI8AcDbTextEE, AcDbText) \
    TABLE(_ZTVN3dxf10ObjectFaceI10AcDbEntityEE, AcDbEntity) \
    TABLE(_ZTVN3dxf11SummaryInfoE, AcDbDatabaseSummaryInfo)

extern "C" {
#define DECLARE_TABLE(SYMBOL, CLASS) extern void* SYMBOL[];
VIRTUAL_TABLES(DECLARE_TABLE)
}

namespace host {

namespace {

constexpr std::size_t kFirstFunction = 2;  // behind the offset and the type

struct VirtualTable {
    void** functions;
    AcRxClass* (*pClass)();
};
#define TABLE_ROW(SYMBOL, CLASS) {SYMBOL + kFirstFunction, &CLASS::desc},
const VirtualTable kTables[] = {VIRTUAL_TABLES(TABLE_ROW)};

// A pointer to a member function as the compiler keeps it: of a virtual one the offset in
// the table, and 1; of any other the address.
struct MemberPointer {
    std::uintptr_t function;
    std::ptrdiff_t adjustment;
};

template <class Method>
std::size_t placeOf(Method method)
{
    return std::bit_cast<MemberPointer>(method).function / sizeof(void*);
}

// By the function's place in a table: what stood there.
std::map<void**, void*>& originals()
{
    static std::map<void**, void*> s_originals;
    return s_originals;
}

// Some calls do their work all the same: their callers cannot repeat them.
enum class Work { left, done };

// Stands in a table instead of the function that the row names.
template <int Row, Work work, class Result, class... Parameters>
struct Replacement {
    static inline const char* sName = nullptr;
    static inline std::size_t place = 0;

    Result call(Parameters... parameters)
    {
        const bool fails = Faults::hit(sName);
        if (fails && work == Work::left)
            return failure();
        void** const functions = *reinterpret_cast<void***>(this);
        const auto address = reinterpret_cast<std::uintptr_t>(originals().at(functions + place));
        const auto original = std::bit_cast<decltype(&Replacement::call)>(MemberPointer{address, 0});
        if (!fails)
            return (this->*original)(parameters...);
        (this->*original)(parameters...);
        return failure();
    }

    // Null, zero, false; an error for a status; and a walk ends early.
    static Result failure()
    {
        if constexpr (std::is_same_v<Result, Acad::ErrorStatus>)
            return Acad::eOutOfMemory;
        else if constexpr (std::is_same_v<Result, bool>)
            return std::string_view(sName).ends_with("::done");
        else if constexpr (!std::is_void_v<Result>)
            return Result{};
    }
};

struct Row {
    const char* name;
    AcRxClass* (*pClass)();
    std::size_t place;
    void* replacement;  // null for a notification, which the host then does not send
};

template <int Number, Work work, class Class, class Result, class... Parameters>
Row row(const char* sName, Result (Class::*method)(Parameters...))
{
    using Call = Replacement<Number, work, Result, Parameters...>;
    Call::sName = sName;
    Call::place = placeOf(method);
    const auto address = std::bit_cast<MemberPointer>(&Call::call).function;
    return {sName, &Class::desc, Call::place, reinterpret_cast<void*>(address)};
}

template <int Number, Work work, class Class, class Result, class... Parameters>
Row row(const char* sName, Result (Class::*method)(Parameters...) const)
{
    return row<Number, work>(sName, std::bit_cast<Result (Class::*)(Parameters...)>(method));
}

#define CALL(CLASS, NAME) row<__COUNTER__, Work::left>(#CLASS "::" #NAME, &CLASS::NAME)
#define CALL_DONE(CLASS, NAME) row<__COUNTER__, Work::done>(#CLASS "::" #NAME, &CLASS::NAME)
#define SENT(CLASS, NAME) \
    { \
#CLASS "::" #NAME, &CLASS::desc, placeOf(&CLASS::NAME), nullptr \
    }

const std::vector<Row>& rows()
{
    // clang-format off
    static const std::vector<Row> s_rows = {
        CALL(AcApDocument, fileName), CALL(AcApDocument, database), CALL(AcApDocument, isReadOnly),
        CALL(AcApDocumentIterator, done), CALL(AcApDocumentIterator, step), CALL(AcApDocumentIterator, document),
        CALL(AcApDocManager, curDocument), CALL(AcApDocManager, mdiActiveDocument), CALL(AcApDocManager, document),
        CALL(AcApDocManager, newAcApDocumentIterator), CALL(AcApDocManager, addReactor),
        CALL_DONE(AcApDocManager, removeReactor), CALL(AcApDocManager, activateDocument),
        CALL(AcApDocManager, isDocumentActivationEnabled), CALL(AcApDocManager, enableDocumentActivation),
        CALL(AcApDocManager, disableDocumentActivation), CALL(AcApDocManager, sendStringToExecute),
        CALL(AcApDocManager, appContextOpenDocument),
        SENT(AcApDocManagerReactor, documentCreated), SENT(AcApDocManagerReactor, documentToBeDestroyed),
        SENT(AcApDocManagerReactor, documentDestroyed), SENT(AcApDocManagerReactor, documentActivated),
        SENT(AcEditorReactor, dwgFileOpened), SENT(AcEditorReactor, databaseToBeDestroyed),
        SENT(AcEditorReactor, saveComplete), SENT(AcEditorReactor, dxfInComplete),
        SENT(AcEditorReactor, docCloseAborted),
        CALL(AcEditor, addReactor), CALL_DONE(AcEditor, removeReactor),
        CALL(AcEdCommandStack, addCommand), CALL_DONE(AcEdCommandStack, removeGroup),
        CALL(AcRxDynamicLinker, unlockApplication), CALL(AcRxDynamicLinker, registerAppMDIAware),
        CALL(AcDbHostApplicationServices, workingDatabase), CALL(AcDbHostApplicationServices, setWorkingDatabase),
        CALL(AcDbHostApplicationServices, releaseMajorMinorString), CALL(AcDbHostApplicationServices, product),
        CALL(AcDbDatabase, addReactor), CALL_DONE(AcDbDatabase, removeReactor), CALL(AcDbDatabase, getSymbolTable),
        SENT(AcDbDatabaseReactor, objectAppended), SENT(AcDbDatabaseReactor, objectUnAppended),
        SENT(AcDbDatabaseReactor, objectReAppended), SENT(AcDbDatabaseReactor, objectModified),
        SENT(AcDbDatabaseReactor, objectErased), SENT(AcDbDatabaseReactor, headerSysVarChanged),
        CALL_DONE(AcDbObject, close), CALL(AcDbObject, objectId), CALL(AcDbObject, getAcDbHandle),
        CALL(AcDbObject, database),
        CALL(AcDbObjectIterator, done), CALL(AcDbObjectIterator, step), CALL(AcDbObjectIterator, objectId),
        CALL(AcDbBlockTable, has), CALL(AcDbBlockTable, getAt), CALL(AcDbBlockTable, newIterator),
        CALL(AcDbSymbolTableIterator, done), CALL(AcDbSymbolTableIterator, step),
        CALL(AcDbBlockTableIterator, getRecord),
        CALL(AcDbBlockTableRecord, isAnonymous), CALL(AcDbBlockTableRecord, isLayout),
        CALL(AcDbBlockTableRecord, isFromExternalReference), CALL(AcDbBlockTableRecord, xrefStatus),
        CALL(AcDbBlockTableRecord, xrefDatabase), CALL(AcDbBlockTableRecord, getBlockReferenceIds),
        CALL(AcDbBlockReference, attributeIterator),
        CALL(AcDbText, textString), CALL(AcDbText, setTextString), CALL(AcDbText, position),
        CALL(AcDbText, alignmentPoint), CALL(AcDbText, normal), CALL(AcDbText, height), CALL(AcDbText, oblique),
        CALL(AcDbText, horizontalMode), CALL(AcDbText, isMirroredInX), CALL(AcDbText, isMirroredInY),
        CALL(AcDbAttribute, tag), CALL(AcDbAttribute, fieldLength), CALL(AcDbAttribute, isInvisible),
        CALL(AcDbAttribute, isConstant), CALL(AcDbAttribute, isVerifiable), CALL(AcDbAttribute, isPreset),
        CALL(AcDbDatabaseSummaryInfo, getTitle), CALL(AcDbDatabaseSummaryInfo, getSubject),
        CALL(AcDbDatabaseSummaryInfo, getAuthor), CALL(AcDbDatabaseSummaryInfo, getKeywords),
        CALL(AcDbDatabaseSummaryInfo, getComments), CALL(AcDbDatabaseSummaryInfo, getLastSavedBy),
        CALL(AcDbDatabaseSummaryInfo, getRevisionNumber), CALL(AcDbDatabaseSummaryInfo, getHyperlinkBase),
        CALL(AcDbDatabaseSummaryInfo, setTitle), CALL(AcDbDatabaseSummaryInfo, setSubject),
        CALL(AcDbDatabaseSummaryInfo, setAuthor), CALL(AcDbDatabaseSummaryInfo, setKeywords),
        CALL(AcDbDatabaseSummaryInfo, setComments), CALL(AcDbDatabaseSummaryInfo, setLastSavedBy),
        CALL(AcDbDatabaseSummaryInfo, setRevisionNumber), CALL(AcDbDatabaseSummaryInfo, setHyperlinkBase),
        CALL(AcDbDatabaseSummaryInfo, numCustomInfo), CALL(AcDbDatabaseSummaryInfo, getCustomSummaryInfo),
        CALL(AcDbDatabaseSummaryInfo, addCustomSummaryInfo), CALL(AcDbDatabaseSummaryInfo, deleteCustomSummaryInfo),
    };
    // clang-format on
    return s_rows;
}

// What is no object's asks by itself.
constexpr const char* kFunctions[] = {
    "acedGetVar",
    "acedSetVar",
    "acutPrintf",
    "acutNewBuffer",
    "acdbOpenAcDbObject",
    "acdbOpenAcDbEntity",
    "acdbHandEnt",
    "acdbGetObjectId",
    "acdbOriginalXrefFullPathFor",
    "acdbGetSummaryInfo",
    "acdbPutSummaryInfo",
    "acedRegisterFilterWinMsg",
    "acedRemoveFilterWinMsg",
};

void replace(void** place, void* replacement)
{
    if (!originals().try_emplace(place, *place).second)
        return;
    DWORD protection = 0;
    ::VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection);
    *place = replacement;
    ::VirtualProtect(place, sizeof *place, protection, &protection);
}

}  // namespace

bool Faults::prepare(const std::string& sName)
{
    bool known = std::find(std::begin(kFunctions), std::end(kFunctions), sName) != std::end(kFunctions);
    for (const Row& row : rows()) {
        if (sName != "*" && sName != row.name)
            continue;
        known = true;
        for (const VirtualTable& table : kTables)
            if (row.replacement != nullptr && table.pClass()->isDerivedFrom(row.pClass()))
                replace(table.functions + row.place, row.replacement);
    }
    return known;
}

bool Faults::withholds(const AcRxClass* pReactor, std::size_t place)
{
    for (const Row& row : rows())
        if (row.replacement == nullptr && row.pClass() == pReactor && row.place == place)
            return hit(row.name);
    return false;
}

}  // namespace host
