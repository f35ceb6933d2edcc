// The support library's figures: settings files, template expansion, disabled trace.
#include "library/text/Regex.h"

#include "bench/Measure.h"
#include "library/diagnostics/Prerelease.h"
#include "library/expansion/KeywordExpansion.h"
#include "library/files/DefaultSettings.h"
#include "tests/support/TestFolder.h"

#include <boost/property_tree/ini_parser.hpp>

#include <string>
#include <vector>

namespace {

constexpr int iKeys = 10000;

void benchSettings()
{
    const CTestFolder folder;
    std::string sFile = "[Keys]\r\n";
    std::vector<std::string> vecKeys;
    for (int i = 0; i < iKeys; ++i) {
        vecKeys.push_back("Key" + std::to_string(i * 7919 % iKeys));
        sFile += vecKeys.back() + " = the value of number " + std::to_string(i) + "\r\n";
    }
    const std::string sPath = folder.write("Settings.ini", sFile);

    const auto load = [&] {
        return timed(1, [&] { Tesk::CDefaultSettings({sPath.c_str()}, false).isDefined("Keys", "Key1"); });
    };
    const auto boost = [&] {
        return timed(1, [&] {
            boost::property_tree::ptree tree;
            boost::property_tree::read_ini(sPath, tree);
        });
    };
    const auto loadAndGet = [&] {
        return timed(1, [&] {
            const Tesk::CDefaultSettings settings({sPath.c_str()}, false);
            for (const std::string& sKey : vecKeys)
                settings.getValue("Keys", sKey.c_str());
        });
    };
    const auto profile = [&] {
        return timed(1, [&] {
            char sValue[256];
            for (const std::string& sKey : vecKeys)
                ::GetPrivateProfileStringA("Keys", sKey.c_str(), "", sValue, sizeof sValue, sPath.c_str());
        });
    };
    compare("10,000 keys loaded, against Boost.PropertyTree", 7, load, boost);
    compare("10,000 keys loaded and got, against GetPrivateProfileString", 1, loadAndGet, profile);
}

class CExpansion : public Tesk::CKeywordExpansion {
public:
    CExpansion() : CKeywordExpansion("C:\\Jobs\\1234\\A-100.rev2.dwg", 1, 3)
    {
        for (int i = 0; i < 40; ++i)
            addToMap(("HALVORAN::TITLE_" + std::to_string(i)).c_str(), "a line of the title");
    }

    // The plain walk of the table, then the four date expressions.
    std::string expandPlainly(const std::string& sTemplate) const
    {
        std::string sText = sTemplate;
        for (const auto& [sKeyword, sValue] : m_mapKeywords) {
            const std::string sToken = "%" + sKeyword + "%";
            for (std::size_t at; (at = sText.find(sToken)) != std::string::npos;)
                sText.replace(at, sToken.size(), sValue);
        }
        for (const char* sKeyword : {"UPDATE_DATE", "UPDATE_DATE_UTC", "CURRENT_DATE", "CURRENT_DATE_UTC"}) {
            const boost::regex expression(std::string("(^.*)\\%") + sKeyword + "::(.+?)\\%(.*$)");
            boost::smatch match;
            if (boost::regex_match(sText, match, expression))
                sText = match[1].str() + match[3].str();
        }
        return sText;
    }
};

void benchExpansion()
{
    const CExpansion expansion;
    std::string sTemplate =
        "%FILENAME% (%DRAWING_INDEX%/%DRAWING_COUNT%)%NEWLINE%%HALVORAN::TITLE_1%, %HALVORAN::TITLE_22%"
        " in %X_FOLDER% by %USER_NAME% on %COMPUTER_NAME% on %DRIVE%: ";
    sTemplate.resize(200, '.');
    const std::string sPlainText(200, '.');
    for (const std::string& sText : {sTemplate, sPlainText})
        compare(
            sText == sTemplate ? "200 characters, ten tokens" : "200 characters, no token", 5,
            [&] { return timed(1000, [&] { expansion.expandString(sText.c_str()); }); },
            [&] { return timed(50, [&] { expansion.expandPlainly(sText); }); });
}

__attribute__((noinline)) void emptyCall(const char* sText) { asm volatile("" : : "r"(sText)); }

__attribute__((noinline)) const char* expensive()
{
    ::Sleep(1000);
    return "never asked for";
}

void benchTrace()
{
    constexpr int iCalls = 10'000'000;
    const auto trace = [] {
        return timed(iCalls, [] {
            TESK_TRACE("text %s %d\n", expensive(), 1);
            asm volatile("" : : : "memory");
        });
    };
    compare("a disabled trace, against an empty call", 5, trace,
            [] { return timed(iCalls, [] { emptyCall("text"); }); });
}

}  // namespace

int main()
{
    benchSettings();
    benchExpansion();
    benchTrace();
    return 0;
}
