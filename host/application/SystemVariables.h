#pragma once

// The system variables: some belong to the session, some to the working
// database, and some of the latter are kept in the drawing's header.

#include "host/drawing/Database.h"
#include "objectarx/adsdef.h"

#include <array>
#include <map>
#include <optional>
#include <string>

namespace host {

class DocumentManager;

// A value with its result type: a text, or as many numbers as the type has.
struct VariableValue {
    int type = RTSHORT;
    std::array<double, 3> numbers{};
    std::string text;

    static int count(int type) { return type == RTSTR ? 0 : type == RTPOINT ? 2 : type == RT3DPOINT ? 3 : 1; }
};

class SystemVariables {
public:
    explicit SystemVariables(const DocumentManager& documents) : m_documents(documents) {}

    enum class SetResult { done, readOnly, invalid };

    // Of the working database. Nothing for an unknown name, or without a drawing.
    std::optional<VariableValue> get(const std::string& sName) const;
    // Throws FileError where the drawing that keeps it is not to be edited.
    SetResult set(const std::string& sName, const VariableValue& value);

    // The value as the command line shows it, and back: as the type says.
    static std::string toText(const VariableValue& value);
    // False when the text is no value of the type.
    static bool fromText(const std::string& sText, VariableValue& value);

private:
    const DocumentManager& m_documents;
    std::map<std::string, VariableValue> m_session;
};

}  // namespace host
