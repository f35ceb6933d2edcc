#include "host/commands/Command.h"

#include "host/application/CommandStack.h"

#include <cstdlib>
#include <cstring>

namespace host {

Arguments Arguments::parse(const std::string& sLine, std::string& sName)
{
    Arguments arguments;
    std::string word;
    bool inWord = false;
    bool quoted = false;
    const auto finish = [&] {
        if (inWord)
            arguments.m_words.push_back(word);
        word.clear();
        inWord = false;
    };
    for (const char c : sLine) {
        if (c == '"') {
            quoted = !quoted;
            inWord = true;
        } else if (!quoted && std::strchr(" \t\r\n", c) != nullptr) {
            finish();
        } else {
            word += c;
            inWord = true;
        }
    }
    finish();
    if (!arguments.m_words.empty()) {
        sName = arguments.m_words.front();
        arguments.m_words.erase(arguments.m_words.begin());
    }
    return arguments;
}

const std::string& Arguments::text(std::size_t index) const
{
    if (index >= m_words.size())
        throw CommandError("Too few arguments.");
    return m_words[index];
}

double Arguments::number(std::size_t index) const
{
    char* end = nullptr;
    const double value = std::strtod(text(index).c_str(), &end);
    if (text(index).empty() || *end != '\0')
        throw CommandError("\"" + text(index) + "\" is not a number.");
    return value;
}

int Arguments::integer(std::size_t index) const
{
    const double value = number(index);
    if (value != static_cast<int>(value))
        throw CommandError("\"" + text(index) + "\" is not a whole number.");
    return static_cast<int>(value);
}

std::string Arguments::rest(std::size_t index) const
{
    std::string joined = text(index);
    for (std::size_t i = index + 1; i < m_words.size(); ++i)
        joined += " " + m_words[i];
    return joined;
}

const Command* Command::find(const std::string& sName)
{
    for (const std::span<const Command> table :
         {fileCommands(), drawingCommands(), systemCommands(), observationCommands()})
        for (const Command& command : table)
            if (sName == command.name)
                return &command;
    return nullptr;
}

bool Command::worksInDialog(const std::string& sLine)
{
    std::string sName;
    Arguments::parse(sLine, sName);
    const Command* const pCommand = find(CommandStack::plainName(sName));
    return pCommand != nullptr && pCommand->worksInDialogs;
}

}  // namespace host
