// System variables: every result type, scopes, and what cannot be set.

#include "HostFixture.h"

#include "objectarx/acedads.h"
#include "objectarx/dbapserv.h"

#include <cstring>

namespace {

resbuf get(const char* sName)
{
    resbuf value{};
    REQUIRE_MESSAGE(acedGetVar(sName, &value) == RTNORM, sName);
    return value;
}

std::string text(const char* sName)
{
    resbuf value = get(sName);
    REQUIRE(value.restype == RTSTR);
    const std::string sText = value.resval.rstring;
    acutDelString(value.resval.rstring);
    return sText;
}

resbuf shortValue(short value)
{
    resbuf result{};
    result.restype = RTSHORT;
    result.resval.rint = value;
    return result;
}

class HeaderRecorder : public AcDbDatabaseReactor {
public:
    void headerSysVarWillChange(const AcDbDatabase*, const char* sName) override
    {
        events += std::string("will ") + sName;
    }
    void headerSysVarChanged(const AcDbDatabase*, const char* sName, Adesk::Boolean done) override
    {
        events += std::string(done ? ", did " : ", failed ") + sName;
    }
    std::string events;
};

}  // namespace

TEST_CASE_FIXTURE(HostFixture, "each result type can be read and, where it may, set")
{
    REQUIRE(run("OPEN " + drawing("a.dwg")));
    CHECK(get("dbmod").restype == RTSHORT);
    CHECK(get("TREEMAX").restype == RTLONG);
    CHECK(get("TREEMAX").resval.rlong == 10000000);
    CHECK(get("LTSCALE").restype == RTREAL);
    CHECK(get("LIMMIN").restype == RTPOINT);
    CHECK(get("INSBASE").restype == RT3DPOINT);
    CHECK(text("DWGNAME") == "a.dwg");
    CHECK(text("DWGPREFIX") == path(""));
    CHECK(get("DWGTITLED").resval.rint == 1);

    resbuf point = get("INSBASE");
    point.resval.rpoint[0] = 1.5;
    point.resval.rpoint[1] = -2.0;
    point.resval.rpoint[2] = 3.25;
    CHECK(acedSetVar("insbase", &point) == RTNORM);
    CHECK(get("INSBASE").resval.rpoint[1] == -2.0);
    CHECK(get("INSBASE").resval.rpoint[2] == 3.25);

    resbuf string{};
    char sText[] = "Gr\xFC\xDF";
    string.restype = RTSTR;
    string.resval.rstring = sText;
    CHECK(acedSetVar("USERS1", &string) == RTNORM);
    CHECK(text("USERS1") == sText);
}

TEST_CASE_FIXTURE(HostFixture, "what must not be set is refused and unchanged")
{
    REQUIRE(run("NEW"));
    const resbuf one = shortValue(1);
    for (const char* sName : {"DBMOD", "DWGTITLED", "ACADVER", "NOSUCH", "LTSCALE", "TREEMAX", "USERS1"}) {
        CAPTURE(sName);
        CHECK(acedSetVar(sName, &one) == RTERROR);
    }
    const resbuf two = shortValue(2);
    CHECK(acedSetVar("SDI", &two) == RTERROR);
    CHECK(acedSetVar("SDI", &one) == RTNORM);
    CHECK(get("SDI").resval.rint == 1);
    CHECK(get("DBMOD").resval.rint == 0);
    resbuf value{};
    CHECK(acedGetVar("NOSUCH", &value) == RTERROR);
    CHECK(acedGetVar(nullptr, &value) == RTERROR);
    CHECK(acedGetVar("SDI", nullptr) == RTERROR);
    CHECK(acedSetVar("SDI", nullptr) == RTERROR);
    refused("SETVAR DBMOD 0", "DBMOD is read-only");
    refused("SETVAR SDI x", "no value for SDI");
    refused("SETVAR NOSUCH", "no system variable NOSUCH");
    refused("SETVAR LIMMIN 1", "no value for LIMMIN");
}

TEST_CASE_FIXTURE(HostFixture, "drawing variables are those of the working database")
{
    REQUIRE(run("NEW"));
    REQUIRE(run("LINE 0 0 1 1"));
    REQUIRE(run("OPEN " + drawing("a.dwg")));
    CHECK(get("DBMOD").resval.rint == 0);
    acdbHostApplicationServices()->setWorkingDatabase(documents().at(0).database());
    CHECK(get("DBMOD").resval.rint != 0);
    CHECK(get("DWGTITLED").resval.rint == 0);
    CHECK(text("DWGNAME") == "Drawing1.dwg");
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    resbuf value{};
    CHECK(acedGetVar("DBMOD", &value) == RTERROR);
    CHECK(acedGetVar("LTSCALE", &value) == RTERROR);
    CHECK(acedGetVar("SDI", &value) == RTNORM);
    acdbHostApplicationServices()->setWorkingDatabase(documents().at(1).database());
}

TEST_CASE_FIXTURE(HostFixture, "a header variable is an edit of the drawing: announced, kept, undone")
{
    REQUIRE(run("OPEN " + drawing("a.dwg")));
    HeaderRecorder recorder;
    documents().at(0).database()->addReactor(&recorder);
    REQUIRE(run("SETVAR LTSCALE 2.5"));
    CHECK(recorder.events == "will LTSCALE, did LTSCALE");
    documents().at(0).database()->removeReactor(&recorder);
    CHECK(output("SETVAR LTSCALE").find("LTSCALE = 2.5\n") != std::string::npos);
    CHECK(documents().at(0).isModified());
    REQUIRE(run("SETVAR LIMMIN 1,2"));
    REQUIRE(run("QSAVE"));
    REQUIRE(run("SETVAR LTSCALE 4"));
    REQUIRE(run("UNDO"));
    CHECK_FALSE(documents().at(0).isModified());
    REQUIRE(run("CLOSE"));
    REQUIRE(run("OPEN " + path("a.dwg")));
    CHECK(get("LTSCALE").resval.rreal == 2.5);
    CHECK(get("LIMMIN").resval.rpoint[1] == 2.0);
}
