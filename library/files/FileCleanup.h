#pragma once

namespace Tesk {

// Deletes the oldest files (by last write) that match a path with wildcards in its name,
// until `iKeep` are left or one cannot be deleted; folders do not count. Takes no memory
// from the heap, so that a dying process can call it.
void keepNewestFiles(const char* sPattern, int iKeep) noexcept;

}  // namespace Tesk
