#pragma once

// From the paths of the command line to drawings. What cannot be looked into is told, and
// the rest goes on.

#include <compare>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tabscheck {

struct FolderEntry {
    std::string name;
    bool folder;
    bool link;  // to one

    auto operator<=>(const FolderEntry&) const = default;
};

struct Listing {
    std::vector<FolderEntry> entries;  // by their names
    unsigned long error;               // that ended it
};

// What fits a path whose name may have "*" and "?".
Listing entriesOf(const std::string& sPattern);

class DrawingFinder {
public:
    // Hears what cannot be checked.
    using Tell = std::function<void(const std::string& sPath, const std::string& sReason)>;
    using Found = std::function<void(const std::string& sPath)>;
    // Hears each folder that is looked into, with a trailing backslash, and what is in it.
    using Listed = std::function<void(const std::string& sFolder, const std::vector<FolderEntry>& entries)>;

    DrawingFinder(Found found, Listed listed, Tell tell)
        : m_found(std::move(found)), m_listed(std::move(listed)), m_tell(std::move(tell))
    {
    }

    // A file, which need not exist when it is named as a drawing, or a folder: then all
    // drawings below it, folder by folder, in the order of their names; or "*" and "?" in the
    // name for all of these that are so named. Full paths come out.
    void add(const std::string& sPath);

private:
    void addMatching(const std::string& sPattern);
    void addFolder(const std::string& sFolder);
    bool fits(const std::string& sPath);

    Found m_found;
    Listed m_listed;
    Tell m_tell;
};

// A drawing by its name.
bool isDrawingName(const std::string& sPath);

// The folder that a folder is in; either ends in a backslash.
std::string parentOf(const std::string& sFolder);

// The folder's full path ends in a backslash. Empty when there is no such folder.
std::string existingFolder(const std::string& sPath);

// Whether a file can be opened, and why not when it is there.
struct Opening {
    bool opens;
    std::string reason;
};
Opening tryToOpen(const std::string& sPath);

}  // namespace tabscheck
