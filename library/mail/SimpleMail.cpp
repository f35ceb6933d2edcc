#include "library/mail/SimpleMail.h"

#include "library/registry/Registry.h"
#include "library/system/SystemLibrary.h"

#include <mapi.h>

#include <vector>

namespace Tesk::Mail {

namespace {

constexpr const char* kMailClients = "Software\\Clients\\Mail";

// The user's choice goes before the machine's.
CString defaultProgram()
{
    CString sName;
    for (const HKEY hkRoot : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
        if (sName.IsEmpty())
            Registry::GetValue(hkRoot, kMailClients, "", sName);
    return sName;
}

// Mail programs are known to change it, and it is the host's.
class CCurrentFolder {
public:
    CCurrentFolder() : m_vPath(::GetCurrentDirectoryA(0, nullptr) + 1)
    {
        ::GetCurrentDirectoryA(static_cast<DWORD>(m_vPath.size()), m_vPath.data());
    }
    CCurrentFolder(const CCurrentFolder&) = delete;
    CCurrentFolder& operator=(const CCurrentFolder&) = delete;
    ~CCurrentFolder() { ::SetCurrentDirectoryA(m_vPath.data()); }

private:
    std::vector<char> m_vPath;
};

// The structures want writable text, and write none.
char* text(const CString& sText) { return const_cast<char*>(sText.GetString()); }

ULONG send(LPMAPISENDMAIL pSendMail, HWND hOwner, const CMessage& message)
{
    CString sRecipient = "SMTP:" + message.m_sAddress;
    MapiRecipDesc recipient = {};
    recipient.ulRecipClass = MAPI_TO;
    recipient.lpszName = text(message.m_sAddress);
    recipient.lpszAddress = text(sRecipient);

    MapiFileDesc file = {};
    file.nPosition = static_cast<ULONG>(-1);  // not within the text
    file.lpszPathName = text(message.m_sAttachment);

    MapiMessage mail = {};
    mail.lpszSubject = text(message.m_sSubject);
    mail.lpszNoteText = text(message.m_sText);
    mail.nRecipCount = 1;
    mail.lpRecips = &recipient;
    mail.nFileCount = message.m_sAttachment.IsEmpty() ? 0 : 1;
    mail.lpFiles = mail.nFileCount != 0 ? &file : nullptr;
    return pSendMail(0, reinterpret_cast<ULONG_PTR>(hOwner), &mail, MAPI_DIALOG | MAPI_LOGON_UI, 0);
}

}  // namespace

bool hasProgram()
{
    const CString sProgram = defaultProgram();
    if (sProgram.IsEmpty())
        return false;
    // The last one stands for a library that the installer service puts in place.
    CString sLibrary;
    for (const char* sValue : {"DLLPath", "DLLPathEx", "MSIComponentID"})
        if (Registry::GetValue(HKEY_LOCAL_MACHINE, kMailClients + ("\\" + sProgram), sValue, sLibrary) &&
            !sLibrary.IsEmpty())
            return true;
    return false;
}

Result compose(HWND hOwner, const CMessage& message)
{
    // Asked first: without a program the system would show a message of its own.
    if (!hasProgram())
        return Result::noProgram;
    const CCurrentFolder folder;
    const UniqueModule mapi = loadSystemLibrary("mapi32.dll");
    if (!mapi)
        return Result::noProgram;
    // By way of void*, for the types of the functions differ.
    const auto pSendMail =
        reinterpret_cast<LPMAPISENDMAIL>(reinterpret_cast<void*>(::GetProcAddress(mapi.get(), "MAPISendMail")));
    if (pSendMail == nullptr)
        return Result::noProgram;

    const ULONG code = send(pSendMail, hOwner, message);
    // It may have left the window disabled, or behind others.
    ::EnableWindow(hOwner, TRUE);
    ::SetActiveWindow(hOwner);
    if (code == SUCCESS_SUCCESS || code == MAPI_E_USER_ABORT)
        return Result::done;
    return code == MAPI_E_NOT_SUPPORTED ? Result::noProgram : Result::failed;
}

}  // namespace Tesk::Mail
