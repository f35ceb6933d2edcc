// The loader of modules: the protocol with a module, and what is refused.

#include "HostFixture.h"

#include "objectarx/rxmfcapi.h"

namespace {

std::vector<AcRx::AppMsgCode> messages;
bool aware = true;
bool unlocked = true;
AcRx::AppRetCode answer = AcRx::kRetOK;

void nothing() {}

AcRx::AppRetCode entryPoint(AcRx::AppMsgCode message, void* pkt)
{
    messages.push_back(message);
    if (message == AcRx::kInitAppMsg) {
        if (aware)
            CHECK(acrxDynamicLinker->registerAppMDIAware(pkt));
        if (unlocked)
            CHECK(acrxDynamicLinker->unlockApplication(pkt));
        acedRegCmds->addCommand("MODULE", "ModuleCommand", "ModuleCommand", ACRX_CMD_MODAL, nothing);
        return answer;
    }
    CHECK_FALSE(acrxDynamicLinker->unlockApplication(pkt));  // too late
    return AcRx::kRetOK;
}

class ModuleHost : public HostFixture {
public:
    ModuleHost()
    {
        messages.clear();
        aware = unlocked = true;
        answer = AcRx::kRetOK;
    }
};

using Messages = std::vector<AcRx::AppMsgCode>;

}  // namespace

TEST_CASE_FIXTURE(ModuleHost, "a module hears of its life, and its commands end with it")
{
    REQUIRE(run("NEW"));
    CHECK(application.linker().attach("Sample", entryPoint) == "");
    CHECK(messages == Messages{AcRx::kInitAppMsg, AcRx::kLoadDwgMsg});
    CHECK(application.linker().attach("sample", entryPoint) != "");
    CHECK(output("ARX").find("Sample\n") != std::string::npos);
    CHECK(run("ModuleCommand"));
    CHECK(run("ARX U SAMPLE.ARX"));
    CHECK(messages.back() == AcRx::kUnloadAppMsg);
    refused("ModuleCommand", "Unknown command");
    refused("ARX U Sample", "no module of that name");
    CHECK(application.linker().attach("Sample", entryPoint) == "");
    CHECK(run("ModuleCommand"));
}

TEST_CASE_FIXTURE(ModuleHost, "a module that does not unlock itself stays, one that refuses or knows one drawing goes")
{
    unlocked = false;
    CHECK(application.linker().attach("Locked", entryPoint) == "");
    refused("ARX U Locked", "is locked");
    CHECK(run("ModuleCommand"));

    aware = false;
    CHECK(application.linker().attach("Single", entryPoint).find("several drawings") != std::string::npos);
    CHECK(messages.back() == AcRx::kUnloadAppMsg);
    aware = true;
    answer = AcRx::kRetError;
    CHECK(application.linker().attach("Refusing", entryPoint).find("refused") != std::string::npos);
    CHECK(application.linker().names() == std::vector<std::string>{"Locked"});
}
