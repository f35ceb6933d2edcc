#include "library/text/CodePage.h"
#include "tabscheck/Console.h"
#include "tabscheck/Report.h"

#include <boost/describe/members.hpp>
#include <boost/mp11/algorithm.hpp>

#include <string_view>

namespace tabscheck {

namespace {

std::string toJson(bool value) { return value ? "true" : "false"; }

std::string toJson(unsigned value) { return std::to_string(value); }

std::string toJson(std::string_view sText)
{
    std::wstring sQuoted;
    for (const wchar_t c : Tesk::toWide(sText)) {
        if (c < L' ' || isControl(c)) {
            sQuoted += L"\\u";
            for (const int iShift : {12, 8, 4, 0})
                sQuoted += L"0123456789abcdef"[c >> iShift & 0xF];
            continue;
        }
        sQuoted += c == L'"' || c == L'\\' ? L"\\" : L"";
        sQuoted += c;
    }
    return "\"" + encode(sQuoted, CP_UTF8) + "\"";
}

std::string toJson(const std::string& sText) { return toJson(std::string_view(sText)); }

std::string toJson(const Problem& problem)
{
    return "{\"name\":" + toJson(problem.rule->name) +
           ",\"severity\":" + (problem.error() ? "\"error\"" : "\"warning\"") + ",\"file\":" + toJson(problem.file) +
           ",\"line\":" + toJson(problem.line) + ",\"column\":" + toJson(problem.column) +
           ",\"text\":" + toJson(problem.text) + "}";
}

template <class Structure>
std::string toJson(const Structure& value);

template <class Value>
std::string toJson(const std::vector<Value>& values)
{
    std::string sArray;
    for (const Value& value : values)
        sArray += "," + toJson(value);
    return "[" + (sArray.empty() ? "" : sArray.substr(1)) + "]";
}

std::string toJson(const std::vector<Text>& texts)
{
    std::string sObject;
    for (const Text& text : texts)
        sObject += "," + toJson(text.key) + ":" + toJson(text);
    return "{" + (sObject.empty() ? "" : sObject.substr(1)) + "}";
}

template <class Value>
std::string toJson(const Value* pValue)
{
    return toJson(*pValue);
}

template <class Structure>
std::string toJson(const Structure& value)
{
    using namespace boost::describe;
    std::string sObject;
    boost::mp11::mp_for_each<describe_members<Structure, mod_public | mod_inherited>>(
        [&](auto member) { sObject += std::string(",\"") + member.name + "\":" + toJson(value.*member.pointer); });
    return "{" + sObject.substr(1) + "}";
}

class JsonReport : public Reports {
public:
    JsonReport(Console& console, const Asked& asked) : m_console(console)
    {
        m_console.printBytes("{\"version\":2,\"asked\":" + toJson(asked) + ",\"drawings\":[");
    }

    void add(DrawingReport report) override
    {
        m_console.printBytes((m_first ? "\n" : ",\n") + toJson(report));
        m_first = false;
    }

    void finish(const std::vector<FileReport>& files, const std::vector<Unchecked>& unchecked) override
    {
        m_console.printBytes("],\"files\":" + toJson(files) + ",\"unchecked\":" + toJson(unchecked) + "}\n");
    }

private:
    Console& m_console;
    bool m_first = true;
};

}  // namespace

std::unique_ptr<Reports> makeJsonReport(Console& console, const Asked& asked)
{
    return std::make_unique<JsonReport>(console, asked);
}

}  // namespace tabscheck
