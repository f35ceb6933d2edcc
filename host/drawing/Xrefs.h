#pragma once

// External references: where they are and what becomes of them.

#include "host/drawing/Database.h"

#include <string>

namespace host {

// Where an xref's path, as the drawing has it, leads: as it is when absolute,
// else from the drawing's folder.
std::string fullXrefPath(const Database& host, const std::string& sPath);

// Loads what the drawing refers to and sets each xref's status; without
// `load`, all of them stay unresolved.
void resolveXrefs(Database& database, bool load);
void resolveXref(Database& database, BlockNode& block);

}  // namespace host
