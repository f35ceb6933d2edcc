#include "tabscheck/JsonReport.h"

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tabscheck {

namespace {

std::string text(std::string_view sText)
{
    std::string sQuoted = "\"";
    for (const char c : toUtf8(sText)) {
        if (c == '"' || c == '\\') {
            sQuoted += '\\';
            sQuoted += c;
        } else if (static_cast<unsigned char>(c) < ' ') {
            char sEscape[8];
            std::snprintf(sEscape, sizeof sEscape, "\\u%04x", static_cast<unsigned>(c));
            sQuoted += sEscape;
        } else {
            sQuoted += c;
        }
    }
    return sQuoted + "\"";
}

std::string number(unsigned value) { return std::to_string(value); }

const char* truth(bool value) { return value ? "true" : "false"; }

// "NAME":VALUE, the value as it is.
std::string member(const char* sName, const std::string& sValue) { return "\"" + std::string(sName) + "\":" + sValue; }

std::string object(const std::vector<std::string>& members)
{
    std::string sObject = "{";
    for (const std::string& sMember : members)
        sObject += (sObject.size() > 1 ? "," : "") + sMember;
    return sObject + "}";
}

template <class T, class Convert>
std::string array(const std::vector<T>& values, Convert convert, std::size_t first = 0)
{
    std::string sArray = "[";
    for (std::size_t i = first; i < values.size(); ++i)
        sArray += (sArray.size() > 1 ? "," : "") + convert(values[i]);
    return sArray + "]";
}

std::string toJson(const Place& place)
{
    return object({member("layer", text(nameOf(place.layer))), member("path", text(place.path)),
                   member("found", truth(place.found)), member("dropped", truth(place.dropped)),
                   member("keys", number(place.keys))});
}

std::string toJson(const DomainFolder& folder)
{
    return object({member("path", text(folder.path)), member("found", truth(folder.found)),
                   member("registry", text(folder.key))});
}

std::string overridden(const Setting& setting)
{
    return object({member("layer", text(nameOf(setting.layer))), member("file", text(setting.file)),
                   member("line", number(setting.line)), member("value", text(setting.value))});
}

// A text that no file defines has no layer, no file and line 0.
std::string toJson(const Text& defined)
{
    const bool any = !defined.settings.empty();
    const Setting none;
    const Setting& setting = any ? defined.settings.front() : none;
    return object({member("value", text(setting.value)), member("layer", text(any ? nameOf(setting.layer) : "")),
                   member("file", text(setting.file)), member("line", number(setting.line)),
                   member("overrides", array(defined.settings, overridden, 1))});
}

std::string toJson(const Border& border)
{
    return object({member("block", text(border.block)), member("file", text(border.file)),
                   member("line", number(border.line)), member("chosen", truth(border.chosen))});
}

std::string toJson(const Project& project)
{
    const auto mapping = [](const Mapping& entry) {
        return object({member("key", text(entry.key)), member("tag", text(entry.tag)), member("file", text(entry.file)),
                       member("line", number(entry.line))});
    };
    return object({member("root", text(project.root)), member("label", text(project.label)),
                   member("source", text(project.source)),
                   member("borders", array(project.borders, [](const Border& border) { return toJson(border); })),
                   member("mapping", array(project.mapping, mapping))});
}

std::string toJson(const Problem& problem)
{
    return object({member("severity", text(problem.error ? "error" : "warning")), member("file", text(problem.file)),
                   member("line", number(problem.line)), member("column", number(problem.column)),
                   member("text", text(problem.text))});
}

std::string toJson(const std::vector<Problem>& problems)
{
    return array(problems, [](const Problem& problem) { return toJson(problem); });
}

// Values that are JSON already.
std::string joined(const std::vector<std::string>& values)
{
    return array(values, [](const std::string& sValue) { return sValue; });
}

}  // namespace

JsonReport::JsonReport(Console& console) : m_console(console) { m_console.printBytes("{\"version\":2,\"drawings\":["); }

void JsonReport::add(const DrawingReport& report)
{
    const Findings& findings = report.findings;
    if (report.settingsFile) {
        m_files.push_back(object({member("path", text(report.path)), member("problems", toJson(findings.problems))}));
        return;
    }
    if (m_sSame.empty() || m_searched != findings.searched || m_texts != findings.texts) {
        std::vector<std::string> texts;
        for (const Text& defined : findings.texts)
            texts.push_back(text(defined.key) + ":" + toJson(defined));
        m_searched = findings.searched;
        m_texts = findings.texts;
        const auto place = [](const Place& one) { return toJson(one); };
        const auto folder = [](const DomainFolder& one) { return toJson(one); };
        m_sSame = member("domain", array(findings.domainFolders, folder)) + "," +
                  member("searched", array(findings.searched, place)) + "," + member("texts", object(texts));
    }
    const std::string sTooltip =
        object({member("rule", text(report.tooltip.rule)), member("title", text(report.tooltip.title)),
                member("text", text(report.tooltip.text))});
    m_console.printBytes(
        (m_first ? "\n" : ",\n") +
        object({member("path", text(report.path)), m_sSame, member("project", toJson(findings.project)),
                member("tooltip", sTooltip), member("problems", toJson(findings.problems))}));
    m_first = false;
}

void JsonReport::addUnchecked(const std::string& sPath, const std::string& sReason)
{
    m_unchecked.push_back(object({member("path", text(sPath)), member("reason", text(sReason))}));
}

void JsonReport::finish()
{
    m_console.printBytes("]," + member("files", joined(m_files)) + "," + member("unchecked", joined(m_unchecked)) +
                         "}\n");
}

}  // namespace tabscheck
