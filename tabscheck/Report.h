#pragma once

// What was found out about one drawing: plain values, in the thread's ANSI code page.

#include "library/files/SupportFileLocator.h"

#include <compare>
#include <string>
#include <vector>

namespace tabscheck {

using Tesk::Layer;

const char* nameOf(Layer layer);

// A place that was asked, in the order of asking.
struct Place {
    Layer layer = Layer::Standard;
    std::string path;
    bool found = false;
    unsigned keys = 0;     // those that the strip takes from it
    bool dropped = false;  // a copy of texts that the strip drops for a bad line

    bool operator==(const Place&) const = default;
};

// A folder that may be the domain's; the first that is there is taken.
struct DomainFolder {
    std::string path;
    bool found = false;
    std::string key;  // of the registry, when it is named there

    bool operator==(const DomainFolder&) const = default;
};

// One definition of a text.
struct Setting {
    Layer layer = Layer::Standard;
    std::string file;
    unsigned line = 0;
    std::string value;

    bool operator==(const Setting&) const = default;
};

struct Text {
    std::string key;
    // The one that counts first, then what it overrode, the nearest first; empty when no
    // file defines the key.
    std::vector<Setting> settings;

    const std::string& value() const;
    bool operator==(const Text&) const = default;
};

struct Border {
    std::string block;
    std::string file;
    unsigned line = 0;
    bool chosen = false;  // its block is the drawing's title block

    bool operator==(const Border&) const = default;
};

struct Mapping {
    std::string key;
    std::string tag;
    std::string file;
    unsigned line = 0;

    bool operator==(const Mapping&) const = default;
};

struct Project {
    std::string root;  // with a trailing backslash; empty outside any project
    std::string label;
    std::string source;            // the file that supplies the borders
    bool sourceIsCertain = false;  // the drawing's blocks were read
    std::vector<Place> searched;
    std::vector<Border> borders;
    std::vector<Mapping> mapping;

    bool operator==(const Project&) const = default;
};

struct Tooltip {
    std::string rule;  // "template", "title", "default"; empty for a drawing that cannot be read
    std::string title;
    std::string text;  // empty: there is no balloon
    bool contentsKnown = false;

    bool operator==(const Tooltip&) const = default;
};

struct Problem {
    std::string file;     // or a registry key
    unsigned line = 0;    // from 1; 0 for the file as a whole
    unsigned column = 0;  // in bytes from 1
    bool error = false;
    std::string text;
    std::string source;      // the line itself
    bool unchecked = false;  // something could not be looked into

    auto operator<=>(const Problem&) const = default;
};

// All but path and tooltip are often the same for a folder's drawings.
struct Findings {
    std::vector<DomainFolder> domainFolders;
    std::vector<Place> searched;
    std::vector<Text> texts;
    Project project;
    std::vector<Problem> problems;

    bool operator==(const Findings&) const = default;
};

struct DrawingReport {
    std::string path;
    bool settingsFile = false;  // no drawing: of the findings the problems alone count
    Findings findings;
    Tooltip tooltip;
    bool unreadable = false;  // the drawing is there but does not open
};

}  // namespace tabscheck
