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

}  // namespace

TEST_CASE_FIXTURE(HostFixture, "a module that does not unlock itself stays, one that refuses or knows one drawing goes")
{
    unlocked = false;
    CHECK(application.linker().attach("Locked", entryPoint) == "");
    refused("ARX U Locked", "is locked");
    CHECK(run("ModuleCommand"));
    CHECK(application.linker().attach("locked", entryPoint) != "");

    aware = false;
    CHECK(application.linker().attach("Single", entryPoint).find("several drawings") != std::string::npos);
    CHECK(messages.back() == AcRx::kUnloadAppMsg);
    aware = true;
    answer = AcRx::kRetError;
    CHECK(application.linker().attach("Refusing", entryPoint).find("refused") != std::string::npos);
    CHECK(application.linker().names() == std::vector<std::string>{"Locked"});
}
