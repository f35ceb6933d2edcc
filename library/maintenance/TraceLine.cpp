#include "library/maintenance/TraceLine.h"

#include "library/diagnostics/LibraryState.h"
#include "library/maintenance/AssertionReport.h"
#include "library/maintenance/DiagnosticsLog.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"
#include "mfc/afx.h"
#include "objectarx/acutads.h"

#include <string>
#include <string_view>

namespace Tesk {

namespace {

// The longest piece that the command line takes, cut between characters.
std::string_view nextPiece(std::string_view sText)
{
    constexpr std::size_t kMost = 132;
    if (sText.size() <= kMost)
        return sText;
    const std::string_view sPiece = sText.substr(0, kMost);
    return MultiByte::CLeadBytes().isOpen(sPiece) ? sPiece.substr(0, kMost - 1) : sPiece;
}

void echoOnCommandLine(CString sText)
{
    sText.Trim("\n");
    sText += '\n';
    for (std::string_view sRest = viewOf(sText); !sRest.empty();) {
        const std::string_view sPiece = nextPiece(sRest);
        acutPrintf("%s", std::string(sPiece).c_str());
        sRest.remove_prefix(sPiece.size());
    }
}

}  // namespace

void writeTrace(const char* sMessage)
{
    const CString sLine = Detail::timeStamp() + G_sApplicationName + " : " + sMessage;
    Detail::sendToDebugger(sLine);
    CDiagnosticsLog::get().append(sLine);
    echoOnCommandLine(sLine);
}

}  // namespace Tesk
