#include "library/drawing/ARXVariable.h"
#include "library/text/StringView.h"

#include "dxf/Memory.h"
#include "host/application/Application.h"
#include "library/diagnostics/Prerelease.h"
#include "tests/support/Answers.h"

#include <doctest/doctest.h>

using namespace Tesk;

namespace {

// The text of the exception that the call raises, after its code; empty without one.
template <class Call>
std::string raisedBy(const Call& call)
{
    try {
        call();
    } catch (CARXVariableException* e) {
        const int iCode = e->getCode();
        return std::to_string(iCode) + " " + takeExceptionText(e).GetString();
    }
    return "";
}

}  // namespace

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

TEST_CASE("system variables of the five types go to the host and come back")
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
    const auto described = [](const char* sName, const auto& value) {
        CARXVariable(sName).set(value);
        CARXVariable variable(sName);
        variable.read();
        return variable.getDescription();
    };
    CHECK(described("LTSCALE", 2.5) == "LTSCALE value is : 2.5 (Double).");
    // DBMOD is a sum of bits: true, without the check that it be 0 or 1.
    Tesk::setDiagnosticsLevel(1);
    const Answers answers;
    CARXVariable modified("DBMOD");
    CHECK(modified.readBool());
    CHECK(modified.getShort() > 1);
    CHECK(answers.boxes().empty());
    Tesk::setDiagnosticsLevel(0);

    CHECK(described("LIMMIN", C2DPoint(-1, 3)) == "LIMMIN value is : -1,3 (2D Point).");
    CHECK(described("INSBASE", C3DPoint(1, 2, 3)) == "INSBASE value is : 1,2,3 (3D Point).");
}

TEST_CASE("what cannot be read or written is raised, by name")
{
    host::Application application({.visible = false});
    REQUIRE(application.execute("NEW").succeeded);

    CARXVariable missing("NOSUCH");
    CHECK(raisedBy([&] { missing.read(); }) == "1 Error : Unable to read AutoCAD variable (NOSUCH).");
    CHECK(missing.getType() == CVariable::TYPE_NONE);
    CHECK(raisedBy([] { CARXVariable("").read(); }) == "1 Error : Unable to read AutoCAD variable.");
    CARXVariable tree("TREEMAX");  // a long integer
    tree.CVariable::set(2.5);
    CHECK(raisedBy([&] { tree.read(); }) == "1 Error : Unable to read AutoCAD variable (TREEMAX).");
    CHECK(tree.getDescription() == "TREEMAX value is : 2.5 (Double).");
    CHECK(raisedBy([] { CARXVariable("NONE").write(); }) == "2 Error : Unable to write AutoCAD variable (NONE).");

    CARXVariable modified("DBMOD");
    CHECK(raisedBy([&] { modified.set(short{4}); }) == "2 Error : Unable to write AutoCAD variable (DBMOD).");
    CHECK(modified.getShort() == 4);  // the value assigned stays
    modified.read();
    CHECK(modified.getShort() == 0);

    const CARXVariableException unknown(3, "X");
    CString sText;
    CHECK(!unknown.getErrorText(sText));
    CHECK(sText == "Error : ");
}
