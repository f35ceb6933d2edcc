#pragma once

// What was found out about one drawing: plain values, in the thread's ANSI code page. What
// is described of a structure is what a program reads of it.

#include "library/files/SupportFileLocator.h"
#include "tabscheck/Problem.h"

#include <boost/describe/class.hpp>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tabscheck {

using Tesk::Layer;

inline std::string_view nameOf(Layer layer)
{
    constexpr std::string_view kNames[] = {"standard", "domain", "project", "folder"};
    return kNames[static_cast<int>(layer)];
}

// A place that was asked, in the order of asking.
struct Place {
    std::string_view layer;
    std::string path;
    bool found = false;
    unsigned keys = 0;     // those that the strip takes from it
    bool dropped = false;  // a copy of texts that the strip drops for a bad line

    bool operator==(const Place&) const = default;
};
BOOST_DESCRIBE_STRUCT(Place, (), (layer, path, found, dropped, keys))

// A folder that may be the domain's; the first that is there is taken.
struct DomainFolder {
    std::string path;
    bool found = false;
    std::string registry;  // the key, when it is named there
};
BOOST_DESCRIBE_STRUCT(DomainFolder, (), (path, found, registry))

// One definition of a text.
struct Setting {
    std::string_view layer;
    std::string file;
    unsigned line = 0;
    std::string value;

    auto operator<=>(const Setting&) const = default;
};
BOOST_DESCRIBE_STRUCT(Setting, (), (layer, file, line, value))

// The definition that counts; its line is 0 when no file defines the key.
struct Text : Setting {
    std::string key;
    std::vector<Setting> overrides;  // the nearest first

    bool operator==(const Text&) const = default;
};
BOOST_DESCRIBE_STRUCT(Text, (Setting), (overrides))

struct Border {
    std::string block;
    std::string file;
    unsigned line = 0;
    bool chosen = false;    // its block is the drawing's title block
    std::size_t group = 0;  // of its file: whose mapping counts with it

    bool operator==(const Border&) const = default;
};
BOOST_DESCRIBE_STRUCT(Border, (), (block, file, line, chosen))

struct Mapping {
    std::string key;
    std::string tag;
    std::string file;
    unsigned line = 0;

    bool operator==(const Mapping&) const = default;
};
BOOST_DESCRIBE_STRUCT(Mapping, (), (key, tag, file, line))

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
BOOST_DESCRIBE_STRUCT(Project, (), (root, label, source, borders, mapping))

struct Tooltip {
    std::string rule;  // "template", "title", "default"; empty for a drawing that cannot be read
    std::string title;
    std::string text;  // empty: there is no balloon
};
BOOST_DESCRIBE_STRUCT(Tooltip, (), (rule, title, text))

constexpr std::string_view kRead = "read";

struct DrawingReport {
    std::string path;
    std::string contents;                     // kRead, or why they are not
    const std::vector<DomainFolder>* domain;  // these outlive the reports
    const std::vector<Place>* searched;
    const std::vector<Text>* texts;
    Project project;
    Tooltip tooltip;
    std::vector<Problem> problems;
};
BOOST_DESCRIBE_STRUCT(DrawingReport, (), (path, contents, domain, searched, texts, project, tooltip, problems))

// What was asked for.
struct Asked {
    std::string root, release, product;
    std::vector<std::string> paths;
};
BOOST_DESCRIBE_STRUCT(Asked, (), (root, release, product, paths))

// A settings file that is no drawing's alone; without problems one that was checked.
struct FileReport {
    std::string path;
    std::vector<Problem> problems;
};
BOOST_DESCRIBE_STRUCT(FileReport, (), (path, problems))

// What could not be checked.
struct Unchecked {
    std::string path, reason;

    bool operator==(const Unchecked&) const = default;
};
BOOST_DESCRIBE_STRUCT(Unchecked, (), (path, reason))

// Where the reports go.
class Reports {
public:
    virtual ~Reports() = default;
    virtual void add(DrawingReport report) = 0;
    // After the last drawing.
    virtual void finish(const std::vector<FileReport>& files, const std::vector<Unchecked>& unchecked) = 0;
};

enum class Show { All, Problems, Overrides, Key };

class Console;

// For a person to read: each project's block once, with those drawings together that see the
// same, and each problem once; or a part of that. The key is that of Show::Key.
std::unique_ptr<Reports> makeTextReport(Console& console, Show show, const std::string& sKey);
// For a program: one object in UTF-8, written a drawing after the other.
std::unique_ptr<Reports> makeJsonReport(Console& console, const Asked& asked);

}  // namespace tabscheck
