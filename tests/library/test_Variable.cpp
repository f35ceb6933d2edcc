#include "library/drawing/ARXVariable.h"
#include "library/text/StringView.h"

#include "dxf/Memory.h"
#include "host/application/Application.h"
#include "library/diagnostics/Prerelease.h"
#include "tests/support/Answers.h"

#include <doctest/doctest.h>

using namespace Tesk;

namespace {

// The text of the exception that the call raises, with its code; empty without one.
template <class Call>
std::string raisedBy(const Call& call)
{
    try {
        call();
    } catch (CARXVariableException* e) {
        CString sText;
        const bool bText = e->getErrorText(sText);
        const std::string sCode = std::to_string(e->getCode());
        e->Delete();
        return sCode + (bText ? " " : " no ") + Tesk::toString(sText);
    }
    return "";
}

}  // namespace

TEST_CASE("a value describes itself by its type")
{
    CVariable variable("NAME");
    CHECK(variable.getType() == CVariable::TYPE_NONE);
    CHECK(variable.getString() == "");
    variable.set("text");
    CHECK(variable.getDescription() == "NAME value is : text (String).");
    variable.set(static_cast<const char*>(nullptr));
    CHECK(variable.getDescription() == "NAME value is :  (String).");
    variable.set(short{-7});
    CHECK(variable.getDescription() == "NAME value is : -7 (Short).");
    variable.set(true);
    CHECK(variable.getDescription() == "NAME value is : 1 (Short).");
    CHECK(variable.getBool());
    variable.set("");
    CHECK(variable.getShort() == 1);  // another type's value stays
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

    CARXVariable("LTSCALE").set(2.5);
    CARXVariable scale("LTSCALE");
    scale.read();
    CHECK(scale.getDescription() == "LTSCALE value is : 2.5 (Double).");
    // DBMOD is a sum of bits: true, without the check that it be 0 or 1.
    Tesk::setDiagnosticsLevel(1);
    const Answers answers;
    CARXVariable modified("DBMOD");
    CHECK(modified.readBool());
    CHECK(modified.getShort() > 1);
    CHECK(answers.boxes().empty());
    Tesk::setDiagnosticsLevel(0);

    CARXVariable("LIMMIN").set(C2DPoint(-1, 3));
    CARXVariable limits("LIMMIN");
    limits.read();
    CHECK(limits.getDescription() == "LIMMIN value is : -1,3 (2D Point).");

    CARXVariable("INSBASE").set(C3DPoint(1, 2, 3));
    CARXVariable base("INSBASE");
    base.read();
    CHECK(base.getDescription() == "INSBASE value is : 1,2,3 (3D Point).");
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
