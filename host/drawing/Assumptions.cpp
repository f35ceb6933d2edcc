#include "host/drawing/Assumptions.h"

#include <iterator>

namespace host {

namespace {

// In the order of the enumeration.
constexpr const char* kNames[] = {
    "opened-before-created", "activated-before-opened", "dbmod-after-edit",
    "dbmod-after-save",      "name-after-save",         "xrefs-after-open",
    "strings-wait",          "stranger-is-current",     "cancel-unsaid",
};

bool s_assumed[std::size(kNames)] = {};

}  // namespace

bool assume(const std::string& sName)
{
    for (std::size_t i = 0; i < std::size(kNames); ++i)
        if (sName == kNames[i])
            return s_assumed[i] = true;
    return false;
}

bool assumed(Assumption assumption) { return s_assumed[static_cast<std::size_t>(assumption)]; }

std::string assumptionNames()
{
    std::string sNames;
    for (const char* sName : kNames)
        sNames += (sNames.empty() ? "" : ", ") + std::string(sName);
    return sNames;
}

}  // namespace host
