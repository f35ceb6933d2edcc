// The host keeps nothing of closed documents and ended sessions, so that what a
// module's tests find left over is the module's.

#include "HostFixture.h"
#include "host/observation/ResourceCount.h"

using host::observation::ResourceCount;

TEST_CASE_FIXTURE(HostFixture, "opening, editing and closing leaves no heap block and no handle behind")
{
    const std::string sPath = drawing("a.dwg");
    REQUIRE(run("NEW"));
    const auto cycles = [&](int count) {
        for (int i = 0; i < count; ++i)
            for (const std::string& sLine : {"OPEN " + sPath, std::string("LINE 0 0 1 1"), std::string("CLOSE")})
                REQUIRE(run(sLine));
        return ResourceCount::heapBlocks();
    };
    const long before = cycles(20);
    const long handles = liveHandles();
    CHECK(cycles(40) <= before + 4);  // not one a cycle
    CHECK(liveHandles() == handles);
}

TEST_CASE("a session leaves no heap block behind")
{
    const auto session = [] {
        {
            HostFixture fixture;
            REQUIRE(fixture.run("NEW"));
            REQUIRE(fixture.run("LINE 0 0 1 1"));
        }
        return ResourceCount::heapBlocks();
    };
    session();
    const long before = session();
    for (int i = 0; i < 4; ++i)
        session();
    CHECK(session() <= before + 2);
}
