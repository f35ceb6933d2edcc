// The command line as a module and a person meet it.

#include "HostFixture.h"

#include "objectarx/acutads.h"

namespace {

int calls = 0;

void count() { ++calls; }

void countTen() { calls += 10; }

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
    CHECK(acedRegCmds->addCommand("TWO", "GlobalName", "LocalName", ACRX_CMD_MODAL, countTen) == Acad::eOk);
    CHECK(run("LocalName"));  // the group that came last
    CHECK(calls == 15);
    CHECK(acedRegCmds->removeGroup("two") == Acad::eOk);
    CHECK(acedRegCmds->removeGroup("TWO") == Acad::eKeyNotFound);
    CHECK(acedRegCmds->addCommand("G", std::string(65, 'x').c_str(), "x", 0, count) == Acad::eInvalidInput);
    CHECK(acedRegCmds->addCommand("G", "two words", "x", 0, count) == Acad::eInvalidInput);
}

TEST_CASE_FIXTURE(HostFixture, "a print is cut at 132 characters")
{
    application.commandLine().history().clear();
    CHECK(acutPrintf("%s", std::string(200, 'x').c_str()) == 5100);
    CHECK(application.commandLine().history() == std::string(132, 'x'));
}
