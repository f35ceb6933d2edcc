#pragma once

#include <string>

namespace Tesk {

// Empty when the system does not say.
std::string getComputerName();

}  // namespace Tesk
