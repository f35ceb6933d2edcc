// The command line as a module and a person meet it.

#include "HostFixture.h"

#include "objectarx/acutads.h"

namespace {

int calls = 0;

void count() { ++calls; }

}  // namespace

TEST_CASE_FIXTURE(HostFixture, "a command is found by local name, and by global name after an underscore")
{
    calls = 0;
    REQUIRE(acedRegCmds->addCommand("ONE", "GlobalName", "LocalName", ACRX_CMD_MODAL, count) == Acad::eOk);
    for (const char* sTyped : {"LocalName", ".LOCALNAME", "_GlobalName", "_.globalname", "._GLOBALNAME"})
        CHECK(run(sTyped));
    CHECK(calls == 5);
    refused("GlobalName", "Unknown command");
    refused("_LocalName", "Unknown command");

    CHECK(acedRegCmds->addCommand("ONE", "globalname", "Other", ACRX_CMD_MODAL, count) == Acad::eDuplicateKey);
    CHECK(acedRegCmds->addCommand("one", "Other", "LOCALNAME", ACRX_CMD_MODAL, count) == Acad::eDuplicateKey);
    CHECK(acedRegCmds->removeGroup("one") == Acad::eOk);
    CHECK(acedRegCmds->removeGroup("ONE") == Acad::eKeyNotFound);
    CHECK(acedRegCmds->addCommand("G", "two words", "x", 0, count) == Acad::eInvalidInput);
}

TEST_CASE_FIXTURE(HostFixture, "a print is cut at 132 characters")
{
    application.commandLine().history().clear();
    CHECK(acutPrintf("%s", std::string(200, 'x').c_str()) == 5100);
    CHECK(application.commandLine().history() == std::string(132, 'x'));
}
