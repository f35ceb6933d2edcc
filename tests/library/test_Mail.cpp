#include "library/mail/SimpleMail.h"
#include "library/registry/Registry.h"
#include "tests/library/Environment.h"
#include "tests/support/TestFolder.h"
#include "tests/support/TestHive.h"

#include <doctest/doctest.h>

using namespace Tesk;

namespace {

constexpr char kClients[] = "Software\\Clients\\Mail";

std::string besideThisProgram(const char* sFile)
{
    char sProgram[MAX_PATH];
    ::GetModuleFileNameA(nullptr, sProgram, sizeof sProgram);
    std::string sPath(sProgram);
    return sPath.replace(sPath.find_last_of('\\') + 1, std::string::npos, sFile);
}

}  // namespace

TEST_CASE("a mail goes to the registered program with its attachment, and leaves the host as it was")
{
    const CTestHive user;
    const CTestHive machine(HKEY_LOCAL_MACHINE);
    Registry::SetValue(HKEY_LOCAL_MACHINE, (std::string(kClients) + "\\Recorder").c_str(), "DLLPath",
                       besideThisProgram("mailrecorder.dll").c_str());
    const CTestFolder folder;
    const CEnvironment record("MAIL_RECORD", folder.path("mail.txt").c_str());
    const Mail::CMessage message = {"cad@office.example", "Trouble", "It does this.",
                                    folder.write("a log.txt", "line\n").c_str()};
    const HWND hOwner = ::CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);

    CHECK(Mail::compose(hOwner, message) == Mail::Result::noProgram);  // registered, but nobody's default
    Registry::SetValue(HKEY_LOCAL_MACHINE, kClients, "", "Recorder");
    CHECK(Mail::compose(hOwner, message) == Mail::Result::done);
    const std::string sMail = CTestFolder::read(folder.path("mail.txt"));
    CHECK(sMail.find("recipients: 1\n") != std::string::npos);
    CHECK(sMail.find("attachments: 1\n") != std::string::npos);  // none within the text
    CHECK(::IsWindowEnabled(hOwner));
    CHECK(::GetActiveWindow() == hOwner);
    char sFolder[MAX_PATH];
    ::GetCurrentDirectoryA(sizeof sFolder, sFolder);
    CHECK(std::string(sFolder) != "C:\\");

    const CEnvironment abort("MAIL_ANSWER", "1");
    CHECK(Mail::compose(hOwner, message) == Mail::Result::done);
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
