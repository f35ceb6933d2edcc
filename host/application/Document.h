#pragma once

// An open drawing: its name, its database and what tells it from the others.

#include "host/drawing/Database.h"
#include "objectarx/acdocman.h"

#include <memory>
#include <string>

namespace host {

class Document final : public AcApDocument {
public:
    // An untitled drawing's name has no folder.
    Document(std::string sFileName, bool titled) : m_sFileName(std::move(sFileName)), m_titled(titled) {}

    const char* fileName() const override { return m_sFileName.c_str(); }
    AcDbDatabase* database() const override { return m_database.get(); }
    // The file cannot be written: its attribute, or no right to, or its format. Looked up
    // once, when the drawing is opened or saved.
    bool isReadOnly() const override { return m_readOnly; }

    Database& drawing() const { return *m_database; }
    bool isTitled() const { return m_titled; }
    // The name without its folder.
    std::string title() const;
    bool isModified() const { return m_database->dbmod() != 0; }

    void setDatabase(std::unique_ptr<Database> database) { m_database = std::move(database); }
    std::unique_ptr<Database> releaseDatabase() { return std::move(m_database); }
    // The drawing has a file from now on.
    void setFile(const std::string& sPath);
    void refreshReadOnly();

private:
    std::string m_sFileName;
    bool m_titled;
    bool m_readOnly = false;
    std::unique_ptr<Database> m_database;
};

}  // namespace host
