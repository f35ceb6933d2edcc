#include "library/registry/Registry.h"

#include "tests/support/TestHive.h"

#include <doctest/doctest.h>

#include <string>

using namespace std::string_literals;
namespace Registry = Tesk::Registry;

namespace {

constexpr char kKey[] = "Software\\Zavik\\Test";

// As the registry keeps texts: two bytes a character. What a narrow write would tidy up stays.
void writeRaw(const wchar_t* sName, DWORD dwType, const void* pBytes, std::size_t size)
{
    const Registry::CKey key(HKEY_CURRENT_USER, kKey, true);
    REQUIRE(::RegSetValueExW(key.get(), sName, 0, dwType, static_cast<const BYTE*>(pBytes), static_cast<DWORD>(size)) ==
            ERROR_SUCCESS);
}

void writeRaw(DWORD dwType, const std::wstring& sText, std::size_t oddBytes = 0)
{
    // Behind a text that ends in half a character Wine takes two bytes more.
    writeRaw(L"v", dwType, (sText + L'\0').data(), sText.size() * 2 + oddBytes);
}

template <class T>
bool get(const char* sName, T& value)
{
    return Registry::GetValue(HKEY_CURRENT_USER, kKey, sName, value);
}

}  // namespace

TEST_CASE("numbers and flags are read only from REG_DWORD")
{
    const CTestHive hive;
    const struct {
        DWORD m_dwType;
        std::string m_sBytes;
        bool m_bRead;
        DWORD m_dwValue;
    } cases[] = {
        {REG_DWORD, "\1\0\0\0"s, true, 1},    {REG_DWORD, "\2\0\0\0"s, true, 2}, {REG_DWORD, "\1\0"s, true, 1},
        {REG_DWORD, "\1\0\0\0\0"s, false, 0}, {REG_SZ, "1\0"s, false, 0},        {REG_BINARY, "\1\0\0\0"s, false, 0},
    };
    for (const auto& each : cases) {
        CAPTURE(each.m_sBytes);
        writeRaw(L"v", each.m_dwType, each.m_sBytes.data(), each.m_sBytes.size());
        DWORD dwValue = 77;
        CHECK(get("v", dwValue) == each.m_bRead);
        CHECK(dwValue == (each.m_bRead ? each.m_dwValue : 77));
        for (const bool bBefore : {false, true}) {
            bool bValue = bBefore;
            CHECK(get("v", bValue) == each.m_bRead);
            CHECK(bValue == (each.m_bRead ? each.m_dwValue == 1 : bBefore));
        }
    }
}

TEST_CASE("strings are read with and without a terminator, unexpanded, and from no other type")
{
    const CTestHive hive;
    const struct {
        DWORD m_dwType;
        std::wstring m_sText;
        const char* m_sValue;
    } cases[] = {
        {REG_SZ, L"abc", "abc"},         {REG_SZ, L"", ""},
        {REG_SZ, L"ab\0cd\0"s, "ab"},    {REG_EXPAND_SZ, L"%TEMP%\\x\0"s, "%TEMP%\\x"},
        {REG_BINARY, L"ab\0"s, nullptr},
    };
    for (const auto& each : cases) {
        writeRaw(each.m_dwType, each.m_sText);
        CString sValue("before");
        CHECK(get("v", sValue) == (each.m_sValue != nullptr));
        CHECK(sValue == (each.m_sValue ? each.m_sValue : "before"));
    }
    // a long one, and half a character at the end
    writeRaw(REG_SZ, std::wstring(2000, L'a'), 1);
    CString sValue;
    CHECK(get("v", sValue));
    CHECK(sValue.Left(2000) == std::string(2000, 'a').c_str());
}

TEST_CASE("string lists end at the first empty string but one that comes first, and append")
{
    const CTestHive hive;
    const struct {
        std::wstring m_sText;
        std::vector<CString> m_vValues;
    } cases[] = {
        {L"a\0b\0\0"s, {"a", "b"}}, {L"a\0b\0"s, {"a", "b"}}, {L"a\0\0b\0\0"s, {"a"}},
        {L"\0\0"s, {""}},           {L"\0a\0\0"s, {"", "a"}}, {L"", {}},
    };
    for (const auto& each : cases) {
        writeRaw(REG_MULTI_SZ, each.m_sText);
        std::vector<CString> vValues = {"before"};
        CHECK(get("v", vValues));
        std::vector<CString> vExpected = each.m_vValues;
        vExpected.insert(vExpected.begin(), "before");
        CHECK(vValues == vExpected);
    }
    writeRaw(REG_SZ, L"a\0"s);
    std::vector<CString> vValues;
    CHECK_FALSE(get("v", vValues));
    CHECK(vValues.empty());
}

TEST_CASE("a key is made with its parents, for good")
{
    const CTestHive hive;
    CHECK(Registry::SetValue(HKEY_CURRENT_USER, kKey, "", CString("default")));
    const Registry::CKey key(HKEY_CURRENT_USER, kKey, false);
    HKEY hkLasting = nullptr;  // below a volatile key there is none
    CHECK(::RegCreateKeyA(key.get(), "D", &hkLasting) == ERROR_SUCCESS);
    ::RegCloseKey(hkLasting);
    CHECK_FALSE(Registry::WriteValue(key.get(), "n", DWORD{1}, REG_DWORD));  // opened for reading
    CString sValue;
    CHECK((get("", sValue) && sValue == "default"));
}
