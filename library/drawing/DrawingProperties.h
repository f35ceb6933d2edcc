#pragma once

// A copy of a drawing's summary information: eight fields, and custom properties.

#include "library/diagnostics/Prerelease.h"
#include "mfc/afx.h"

#include <map>

namespace Tesk {

class CDrawingProperties {
public:
    virtual ~CDrawingProperties() = default;
    CDrawingProperties(const CDrawingProperties&) = default;
    CDrawingProperties& operator=(const CDrawingProperties&) = default;

    // Replaces the contents by the drawing's.
    virtual void read() = 0;
    // Replaces the drawing's by the contents; custom properties go in key order.
    virtual void write() = 0;

    // A read has been carried out, with or without success.
    bool isValid() const { return m_bValid; }

    // For all of these a read must have been carried out. Changes reach the
    // drawing with write().
    CString& getHyperLink() { return checked(m_sHyperLink); }
    CString& getTitle() { return checked(m_sTitle); }
    CString& getSubject() { return checked(m_sSubject); }
    CString& getAuthor() { return checked(m_sAuthor); }
    CString& getComments() { return checked(m_sComments); }
    CString& getKeywords() { return checked(m_sKeywords); }
    CString& getLastSavedBy() { return checked(m_sLastSavedBy); }
    CString& getRevisionNumber() { return checked(m_sRevisionNumber); }
    // Key to value, by the bytes of the keys.
    std::map<CString, CString>& getCustomEntries() { return checked(m_mapCustomEntries); }
    // The number that the drawing reported; more than the map holds when keys repeat.
    int getNumberOfCustomEntries() { return checked(m_iNumberOfCustomEntries); }

protected:
    CDrawingProperties() = default;

    bool m_bValid = false;
    CString m_sHyperLink;
    CString m_sTitle;
    CString m_sSubject;
    CString m_sAuthor;
    CString m_sComments;
    CString m_sKeywords;
    CString m_sLastSavedBy;
    CString m_sRevisionNumber;
    int m_iNumberOfCustomEntries = 0;
    std::map<CString, CString> m_mapCustomEntries;

private:
    template <class Field>
    Field& checked(Field& field)
    {
        TESK_ASSERT(m_bValid);
        return field;
    }
};

}  // namespace Tesk
