// The strip's texts: from which files, how they are read, and what damaged files cost.
#include "ModuleFixture.h"
#include "library/diagnostics/Prerelease.h"
#include "library/files/DefaultSettingsException.h"
#include "library/system/Handles.h"
#include "settings/MDITabSettings.h"
#include "tests/support/Answers.h"
#include <doctest/doctest.h>

using Texts = std::vector<std::string>;
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

TEST_CASE_FIXTURE(TextsFixture, "a damaged file costs its own texts, says where once, and is read again when mended")
{
    folder.write("ProjectSettings.txt", "");
    const std::string project = "Settings\\support\\MDITabs.ini", name = drawing("a.dwg");
    folder.write(project, "PopupSaveText = project's\nModifiedText = ' of it'\n");
    texts("PopupSaveText = drawing's\nno equals sign\n");
    bool raised = false;
    try {
        CTabsDefaultSettings settings(name.c_str());
    } catch (Tesk::CDefaultSettingsException* pException) {
        raised = true;
        pException->Delete();
    }
    CHECK(raised);

    open("a.dwg");
    REQUIRE(run("LINE 0 0 1 1"));
    CHECK(tabs() == Texts{"a of it"});
    CMDITabSettings::clearDefaultSettings();
    const std::string said = traced([&] {
        CHECK(CMDITabSettings::getPopupSaveText(name.c_str()) == "project's");
        CHECK(CMDITabSettings::getModifiedText(name.c_str()) == " of it");
    });
    const std::string where = "Error (<<" + drawing("MDITabs.ini") + ">> @ line 2) : Tokenising error.";
    CHECK(said.find(where) != std::string::npos);
    CHECK(said.find(where) == said.rfind(where));
    CMDITabSettings::getPopupSaveText(name.c_str());  // while nothing is traced
    CHECK(traced([&] { CMDITabSettings::getPopupSaveText(name.c_str()); }).find(where) != std::string::npos);

    texts("PopupSaveText = drawing's\n;o equals sign\n");
    CHECK(CMDITabSettings::getPopupSaveText(name.c_str()) == "drawing's");
    CHECK(CMDITabSettings::getModifiedText(name.c_str()) == " of it");
    // What is read whole stays until the cache is cleared, as ever.
    folder.write(project, "no equals sign\n");
    CHECK(CMDITabSettings::getModifiedText(name.c_str()) == " of it");
    CMDITabSettings::clearDefaultSettings();
    CHECK(CMDITabSettings::getModifiedText(name.c_str()) == "");
    CHECK(CMDITabSettings::getPopupSaveText(name.c_str()) == "drawing's");
    // One that the memory does not hold, with holes for contents.
    {
        const UniqueHandle huge(
            ::CreateFileA(drawing("MDITabs.ini").c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        LONG high = 0;
        ::SetFilePointer(huge.get(), sizeof(void*) == 4 ? 0x78000000 : LONG(0xC0000000), &high, FILE_BEGIN);
        REQUIRE(::SetEndOfFile(huge.get()));
    }
    folder.write(project, "ModifiedText = ' of it'\n");
    CMDITabSettings::clearDefaultSettings();
    CHECK(CMDITabSettings::getModifiedText(name.c_str()) == " of it");
    CHECK(CMDITabSettings::getDefaultSettings(name.c_str())->getCopies().back().sReason != "");
    ::DeleteFileA((folder.path() + project).c_str());
    texts("PopupSaveText = new\n");
    CHECK(CMDITabSettings::getPopupSaveText(name.c_str()) == "new");
}
