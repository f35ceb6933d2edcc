#pragma once

// Every key of "MDITabs.ini" that the strip reads.

// What a text is used as.
enum class TextKind {
    Caption,   // of a menu item
    Template,  // its tokens are expanded
    Plain,     // shown as it stands
    Address,
    MailAddress
};

struct TextKey {
    const char* sName;
    bool bOptIn;   // asks for something that is not there without it
    bool bQuoted;  // quotes and apostrophes at its ends are dropped
    TextKind eKind;
};

inline constexpr TextKey kTextKeys[] = {
    {"PopupCloseText", false, false, TextKind::Caption},     {"PopupSaveText", false, false, TextKind::Caption},
    {"PopupOptionsText", false, false, TextKind::Caption},   {"PopupXrefsText", false, false, TextKind::Caption},
    {"TooltipText", false, false, TextKind::Template},       {"DefaultTooltipText", false, false, TextKind::Plain},
    {"TooltipTitle", false, false, TextKind::Plain},         {"ModifiedText", false, true, TextKind::Plain},
    {"XrefsReadOnlyText", false, true, TextKind::Plain},     {"PopupCloseOthersText", true, false, TextKind::Caption},
    {"PopupCloseSavedText", true, false, TextKind::Caption}, {"PopupCopyPathText", true, false, TextKind::Caption},
    {"PopupOpenFolderText", true, false, TextKind::Caption}, {"PopupDrawingsText", true, false, TextKind::Caption},
    {"SameNameText", true, true, TextKind::Template},        {"PopupHelpText", true, false, TextKind::Caption},
    {"PopupSaveAllText", true, false, TextKind::Caption},    {"MaximumName", true, false, TextKind::Plain},
    {"ReadOnlyText", true, true, TextKind::Plain},           {"DrawingsOrder", true, false, TextKind::Plain},
    {"MenuCommand", true, false, TextKind::Plain},           {"HelpAddress", true, false, TextKind::Address},
    {"SupportAddress", true, false, TextKind::MailAddress},
};
