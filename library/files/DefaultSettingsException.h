#pragma once

// What can go wrong with a settings file, where known with file and line.

#include "library/diagnostics/ExceptionBase.h"

#include <cstdint>

namespace Tesk {

class CDefaultSettingsException : public CExceptionBase {
public:
    enum Code : uint32_t {
        errorOpening = 0,
        errorWriting = 1,
        errorTokenising = 2,
        errorInvalidSection = 3,
        errorInvalidKey = 4,
        errorRemoveDisallowed = 5,
        errorUnknown = 6
    };
    static constexpr uint32_t kNoLine = 0xFFFFFFFF;

    explicit CDefaultSettingsException(uint32_t uCode, const char* sExtraText = "")
        : CExceptionBase(sExtraText), m_uCode(uCode)
    {
    }

    uint32_t getCode() const { return m_uCode; }
    void setCode(uint32_t uCode) { m_uCode = uCode; }
    const CString& getFileName() const { return m_sFileName; }
    void setFileName(const char* sFileName) { m_sFileName = sFileName; }
    uint32_t getLine() const { return m_uLine; }  // from 1; kNoLine when not known
    void setLine(uint32_t uLine) { m_uLine = uLine; }

    // "Error (<<file>> @ line n) : Tokenising error." and the like. A code
    // without a message leaves the beginning alone and gives false.
    bool getErrorText(CString& sText) const override;

private:
    uint32_t m_uCode;
    CString m_sFileName;
    uint32_t m_uLine = kNoLine;
};

}  // namespace Tesk
