#include "library/drawing/ARXVariable.h"

#include "dxf/Memory.h"
#include "host/application/Application.h"
#include "library/diagnostics/Prerelease.h"
#include "tests/support/Answers.h"

#include <doctest/doctest.h>

using namespace Tesk;

TEST_CASE("a value of another type stays, and null is an empty text")
{
    CVariable variable("NAME");
    variable.set("text");
    variable.set(true);
    CHECK(variable.getString() == "text");
    CHECK(variable.getBool());
    variable.set(static_cast<const char*>(nullptr));
    CHECK(variable.getDescription() == "NAME value is :  (String).");
    CHECK(variable.getShort() == 1);
}

TEST_CASE("system variables go to the host and come back")
{
    host::Application application({.visible = false});
    REQUIRE(application.execute("NEW").succeeded);

    const long allocations = dxf::liveAllocations();
    CARXVariable("USERS1").set("a text");
    CHECK(CARXVariable("USERS1").readString() == "a text");
    CHECK(dxf::liveAllocations() == allocations);
    CARXVariable("SDI").set(true);
    CHECK(CARXVariable("SDI").readBool());
    CARXVariable("SDI").set(short{0});
    CHECK(!CARXVariable("SDI").readBool());
    // DBMOD is a sum of bits: true, without the check that it be 0 or 1.
    Tesk::setDiagnosticsLevel(1);
    const Answers answers;
    CARXVariable("LTSCALE").set(2.5);
    CARXVariable modified("DBMOD");
    CHECK(modified.readBool());
    CHECK(modified.getShort() > 1);
    CHECK(answers.boxes().empty());
    Tesk::setDiagnosticsLevel(0);
}
