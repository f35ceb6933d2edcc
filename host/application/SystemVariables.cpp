#include "host/application/SystemVariables.h"

#include "host/application/CommandStack.h"
#include "host/application/DocumentManager.h"
#include "host/drawing/Paths.h"
#include "objectarx/dbapserv.h"

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

int coordinates(int type) { return type == RTREAL ? 1 : type == RTPOINT ? 2 : type == RT3DPOINT ? 3 : 0; }

VariableValue initialValue(const Definition& definition)
{
    VariableValue value;
    value.type = definition.type;
    SystemVariables::fromText(definition.initial, value);
    return value;
}

std::string number(double value)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.12g", value);
    return text;
}

VariableValue fromHeader(const Definition& definition, const std::vector<HeaderValue>& values)
{
    VariableValue value = initialValue(definition);
    if (values.empty())
        return value;
    if (const int count = coordinates(definition.type); count != 0) {
        for (int i = 0; i < count && i < static_cast<int>(values.size()); ++i)
            value.real[i] = std::atof(values[static_cast<std::size_t>(i)].text.c_str());
    } else if (definition.type == RTSTR) {
        value.text = values[0].text;
    } else {
        value.number = std::atoi(values[0].text.c_str());
    }
    return value;
}

std::vector<std::string> toHeader(const VariableValue& value, std::size_t count)
{
    if (const int known = coordinates(value.type); known != 0) {
        std::vector<std::string> texts;
        for (std::size_t i = 0; i < count; ++i)
            texts.push_back(i < static_cast<std::size_t>(known) ? number(value.real[i]) : "0");
        return texts;
    }
    return {value.type == RTSTR ? value.text : std::to_string(value.number)};
}

std::string currentFolder()
{
    char folder[MAX_PATH] = "";
    ::GetCurrentDirectoryA(sizeof folder, folder);
    std::string sFolder = folder;
    if (!sFolder.empty() && sFolder.back() != '\\')
        sFolder += '\\';
    return sFolder;
}

}  // namespace

std::optional<VariableValue> SystemVariables::get(const std::string& sName) const
{
    const Definition* const pDefinition = definitionOf(sName);
    if (pDefinition == nullptr)
        return std::nullopt;
    if (pDefinition->scope == Scope::session) {
        const auto changed = m_session.find(pDefinition->name);
        return changed != m_session.end() ? changed->second : initialValue(*pDefinition);
    }
    Database* const pDrawing = Database::of(acdbHostApplicationServices()->workingDatabase());
    if (pDrawing == nullptr)
        return std::nullopt;
    if (pDefinition->scope == Scope::header)
        return fromHeader(*pDefinition, pDrawing->headerVariable(pDefinition->name));
    return drawingValue(pDefinition->name, *pDrawing);
}

std::optional<VariableValue> SystemVariables::drawingValue(const std::string& sName, Database& drawing) const
{
    VariableValue value;
    if (sName == "DBMOD") {
        value.number = drawing.dbmod();
        return value;
    }
    const auto* const pDocument = static_cast<const Document*>(m_documents.document(&drawing));
    const std::string sPath = pDocument != nullptr && pDocument->isTitled() ? pDocument->fileName() : drawing.path();
    value.type = RTSTR;
    value.text = sPath.empty() ? currentFolder() : folderOf(sPath);
    return value;
}

SystemVariables::SetResult SystemVariables::set(const std::string& sName, const VariableValue& value)
{
    const Definition* const pDefinition = definitionOf(sName);
    if (pDefinition == nullptr)
        return SetResult::unknown;
    if (pDefinition->scope == Scope::drawing)
        return SetResult::readOnly;
    if (pDefinition->type != value.type)
        return SetResult::wrongType;
    const bool single = std::strcmp(pDefinition->name, "SDI") == 0 && value.number != 0;
    if (single && (value.number != 1 || m_documents.count() > 1))
        return SetResult::invalid;
    if (pDefinition->scope == Scope::session) {
        m_session[pDefinition->name] = value;
        return SetResult::done;
    }
    Database* const pDrawing = Database::of(acdbHostApplicationServices()->workingDatabase());
    if (pDrawing == nullptr)
        return SetResult::unknown;
    const std::size_t count = pDrawing->headerVariable(pDefinition->name).size();
    const Acad::ErrorStatus status = pDrawing->setHeaderVariable(pDefinition->name, toHeader(value, count));
    return status == Acad::eOk ? SetResult::done : SetResult::invalid;
}

std::string SystemVariables::toText(const VariableValue& value)
{
    if (value.type == RTSTR)
        return "\"" + value.text + "\"";
    if (coordinates(value.type) == 0)
        return std::to_string(value.number);
    std::string text = number(value.real[0]);
    for (int i = 1; i < coordinates(value.type); ++i)
        text += "," + number(value.real[i]);
    return text;
}

bool SystemVariables::fromText(const std::string& sText, VariableValue& value)
{
    if (value.type == RTSTR) {
        value.text = sText;
        return true;
    }
    const char* rest = sText.c_str();
    char* end = nullptr;
    const int count = coordinates(value.type);
    if (count == 0) {
        const long parsed = std::strtol(rest, &end, 10);
        value.number = static_cast<int>(parsed);
        return end != rest && *end == '\0' && (value.type == RTLONG || (parsed >= -32768 && parsed <= 32767));
    }
    for (int i = 0; i < count; ++i, rest = end) {
        if (i != 0 && *rest++ != ',')
            return false;
        value.real[i] = std::strtod(rest, &end);
        if (end == rest)
            return false;
    }
    return *rest == '\0';
}

}  // namespace host
