#pragma once

/* Identifiers of the additions' resources; read by the resource compiler too. */

#define IDD_HELP 1001

#define IDC_HELP_TEXT 1010
#define IDC_HELP_LINK 1011
#define IDC_MAIL_LOG 1012
