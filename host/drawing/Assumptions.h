#pragma once

// Where nobody outside knows what the vendor's host does, each other reading of its
// documentation is a switch (/assume NAME). docs/host-api.md says what each means.

#include <string>

namespace host {

enum class Assumption {
    OpenedBeforeCreated,
    ActivatedBeforeOpened,
    DbmodAfterEdit,
    DbmodAfterSave,
    NameAfterSave,
    XrefsAfterOpen,
    StringsWait,
    StrangerIsCurrent,
    CancelUnsaid,
};

// From now on, in this process. False for an unknown name.
bool assume(const std::string& sName);
bool assumed(Assumption assumption);
// All names, a comma between them.
std::string assumptionNames();

}  // namespace host
