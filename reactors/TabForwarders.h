#pragma once

// How the reactors reach the tab strip: calls on the module's one tab window, which must
// exist. The module defines them.

class AcApDocument;

// Appends a tab unless the document has one; the frame is laid out again when the
// number of tabs is at the edge of the strip's being shown.
void tabsAddDocument(AcApDocument* pDocument);
// Removes the document's tab, if any; lays out as tabsAddDocument does.
void tabsRemoveDocument(AcApDocument* pDocument);
// Selects the document's tab, if any.
void tabsActivateDocument(AcApDocument* pDocument);
// Refreshes the tab's text and tooltip after a change of state or file name.
void tabsUpdateDocumentModified(AcApDocument* pDocument);
