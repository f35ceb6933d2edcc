#pragma once

// What the document manager needs of the user interface: a window a document.

namespace host {

class Document;

class DocumentWindows {
public:
    virtual ~DocumentWindows() = default;

    // Makes the document's window, without activating another document's meanwhile.
    virtual void open(Document& document) = 0;
    virtual void close(Document& document) = 0;
    // Brings the window to the front.
    virtual void activate(Document& document) = 0;
    // The document's name or contents changed.
    virtual void refresh(Document& document) = 0;
};

}  // namespace host
