#include "library/mail/SimpleMail.h"
#include "library/registry/Registry.h"
#include "tests/library/Environment.h"
#include "tests/library/TestFolder.h"
#include "tests/library/TestHive.h"

#include <doctest/doctest.h>

using namespace Tesk;

namespace {

constexpr char kClients[] = "Software\\Clients\\Mail";

// The machine's registry, redirected to a key of the user's own; with a mail program
// beside this test.
struct MailMachine {
    MailMachine()
    {
        HKEY hkMachine = nullptr;
        REQUIRE(::RegCreateKeyExA(HKEY_CURRENT_USER, "Machine", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &hkMachine,
                                  nullptr) == ERROR_SUCCESS);
        REQUIRE(::RegOverridePredefKey(HKEY_LOCAL_MACHINE, hkMachine) == ERROR_SUCCESS);
        ::RegCloseKey(hkMachine);
        char sProgram[MAX_PATH];
        ::GetModuleFileNameA(nullptr, sProgram, sizeof sProgram);
        std::string sLibrary(sProgram);
        sLibrary.replace(sLibrary.find_last_of('\\') + 1, std::string::npos, "mailrecorder.dll");
        Registry::SetValue(HKEY_LOCAL_MACHINE, (std::string(kClients) + "\\Recorder").c_str(), "DLLPath",
                           sLibrary.c_str());
    }
    ~MailMachine() { ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr); }
};

}  // namespace

TEST_CASE("a mail goes to the registered program with its attachment, and leaves the host as it was")
{
    const CTestHive hive;
    const MailMachine machine;
    const CTestFolder folder;
    const CEnvironment record("MAIL_RECORD", folder.path("mail.txt").c_str());
    const Mail::Message message = {"cad@office.example", "Trouble", "It does this.",
                                   folder.write("a log.txt", "line\n")};
    const HWND hOwner = ::CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);

    CHECK(Mail::compose(hOwner, message) == Mail::Result::noProgram);  // registered, but nobody's default
    Registry::SetValue(HKEY_LOCAL_MACHINE, kClients, "", "Recorder");
    CHECK(Mail::compose(hOwner, message) == Mail::Result::sent);
    CHECK(CTestFolder::read(CString(folder.path("mail.txt"))) ==
          "dialog: 1\nrecipients: 1\nto: cad@office.example SMTP:cad@office.example\nsubject: Trouble\n"
          "attachments: 1\nfile: " +
              folder.path("a log.txt") + "\nline\n\ntext: It does this.");
    CHECK(::IsWindowEnabled(hOwner));
    char sFolder[MAX_PATH];
    ::GetCurrentDirectoryA(sizeof sFolder, sFolder);
    CHECK(std::string(sFolder) != "C:\\");

    const CEnvironment abort("MAIL_ANSWER", "1");
    CHECK(Mail::compose(hOwner, message) == Mail::Result::cancelled);
    // The user's own choice counts, here of a program that cannot be asked.
    Registry::SetValue(HKEY_CURRENT_USER, kClients, "", "Webmail");
    CHECK(Mail::compose(hOwner, message) == Mail::Result::noProgram);
    ::DestroyWindow(hOwner);
}
