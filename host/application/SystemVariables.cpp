#include "host/application/SystemVariables.h"

#include "host/application/DocumentManager.h"
#include "host/drawing/Paths.h"
#include "objectarx/dbapserv.h"

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace host {

namespace {

enum class Scope {
    session,  // settable, the host's own
    drawing,  // read-only, worked out from the drawing
    header,   // settable, kept in the drawing
};

struct Definition {
    const char* name;
    int type;
    Scope scope;
    const char* initial;  // of session variables, and of drawings that lack a header variable
};

constexpr Definition kDefinitions[] = {
    {"SDI", RTSHORT, Scope::session, "0"},     {"TREEMAX", RTLONG, Scope::session, "10000000"},
    {"USERS1", RTSTR, Scope::session, ""},     {"DBMOD", RTSHORT, Scope::drawing, "0"},
    {"DWGPREFIX", RTSTR, Scope::drawing, ""},  {"LTSCALE", RTREAL, Scope::header, "1"},
    {"LIMMIN", RTPOINT, Scope::header, "0,0"}, {"INSBASE", RT3DPOINT, Scope::header, "0,0,0"},
};

const Definition* definitionOf(const std::string& sName)
{
    for (const Definition& definition : kDefinitions)
        if (::lstrcmpiA(definition.name, sName.c_str()) == 0)
            return &definition;
    return nullptr;
}

std::string number(double value)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.12g", value);
    return text;
}

Database* workingDrawing() { return Database::of(acdbHostApplicationServices()->workingDatabase()); }

}  // namespace

std::optional<VariableValue> SystemVariables::get(const std::string& sName) const
{
    const auto initialValue = [](const Definition& definition) {
        VariableValue value;
        value.type = definition.type;
        fromText(definition.initial, value);
        return value;
    };
    const Definition* const pDefinition = definitionOf(sName);
    if (pDefinition == nullptr)
        return std::nullopt;
    if (pDefinition->scope == Scope::session) {
        const auto changed = m_session.find(pDefinition->name);
        return changed != m_session.end() ? changed->second : initialValue(*pDefinition);
    }
    const Database* const pDrawing = workingDrawing();
    if (pDrawing == nullptr)
        return std::nullopt;
    VariableValue value = initialValue(*pDefinition);
    if (pDefinition->scope == Scope::header) {
        const auto tags = pDrawing->file().headerEntry("$" + std::string(pDefinition->name)).values();
        for (std::size_t i = 0; i < value.numbers.size() && i < tags.size(); ++i)
            value.numbers[i] = toDouble(tags[i].value);
    } else if (value.type == RTSTR) {
        const auto* const pDocument = static_cast<const Document*>(m_documents.document(pDrawing));
        const bool titled = pDocument != nullptr && pDocument->isTitled();
        const std::string sPath = titled ? pDocument->fileName() : pDrawing->path();
        value.text = folderOf(fullPath(sPath.empty() ? "untitled" : sPath));  // one without a file: the current folder
    } else {
        value.numbers[0] = pDrawing->dbmod();
    }
    return value;
}

SystemVariables::SetResult SystemVariables::set(const std::string& sName, const VariableValue& value)
{
    const Definition* const pDefinition = definitionOf(sName);
    if (pDefinition == nullptr)
        return SetResult::invalid;
    if (pDefinition->scope == Scope::drawing)
        return SetResult::readOnly;
    const bool single = std::strcmp(pDefinition->name, "SDI") == 0 && value.numbers[0] != 0;
    if (pDefinition->type != value.type || (single && (value.numbers[0] != 1 || m_documents.count() > 1)))
        return SetResult::invalid;
    if (pDefinition->scope == Scope::session) {
        m_session[pDefinition->name] = value;
        return SetResult::done;
    }
    Database* const pDrawing = workingDrawing();
    if (pDrawing == nullptr)
        return SetResult::invalid;
    pDrawing->requireEditable();
    std::vector<std::string> texts(pDrawing->file().headerEntry("$" + std::string(pDefinition->name)).values().size());
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = i < value.numbers.size() ? number(value.numbers[i]) : "0";
    const Acad::ErrorStatus status = pDrawing->setHeaderVariable(pDefinition->name, texts);
    return status == Acad::eOk ? SetResult::done : SetResult::invalid;
}

std::string SystemVariables::toText(const VariableValue& value)
{
    if (value.type == RTSTR)
        return "\"" + value.text + "\"";
    std::string text = number(value.numbers[0]);
    for (int i = 1; i < VariableValue::count(value.type); ++i)
        text += "," + number(value.numbers[static_cast<std::size_t>(i)]);
    return text;
}

bool SystemVariables::fromText(const std::string& sText, VariableValue& value)
{
    if (value.type == RTSTR) {
        value.text = sText;
        return true;
    }
    const char* rest = sText.c_str();
    for (int i = 0; i < VariableValue::count(value.type); ++i) {
        if (i != 0 && *rest++ != ',')
            return false;
        char* end = nullptr;
        value.numbers[static_cast<std::size_t>(i)] = std::strtod(rest, &end);
        if (end == rest)
            return false;
        rest = end;
    }
    const double first = value.numbers[0];
    const double highest = value.type == RTSHORT ? SHRT_MAX : value.type == RTLONG ? INT_MAX : HUGE_VAL;
    const bool fits = first >= -highest - 1 && first <= highest && (highest == HUGE_VAL || first == std::floor(first));
    return *rest == '\0' && fits;
}

}  // namespace host
