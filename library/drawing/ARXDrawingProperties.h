#pragma once

// A drawing's summary information, read from and written to its database.

#include "library/drawing/DrawingProperties.h"

class AcDbDatabase;
class AcDbDatabaseSummaryInfo;

namespace Tesk {

class CARXDrawingProperties : public CDrawingProperties {
public:
    // Empty and without a database; neither valid nor readable.
    CARXDrawingProperties() = default;
    // Reads at once. The database stays the host's and must outlive read and write.
    explicit CARXDrawingProperties(AcDbDatabase* pDatabase);

    // Without the host's summary information the strings stay as they are. A
    // single field that cannot be read becomes empty.
    void read() override;
    // Without the host's summary information nothing is written.
    void write() override;

private:
    void readFields(const AcDbDatabaseSummaryInfo* pInfo);
    void readCustomEntries(const AcDbDatabaseSummaryInfo* pInfo);
    void writeFields(AcDbDatabaseSummaryInfo* pInfo);
    void writeCustomEntries(AcDbDatabaseSummaryInfo* pInfo);

    AcDbDatabase* m_pDatabase = nullptr;
};

}  // namespace Tesk
