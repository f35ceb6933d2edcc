#pragma once

// Every key of "MDITabs.ini" that the strip reads.

struct TextKey {
    const char* sName;
    bool bOptIn;   // asks for something that is not there without it
    bool bQuoted;  // quotes and apostrophes at its ends are dropped
};

inline constexpr TextKey kTextKeys[] = {
    {"PopupCloseText", false, false},      {"PopupSaveText", false, false},      {"PopupOptionsText", false, false},
    {"PopupXrefsText", false, false},      {"TooltipText", false, false},        {"DefaultTooltipText", false, false},
    {"TooltipTitle", false, false},        {"ModifiedText", false, true},        {"XrefsReadOnlyText", false, true},
    {"PopupCloseOthersText", true, false}, {"PopupCloseSavedText", true, false}, {"PopupCopyPathText", true, false},
    {"PopupOpenFolderText", true, false},  {"PopupDrawingsText", true, false},   {"SameNameText", true, true},
    {"PopupHelpText", true, false},        {"HelpAddress", true, false},         {"SupportAddress", true, false},
};
