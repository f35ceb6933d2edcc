#pragma once

// A running host with a folder of its own for the files of one test.

#include "host/application/Application.h"
#include "host/ui/MainFrame.h"
#include "tests/support/TestFolder.h"

#include <string>

#include <doctest/doctest.h>

class HostFixture {
public:
    HostFixture() : application(host::Options{false, false}) {}

    std::string path(const std::string& sName) const { return m_folder.path(sName); }
    std::string write(const std::string& sName, const std::string& text) const { return m_folder.write(sName, text); }
    // A saved drawing with one line in it.
    std::string drawing(const std::string& sName) const
    {
        const auto database = host::Database::createNew();
        database->addLine(0, 0, 10, 10);
        database->save(path(sName));
        return path(sName);
    }

    bool run(const std::string& sLine) { return application.execute(sLine).succeeded; }
    std::string output(const std::string& sLine) { return application.execute(sLine).output; }
    // The command has to fail, saying this.
    void refused(const std::string& sLine, const std::string& sReason)
    {
        CAPTURE(sLine);
        const host::Result result = application.execute(sLine);
        CHECK_FALSE(result.succeeded);
        CHECK_MESSAGE(result.output.find(sReason) != std::string::npos, result.output);
    }
    host::DocumentManager& documents() { return application.documents(); }

private:
    CTestFolder m_folder;

public:
    host::Application application;
};
