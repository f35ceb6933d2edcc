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
                   member("found", place.found ? "true" : "false"), member("keys", number(place.keys))});
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
    return object(
        {member("block", text(border.block)), member("file", text(border.file)), member("line", number(border.line))});
}

std::string toJson(const Project& project)
{
    std::vector<std::string> mapping;
    for (const Mapping& entry : project.mapping)
        mapping.push_back(text(entry.key) + ":" + text(entry.tag));
    return object({member("root", text(project.root)), member("label", text(project.label)),
                   member("source", text(project.source)),
                   member("borders", array(project.borders, [](const Border& border) { return toJson(border); })),
                   member("mapping", object(mapping))});
}

std::string toJson(const Problem& problem)
{
    return object({member("severity", text(problem.error ? "error" : "warning")), member("file", text(problem.file)),
                   member("line", number(problem.line)), member("column", number(problem.column)),
                   member("text", text(problem.text))});
}

// The candidates for the domain's folder stand before the files of that layer.
std::vector<Place> allPlaces(const Findings& findings)
{
    std::vector<Place> places = findings.searched;
    auto domain = places.begin();
    while (domain != places.end() && domain->layer == Layer::Standard)
        ++domain;
    places.insert(domain, findings.domainFolders.begin(), findings.domainFolders.end());
    return places;
}

}  // namespace

JsonReport::JsonReport(Console& console) : m_console(console) { m_console.printBytes("{\"version\":1,\"drawings\":["); }

void JsonReport::add(const DrawingReport& report)
{
    const auto place = [](const Place& one) { return toJson(one); };
    const auto problem = [](const Problem& one) { return toJson(one); };
    const Findings& findings = report.findings;
    if (m_sSame.empty() || m_searched != findings.searched || m_texts != findings.texts) {
        std::vector<std::string> texts;
        for (const Text& defined : findings.texts)
            texts.push_back(text(defined.key) + ":" + toJson(defined));
        m_searched = findings.searched;
        m_texts = findings.texts;
        m_sSame = member("searched", array(allPlaces(findings), place)) + "," + member("texts", object(texts));
    }
    const std::string sTooltip =
        object({member("rule", text(report.tooltip.rule)), member("title", text(report.tooltip.title)),
                member("text", text(report.tooltip.text))});
    m_console.printBytes(
        (m_first ? "\n" : ",\n") +
        object({member("path", text(report.path)), m_sSame, member("project", toJson(findings.project)),
                member("tooltip", sTooltip), member("problems", array(findings.problems, problem))}));
    m_first = false;
}

void JsonReport::finish() { m_console.printBytes("]}\n"); }

}  // namespace tabscheck
