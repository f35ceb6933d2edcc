#include "library/registry/Registry.h"

#include "library/diagnostics/Maintenance.h"
#include "tests/support/TestHive.h"

#include <doctest/doctest.h>

#include <string>

using namespace std::string_literals;
namespace Registry = Tesk::Registry;

namespace {

constexpr char kKey[] = "Software\\Zavik\\Test";

void writeRaw(const char* sName, DWORD dwType, const std::string& sBytes)
{
    const Registry::CKey key(HKEY_CURRENT_USER, kKey, true);
    REQUIRE(::RegSetValueExA(key.get(), sName, 0, dwType, reinterpret_cast<const BYTE*>(sBytes.data()),
                             static_cast<DWORD>(sBytes.size())) == ERROR_SUCCESS);
}

// The same characters as the registry keeps them: two bytes each. What a
// narrow write would tidy up stays as it is.
void writeRawWide(const char* sName, DWORD dwType, const std::wstring& sText, std::size_t oddBytes = 0)
{
    const Registry::CKey key(HKEY_CURRENT_USER, kKey, true);
    const std::wstring sWide(sName, sName + std::char_traits<char>::length(sName));
    REQUIRE(::RegSetValueExW(key.get(), sWide.c_str(), 0, dwType, reinterpret_cast<const BYTE*>(sText.data()),
                             static_cast<DWORD>(sText.size() * 2 + oddBytes)) == ERROR_SUCCESS);
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
        CAPTURE(each.m_dwType);
        CAPTURE(each.m_sBytes);
        writeRaw("v", each.m_dwType, each.m_sBytes);
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
        std::size_t m_oddBytes;
        bool m_bRead;
        const char* m_sValue;
    } cases[] = {
        {REG_SZ, L"abc\0"s, 0, true, "abc"},
        {REG_SZ, L"abc", 0, true, "abc"},
        {REG_SZ, L"", 0, true, ""},
        {REG_SZ, L"ab\0cd\0"s, 0, true, "ab"},
        {REG_EXPAND_SZ, L"%TEMP%\\x\0"s, 0, true, "%TEMP%\\x"},
        {REG_BINARY, L"ab\0"s, 0, false, ""},
    };
    for (const auto& each : cases) {
        writeRawWide("v", each.m_dwType, each.m_sText, each.m_oddBytes);
        CString sValue("before");
        CHECK(get("v", sValue) == each.m_bRead);
        CHECK(sValue == (each.m_bRead ? each.m_sValue : "before"));
    }
    // half a character at the end
    writeRawWide("v", REG_SZ, L"ab", 1);
    CString sValue;
    CHECK(get("v", sValue));
    CHECK(sValue.Left(2) == "ab");
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
        writeRawWide("v", REG_MULTI_SZ, each.m_sText);
        std::vector<CString> vValues = {"before"};
        CHECK(get("v", vValues));
        std::vector<CString> vExpected = each.m_vValues;
        vExpected.insert(vExpected.begin(), "before");
        CHECK(vValues == vExpected);
    }
    writeRawWide("v", REG_SZ, L"a\0"s);
    std::vector<CString> vValues = {"before"};
    CHECK_FALSE(get("v", vValues));
    CHECK(vValues.size() == 1);
}

TEST_CASE("a missing key or value changes nothing")
{
    const CTestHive hive;
    DWORD dwValue = 5;
    CHECK_FALSE(get("v", dwValue));
    CHECK_FALSE(Registry::CKey(HKEY_CURRENT_USER, kKey, false));
    CHECK(Registry::SetValue(HKEY_CURRENT_USER, kKey, "w", DWORD{1}));
    CHECK_FALSE(get("v", dwValue));
    CHECK(dwValue == 5);
    const HKEY hkClosed = Registry::CKey(HKEY_CURRENT_USER, kKey, false).get();
    CHECK(::RegCloseKey(hkClosed) != ERROR_SUCCESS);
}

TEST_CASE("writing makes the key with its parents; values come back with their type")
{
    const CTestHive hive;
    const char* const sDeep = "Software\\A\\B\\C";
    CHECK(Registry::SetValue(HKEY_CURRENT_USER, sDeep, "n", DWORD{42}));
    CHECK(Registry::SetValue(HKEY_CURRENT_USER, sDeep, "b", true));
    CHECK(Registry::SetValue(HKEY_CURRENT_USER, sDeep, "", CString("default")));
    const Registry::CKey key(HKEY_CURRENT_USER, sDeep, false);
    REQUIRE(key);
    HKEY hkLasting = nullptr;  // below a volatile key there is none
    CHECK(::RegCreateKeyA(key.get(), "D", &hkLasting) == ERROR_SUCCESS);
    ::RegCloseKey(hkLasting);
    const auto typeAndSize = [&key](const char* sName) {
        DWORD dwType = 0;
        DWORD dwSize = 0;
        ::RegQueryValueExA(key.get(), sName, nullptr, &dwType, nullptr, &dwSize);
        return dwType * 100 + dwSize;
    };
    CHECK(typeAndSize("n") == REG_DWORD * 100 + 4);
    CHECK(typeAndSize("b") == REG_DWORD * 100 + 4);
    CHECK(typeAndSize("") == REG_SZ * 100 + 8);
    DWORD dwValue = 0;
    bool bValue = false;
    CString sValue;
    CHECK((Registry::ReadValue(key.get(), "n", dwValue) && dwValue == 42));
    CHECK((Registry::ReadValue(key.get(), "b", bValue) && bValue));
    CHECK((Registry::ReadValue(key.get(), "", sValue) && sValue == "default"));
    CHECK_FALSE(Registry::WriteValue(key.get(), "n", DWORD{1}, REG_DWORD));  // opened for reading
}

TEST_CASE("icons are as large as asked for")
{
    for (const bool bSmall : {true, false}) {
        HICON hIcon = nullptr;
        REQUIRE(Registry::IconFromExtension(".none", hIcon, bSmall));
        ICONINFO info = {};
        BITMAP bitmap = {};
        ::GetIconInfo(hIcon, &info);
        ::GetObjectA(info.hbmMask, sizeof bitmap, &bitmap);
        CHECK(bitmap.bmWidth == ::GetSystemMetrics(bSmall ? SM_CXSMICON : SM_CXICON));
        ::DeleteObject(info.hbmMask);
        ::DeleteObject(info.hbmColor);
        ::DestroyIcon(hIcon);
    }
}

TEST_CASE("the remote configurable key takes the first name there is")
{
    CHECK(Registry::GetRemoteConfigurableKey("App") == "Software\\Zavik\\App\\Remote Configurable");
    Tesk::G_sApplicationName = "Running";
    CHECK(Registry::GetRemoteConfigurableKey() == "Software\\Zavik\\Running\\Remote Configurable");
    Tesk::G_sApplicationName.Empty();
}
