// The texts of a drawing where a user does not get to. What is read from which file, and what
// damaged files cost, is in tests/transcripts.
#include "ModuleFixture.h"
#include "library/diagnostics/Prerelease.h"
#include "library/system/Handles.h"
#include "settings/MDITabSettings.h"
#include "tests/support/Answers.h"
#include <doctest/doctest.h>

using Files = std::vector<CString>;

namespace {

struct TextsFixture : ModuleFixture {
    TextsFixture() { load(); }

    std::string drawing(const char* name) const { return folder.path() + name; }
    void texts(const std::string& text) const { folder.write("MDITabs.ini", text); }
    // Everything said to the command line from here on.
    std::string traced(const std::function<void()>& call)
    {
        Tesk::setDiagnosticsLevel(2);
        app.commandLine().history().clear();
        call();
        Tesk::setDiagnosticsLevel(0);
        return app.commandLine().history();
    }
};

}  // namespace

TEST_CASE_FIXTURE(TextsFixture, "texts that are kept although no module is loaded are reported")
{
    unload();
    CMDITabSettings::getPopupSaveText("");
    const Answers answers;
    Tesk::setDiagnosticsLevel(1);
    load();
    CHECK(answers.assertions() == "MDITabSettings: m_mapDefaultSettings.empty()\n");
}

TEST_CASE_FIXTURE(TextsFixture, "reset loads for another drawing, or when told to")
{
    texts("PopupSaveText = first\n");
    CTabsDefaultSettings settings(drawing("a.dwg").c_str());
    texts("PopupSaveText = second\n");
    CHECK_FALSE(settings.reset(Files{drawing("A.dwg").c_str()}, false));
    CHECK(settings.getValue("PopupSaveText") == "first");
    CHECK(settings.reset(Files{drawing("A.dwg").c_str()}, true));
    CHECK(settings.getValue("PopupSaveText") == "second");
    CHECK(settings.getValue("NoSuchText") == "");

    texts("PopupSaveText = third\nno equals sign\n");
    const std::string said = traced([&] { CHECK_FALSE(settings.reset(Files{drawing("b.dwg").c_str()}, false)); });
    CHECK(said.find("Reset error (Error (<<" + drawing("MDITabs.ini") +
                    ">> @ line 2) : Tokenising error.) for project file set ...") != std::string::npos);
    CHECK(settings.getValue("PopupSaveText") == "second");
    CHECK_FALSE(settings.reset(Files{drawing("a.dwg").c_str()}, false));

    texts("PopupSaveText = fourth\n");
    CHECK(settings.reset(Files{drawing("b.dwg").c_str()}, false));
    CHECK(settings.getValue("PopupSaveText") == "fourth");
    CHECK_FALSE(settings.reset(Files{drawing("b.dwg").c_str()}, false));
    const std::string contents = traced([&] { settings.traceContents(2); });
    CHECK(contents.find(" : \t\tReactor Settings\n") != std::string::npos);
    CHECK(contents.find(" : \t\t\tPopupSaveText=fourth\n") != std::string::npos);
}

TEST_CASE_FIXTURE(TextsFixture, "a file that the memory does not hold costs its own texts")
{
    folder.write("ProjectSettings.txt", "");
    folder.write("Settings\\support\\MDITabs.ini", "ModifiedText = ' of it'\n");
    texts("");
    {
        const UniqueHandle holes(
            ::CreateFileA(drawing("MDITabs.ini").c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        LONG high = 0;
        ::SetFilePointer(holes.get(), sizeof(void*) == 4 ? 0x78000000 : LONG(0xC0000000), &high, FILE_BEGIN);
        REQUIRE(::SetEndOfFile(holes.get()));
    }
    const std::string name = drawing("a.dwg");
    CHECK(CMDITabSettings::getModifiedText(name.c_str()) == " of it");
    CHECK(CMDITabSettings::getDefaultSettings(name.c_str())->getCopies().back().sReason != "");
}
