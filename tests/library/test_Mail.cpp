#include "library/mail/SimpleMail.h"
#include "library/registry/Registry.h"
#include "tests/library/Recorders.h"
#include "tests/support/TestHive.h"

#include <doctest/doctest.h>

using namespace Tesk;

static constexpr char kClients[] = "Software\\Clients\\Mail";

TEST_CASE("a mail goes to the registered program, which leaves the host as it was")
{
    const CTestHive user;
    const CTestHive machine(HKEY_LOCAL_MACHINE);
    Registry::SetValue(HKEY_LOCAL_MACHINE, (std::string(kClients) + "\\Recorder").c_str(), "DLLPath",
                       besideThisProgram("mailrecorder.dll").c_str());
    const Mail::CMessage message = {"cad@office.example", "Trouble", "It does this.", ""};
    const HWND hOwner = ::CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);

    CHECK(Mail::compose(hOwner, message) == Mail::Result::noProgram);  // registered, but nobody's default
    Registry::SetValue(HKEY_LOCAL_MACHINE, kClients, "", "Recorder");
    CHECK(Mail::compose(hOwner, message) == Mail::Result::done);
    CHECK(::IsWindowEnabled(hOwner));
    CHECK(::GetActiveWindow() == hOwner);
    char sFolder[MAX_PATH];
    ::GetCurrentDirectoryA(sizeof sFolder, sFolder);
    CHECK(std::string(sFolder) != "C:\\");

    const CEnvironment unsupported("MAIL_ANSWER", "26");
    CHECK(Mail::compose(hOwner, message) == Mail::Result::noProgram);
    // The user's own choice counts, here of a program that cannot be asked.
    Registry::SetValue(HKEY_CURRENT_USER, kClients, "", "Webmail");
    CHECK(Mail::compose(hOwner, message) == Mail::Result::noProgram);
    for (const char* sValue : {"DLLPathEx", "MSIComponentID"}) {
        Registry::SetValue(HKEY_CURRENT_USER, kClients, "", sValue);
        Registry::SetValue(HKEY_LOCAL_MACHINE, (std::string(kClients) + "\\" + sValue).c_str(), sValue, "{1}");
        CHECK(Mail::hasProgram());
    }
    ::DestroyWindow(hOwner);
}
