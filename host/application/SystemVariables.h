#pragma once

// The system variables: some belong to the session, some to the working
// database, and some of the latter are kept in the drawing's header.

#include "host/drawing/Database.h"
#include "objectarx/adsdef.h"

#include <map>
#include <optional>
#include <string>

namespace host {

class DocumentManager;

// A value with its result type; only the member of that type counts.
struct VariableValue {
    int type = RTSHORT;
    int number = 0;
    double real[3] = {0.0, 0.0, 0.0};
    std::string text;
};

class SystemVariables {
public:
    explicit SystemVariables(const DocumentManager& documents) : m_documents(documents) {}

    enum class SetResult { done, unknown, readOnly, wrongType, invalid };

    // Of the working database. Nothing for an unknown name, or without a drawing.
    std::optional<VariableValue> get(const std::string& sName) const;
    SetResult set(const std::string& sName, const VariableValue& value);

    // The value as the command line shows it, and back: as the type says.
    static std::string toText(const VariableValue& value);
    // False when the text is no value of the type.
    static bool fromText(const std::string& sText, VariableValue& value);

private:
    std::optional<VariableValue> drawingValue(const std::string& sName, Database& drawing) const;

    const DocumentManager& m_documents;
    std::map<std::string, VariableValue> m_session;
};

}  // namespace host
