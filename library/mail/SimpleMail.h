#pragma once

// Mail through the user's own mail program (Simple MAPI). Nothing is sent unless the
// person sends it: the program shows the message first.

#include "mfc/afx.h"

#include <windows.h>

namespace Tesk::Mail {

struct CMessage {
    CString m_sAddress;  // of the one recipient
    CString m_sSubject;
    CString m_sText;
    CString m_sAttachment;  // a file's full path; empty: none
};

enum class Result {
    done,       // handed to the mail program, or closed by the person
    noProgram,  // no mail program is registered, or it cannot be asked in this way
    failed      // the mail program says so
};

// A mail program is registered as the user's or the machine's default, in a way that
// another program can ask it.
bool hasProgram();

// Has the mail program show the message over the window, and returns when the person is
// done with it. The window is enabled and the current folder is as before afterwards.
Result compose(HWND hOwner, const CMessage& message);

}  // namespace Tesk::Mail
