// What the module holds of closed drawings. Loading and unloading of its file is
// driven from outside, in tests/e2e.
#include "ModuleFixture.h"
#include "dxf/Memory.h"
#include "host/observation/ResourceCount.h"
#include "host/ui/MainFrame.h"
#include <doctest/doctest.h>

using host::observation::ResourceCount;

TEST_CASE_FIXTURE(ModuleFixture, "a thousand opened and closed drawings leave the process's objects where they were")
{
    folder.write("MDITabs.ini", "ModifiedText = *\r\nDefaultTooltipText = none\r\n");
    // The host's windows of the drawings take long to make and are not what is asked about.
    app.frame().setDrawingsShown(false);
    load();
    open("first.dwg");
    const auto cycles = [&](int count) {
        for (int i = 0; i < count; ++i) {
            AcApDocument* const pDocument = open(i % 2 == 0 ? "a.dwg" : "b.dwg");
            static_cast<host::Document*>(pDocument)->drawing().addLine(0, 0, 1, 1);
            REQUIRE(tabs().back().ends_with("*"));
            moveMouse(1);
            close(pDocument);
            app.commandLine().history().clear();
        }
        REQUIRE(tabs().size() == 1);
    };
    cycles(4);
    const ResourceCount before = ResourceCount::now();
    const long handles = liveHandles(), strings = host::liveAllocations();

    cycles(1000);
    const ResourceCount after = ResourceCount::now();
    INFO(before, " ", after);
    CHECK(after.sameObjects(before));
    CHECK(after.heap - before.heap < 20);  // Windows' caches settle late; ours would be hundreds
    CHECK(liveHandles() == handles);
    CHECK(host::liveAllocations() == strings);
}
