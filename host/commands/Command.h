#pragma once

// The host's own commands: a table of names and functions. A command that fails
// throws CommandError (or FileError), whose text goes to the command line.

#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace host {

class Application;
class Document;

class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The words after a command's name. Blanks separate them, except in quotes.
class Arguments {
public:
    // Takes the first word of the line off as the command's name.
    static Arguments parse(const std::string& sLine, std::string& sName);

    std::size_t size() const { return m_words.size(); }
    // Each throws CommandError when there is no such word, or it is no number.
    const std::string& text(std::size_t index) const;
    double number(std::size_t index) const;
    int integer(std::size_t index) const;
    // This word and all behind it, joined by blanks.
    std::string rest(std::size_t index) const;

private:
    std::vector<std::string> m_words;
};

struct Command {
    const char* name;
    void (*run)(Application& application, const Arguments& arguments);
    // Also runs while a dialog is open.
    bool worksInDialogs = false;

    // By its name in upper case; null for an unknown one.
    static const Command* find(const std::string& sName);
    static bool worksInDialog(const std::string& sLine);
};

// Throws CommandError when there is no drawing.
Document& currentDocument(Application& application);

// The tables, one a source file.
std::span<const Command> fileCommands();
std::span<const Command> drawingCommands();
std::span<const Command> systemCommands();
std::span<const Command> observationCommands();

}  // namespace host
