#include "dxf/SummaryInfo.h"
#include "host/drawing/Database.h"
#include "host/drawing/EntityText.h"
#include "host/drawing/Faults.h"
#include "host/drawing/UndoList.h"

#include "objectarx/dbapserv.h"

#include <algorithm>

namespace host {

namespace {

// One undo step; nothing happens when nothing differs. Nor is a binary drawing written, the
// record of older drawings, or a header where there is none.
Acad::ErrorStatus writeSummary(Database& database, const Summary& summary)
{
    DxfFile& file = database.file();
    const Summary old = readSummary(file);
    if (old == summary)
        return Acad::eOk;
    DxfRecord* const pHeader = file.section("HEADER");
    if (file.isBinary() || keepsSummaryInRecord(file) || pHeader == nullptr)
        return Acad::eNotApplicable;
    const auto differs = [&](std::size_t field) {
        return field < Summary::Custom ? old.fields[field] != summary.fields[field]
                                       : field == Summary::Custom && old.custom != summary.custom;
    };

    // What changes leaves its place and goes to the header's end.
    std::string sText;
    std::string_view rest = pHeader->text();
    for (const HeaderEntry& entry : file.headerEntries()) {
        sText += rest.substr(0, static_cast<std::size_t>(entry.text.data() - rest.data()));
        rest.remove_prefix(static_cast<std::size_t>(entry.text.data() + entry.text.size() - rest.data()));
        if (!differs(summaryField(entry.name)))
            sText += entry.text;
    }
    sText += rest;
    const auto add = [&](std::string_view name, const std::string& sValue) {
        sText += file.tag(9, name) + file.tag(1, file.encoding().encode(sValue));
    };
    std::vector<std::string> names;
    for (std::size_t i = 0; i < Summary::Custom; ++i)
        if (differs(i)) {
            names.emplace_back(summaryVariable(i).substr(1));
            add(summaryVariable(i), summary.fields[i]);
        }
    if (differs(Summary::Custom)) {
        names.emplace_back("CUSTOMPROPERTY");
        for (const auto& [sKey, sValue] : summary.custom) {
            add("$CUSTOMPROPERTYTAG", sKey);
            add("$CUSTOMPROPERTY", sValue);
        }
    }
    database.undoList().change(*pHeader, sText, {}, names);
    return Acad::eOk;
}

}  // namespace

Acad::ErrorStatus Database::setSummaryField(const std::string& sField, const std::string& sValue)
{
    requireEditable();
    Summary summary = readSummary(file());
    const std::size_t field = summaryField("$" + sField);
    const auto custom = std::find_if(summary.custom.begin(), summary.custom.end(),
                                     [&](const auto& entry) { return entry.first == sField; });
    if (field < Summary::Custom)
        summary.fields[field] = sValue;
    else if (custom != summary.custom.end())
        custom->second = sValue;
    else
        summary.custom.emplace_back(sField, sValue);
    return writeSummary(*this, summary);
}

}  // namespace host

Acad::ErrorStatus acdbPutSummaryInfo(const AcDbDatabaseSummaryInfo* pInfo, AcDbDatabase* pDatabase)
{
    if (host::Faults::hit("acdbPutSummaryInfo"))
        return Acad::eInvalidInput;
    if (pDatabase == nullptr)
        pDatabase = acdbHostApplicationServices()->workingDatabase();
    if (pInfo == nullptr)
        return Acad::eInvalidInput;
    if (pDatabase == nullptr)
        return Acad::eNoDatabase;
    return host::writeSummary(*host::Database::of(pDatabase), static_cast<const dxf::SummaryInfo*>(pInfo)->summary());
}
