#include "library/network/UniversalName.h"

#include <doctest/doctest.h>

TEST_CASE("a path that is on no mapped drive is its own universal name")
{
    for (const char* sPath :
         {"C:\\windows\\plan.dwg", "\\\\server\\share\\plan.dwg", "N:plan.dwg", "Q:\\plan.dwg", "plan.dwg", "\\", ""})
        CHECK(Tesk::Network::getUniversalName(sPath) == sPath);
}
