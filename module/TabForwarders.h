#pragma once

// How the reactors reach the tab strip: calls on the module's one tab window, which must
// exist.

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
// A document has gone: of those that the user closes together the next is asked.
void tabsDocumentDestroyed();
// A drawing that was to be closed stays: so do those that were to follow it.
void tabsCloseAborted();
