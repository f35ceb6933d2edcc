#include "tabscheck/Report.h"

namespace tabscheck {

const char* nameOf(Layer layer)
{
    switch (layer) {
    case Layer::Standard:
        return "standard";
    case Layer::Domain:
        return "domain";
    case Layer::Project:
        return "project";
    default:
        return "folder";
    }
}

const std::string& Text::value() const
{
    static const std::string sEmpty;
    return settings.empty() ? sEmpty : settings.front().value;
}

}  // namespace tabscheck
