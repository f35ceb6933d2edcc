#include "additions/HelpBox.h"

#include "additions/OptInText.h"
#include "additions/resource.h"
#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"
#include "library/diagnostics/VersionBlock.h"
#include "library/files/Explorer.h"
#include "library/files/FileSearch.h"
#include "library/files/Locator.h"
#include "library/files/SupportFileLocator.h"
#include "library/mail/SimpleMail.h"
#include "library/text/StringView.h"
#include "settings/MDITabSettings.h"
#include "settings/ResourceScope.h"

namespace {

constexpr const char* kNewLine = "\r\n";
constexpr const char* kIndent = "    ";

CString productLabel()
{
    return Tesk::CVersionBlock::getCompanyName() + " " + Tesk::CVersionBlock::getInternalName() + " " +
           Tesk::CVersionBlock::getFileVersion();
}

CString logFile() { return Tesk::getLocation(Tesk::LOCATION_FILE_DIAGNOSTICS_LOG); }

// As they were loaded.
CString textFiles(const CString& sFilename)
{
    CString sLines;
    for (const CTabsDefaultSettings::Copy& copy : CMDITabSettings::getDefaultSettings(sFilename)->getCopies()) {
        sLines += kIndent + copy.sPath + kNewLine;
        if (!copy.sReason.IsEmpty())
            sLines += CString(kIndent) + kIndent + "left out: " + copy.sReason + kNewLine;
    }
    return sLines;
}

CString titleBlockFiles(const CString& sFilename)
{
    CString sLines;
    for (const Tesk::Layer eLayer : Tesk::kTitleBlockLayers) {
        const CString sFile = Tesk::getTitleBlockFile(eLayer, sFilename);
        if (!sFile.IsEmpty() && Tesk::fileExists(sFile))
            sLines = kIndent + sFile + kNewLine + sLines;
    }
    return sLines;
}

// A mail address alone, or empty.
CString mailAddress(const CString& sText)
{
    constexpr const char* kScheme = "mailto:";
    constexpr int kLength = 7;
    const CString sTarget = CHyperLink::getTarget(sText);
    return sTarget.Left(kLength).CompareNoCase(kScheme) == 0 ? sTarget.Mid(kLength) : CString();
}

}  // namespace

BEGIN_MESSAGE_MAP(CHelpBox, CDialog)
    ON_COMMAND(IDC_MAIL_LOG, &ThisClass::OnMailLog)
END_MESSAGE_MAP()

CHelpBox::CHelpBox(const char* sFilename)
    : CDialog(IDD_HELP),
      m_sFilename(sFilename),
      m_sSupportAddress(mailAddress(getOptInText(sFilename, "SupportAddress")))
{
}

CString CHelpBox::describe() const
{
    const CString sLog = logFile();
    return "Product: " + productLabel() + " (" + Tesk::CVersionBlock::getProductName() + ")" + kNewLine +
           "Module: " + Tesk::getLocation(Tesk::LOCATION_FILE_MODULE) + kNewLine + "Log: " + sLog +
           (Tesk::fileExists(sLog)   ? ""
            : Tesk::isTraceEnabled() ? " (not there: it cannot be written)"
                                     : " (not there: debug mode is off)") +
           kNewLine + kNewLine + "Drawing: " + m_sFilename + kNewLine +
           "Its texts are from these files; each overrides those above it:" + kNewLine + textFiles(m_sFilename) +
           "Its title block is looked for in these, the lowest first:" + kNewLine + titleBlockFiles(m_sFilename);
}

INT_PTR CHelpBox::DoModal()
{
    const CResourceScope resources;
    return CDialog::DoModal();
}

BOOL CHelpBox::OnInitDialog()
{
    CDialog::OnInitDialog();
    Tesk::guarded("CHelpBox::OnInitDialog", [this] { fill(); });
    // Not on the text, which would show all of it selected.
    GetDlgItem(IDOK)->SetFocus();
    return FALSE;
}

void CHelpBox::fill()
{
    GetDlgItem(IDC_HELP_TEXT)->SetWindowText(describe());
    m_link.Attach(this, IDC_HELP_LINK, getOptInText(m_sFilename, "HelpAddress"));
    if (m_sSupportAddress.IsEmpty() || !Tesk::fileExists(logFile()))
        ::DestroyWindow(::GetDlgItem(m_hWnd, IDC_MAIL_LOG));
}

void CHelpBox::OnMailLog()
{
    Tesk::guarded("CHelpBox::OnMailLog", [this] { mailLog(); });
}

void CHelpBox::mailLog()
{
    const CString sLog = logFile();
    const CString sSubject = productLabel() + ": help wanted";
    const Tesk::Mail::CMessage message = {m_sSupportAddress, sSubject, describe(),
                                          Tesk::fileExists(sLog) ? sLog : CString()};
    const Tesk::Mail::Result result = Tesk::Mail::compose(m_hWnd, message);
    if (result == Tesk::Mail::Result::done)
        return;
    const CString sReason = result == Tesk::Mail::Result::noProgram
                                ? "There is no mail program on this computer that could be asked."
                                : "The mail program reports that the message was not sent.";
    const bool bShown = Tesk::fileExists(sLog) && Tesk::showInExplorer(m_hWnd, sLog);
    MessageBox(sReason + "\n\nPlease mail to " + m_sSupportAddress +
                   (bShown ? ", with the log from the folder that has been opened." : "."),
               productLabel(), MB_OK | MB_ICONINFORMATION);
}
