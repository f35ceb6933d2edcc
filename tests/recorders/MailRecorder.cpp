// A mail program that shows nothing, sends nothing, and writes down what it is asked to
// send into the file that MAIL_RECORD names. It answers with the code in MAIL_ANSWER and
// behaves as badly as such programs do.

#include <windows.h>
#include <mapi.h>

#include <cstdlib>
#include <fstream>
#include <string>

namespace {

std::string environment(const char* sName)
{
    char sValue[1024];
    const DWORD length = ::GetEnvironmentVariableA(sName, sValue, sizeof sValue);
    return std::string(sValue, length < sizeof sValue ? length : 0);
}

std::string contents(const char* sPath)
{
    std::ifstream file(sPath, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

}  // namespace

extern "C" ULONG WINAPI MAPISendMail(LHANDLE, ULONG_PTR window, lpMapiMessage mail, FLAGS flags, ULONG)
{
    std::ofstream record(environment("MAIL_RECORD"), std::ios::binary);
    record << "dialog: " << ((flags & MAPI_DIALOG) != 0)
           << "\nrecipients: " << (mail->lpRecips->ulRecipClass == MAPI_TO ? mail->nRecipCount : 0)
           << "\nto: " << mail->lpRecips->lpszName << " " << mail->lpRecips->lpszAddress
           << "\nsubject: " << mail->lpszSubject
           << "\nattachments: " << (mail->nFileCount > 0 && mail->lpFiles->nPosition != ~0ul ? 0 : mail->nFileCount)
           << "\n";
    if (mail->nFileCount > 0)
        record << "file: " << mail->lpFiles->lpszPathName << "\n" << contents(mail->lpFiles->lpszPathName);
    record << "\ntext: " << mail->lpszNoteText;
    ::SetCurrentDirectoryA("C:\\");
    ::EnableWindow(reinterpret_cast<HWND>(window), FALSE);
    return static_cast<ULONG>(std::atoi(environment("MAIL_ANSWER").c_str()));
}
