#pragma once

// Where a person finds help: what is installed, where its log is, which settings files
// apply to a drawing, the office's help address, and the log by mail.

#include "library/controls/HyperLink.h"
#include "mfc/afxwin.h"

class CHelpBox : public CDialog {
public:
    explicit CHelpBox(const char* sFilename);

    // With the template of the module.
    INT_PTR DoModal() override;

protected:
    BOOL OnInitDialog() override;

private:
    void fill();
    void mailLog();
    CString describe() const;
    // Has the mail program show what goes out; without one shows the log's folder.
    void OnMailLog();

    CString m_sFilename;
    CString m_sSupportAddress;  // name@place, or empty
    CHyperLink m_link;

    DECLARE_MESSAGE_MAP()
};
