#pragma once

// The host application's services: above all the working database.

#include "objectarx/dbapserv.h"

#include <string>

namespace host {

class HostServices final : public AcDbHostApplicationServices {
public:
    AcDbDatabase* workingDatabase() const override;
    void setWorkingDatabase(AcDbDatabase* pDatabase) override;
    const char* releaseMajorMinorString() const override { return m_sRelease.c_str(); }
    const char* product() const override { return m_sProduct.c_str(); }

private:
    friend void describeHost(const std::string& sRelease, const std::string& sProduct);
    friend void forgetWorkingDatabase(const AcDbDatabase* pDatabase);
    AcDbDatabase* m_pWorking = nullptr;
    std::string m_sRelease = "16.0";
    std::string m_sProduct = "CAD Host";
};

// For a program that speaks for another host: what the services answer from now on.
void describeHost(const std::string& sRelease, const std::string& sProduct);

// A database that goes away is nobody's working database any more.
void forgetWorkingDatabase(const AcDbDatabase* pDatabase);

}  // namespace host
