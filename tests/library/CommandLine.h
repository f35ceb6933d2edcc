#pragma once

// What the code under test prints on the CAD command line, call by call.

#include <string>
#include <vector>

std::vector<std::string>& commandLinePieces();
