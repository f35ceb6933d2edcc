#pragma once

// A drawing file as text, without loss: a list of records, each the exact bytes
// of one group 0 tag and of the tags that follow it. What is not edited is
// written back byte for byte; an edit replaces one record's text or links and
// unlinks whole records. Records keep their address as long as the file lives.

#include "dxf/DxfText.h"
#include "dxf/TagReader.h"

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dxf {

class DxfRecord {
public:
    // The value of the record's group 0 tag; empty for what stands before the first.
    std::string_view type() const { return m_type; }
    std::string_view text() const { return m_text; }
    TagReader tags() const { return TagReader(m_text); }

    // The first value with the group code, as it stands in the file; empty when
    // there is none. Tags between 102 braces and extended data are passed over.
    std::string_view value(int code) const;
    bool has(int code) const;

    DxfRecord* next() const { return m_next; }

private:
    friend class DxfFile;

    std::string_view m_text;
    std::string_view m_type;
    DxfRecord* m_next = nullptr;
    DxfRecord* m_previous = nullptr;
};

// A variable in the HEADER section, which is one record: a group 9 tag with the name ("$"
// included), then its values.
struct HeaderEntry {
    std::string_view name;
    // Name and values, byte for byte.
    std::string_view text;
    std::vector<DxfTag> values() const;
};

class DxfFile {
public:
    // Throws FileError with the line and the reason of what is wrong.
    static std::unique_ptr<DxfFile> read(const std::string& sPath);
    // The same for bytes at hand; the name is the one in error texts.
    static std::unique_ptr<DxfFile> parse(std::string sBytes, const std::string& sName);

    DxfFile(const DxfFile&) = delete;
    DxfFile& operator=(const DxfFile&) = delete;

    std::string bytes() const;

    // A binary drawing: its bytes stay those that were read, whatever becomes of its records.
    bool isBinary() const { return !m_binary.empty(); }
    // Why a binary drawing's contents are not read: its records are those of an empty one
    // then. Empty when they are read.
    const std::string& notRead() const { return m_sNotRead; }
    // The format's name, such as "AC1018".
    const std::string& version() const { return m_sVersion; }
    const DxfText& encoding() const { return m_encoding; }

    DxfRecord* first() const { return m_first; }
    // The SECTION record of the name; null when there is none.
    DxfRecord* section(std::string_view name) const;

    // Of all records, also those that are not linked any more.
    unsigned long long highestHandle() const;

    std::vector<HeaderEntry> headerEntries() const;
    // The first entry of the name; one without a name when there is none.
    HeaderEntry headerEntry(std::string_view name) const;

    // The text of a tag, written as this file writes its tags.
    std::string tag(int code, std::string_view value) const;
    // Gives a record another text; returns the one it had, which stays valid.
    std::string_view setText(DxfRecord& record, std::string_view text);
    // Text that lives as long as the file.
    std::string_view keep(std::string sText);
    // A record that is not linked yet.
    DxfRecord* create(std::string sText);
    void linkBefore(DxfRecord& record, DxfRecord& position);
    // The record keeps its neighbours, so that the last one unlinked can be put back.
    void unlink(DxfRecord& record);
    void relink(DxfRecord& record);

private:
    DxfFile() = default;
    void scan(const std::string& sName);
    void addRecord(std::string_view text, std::string_view type);

    std::string m_bytes;
    std::deque<DxfRecord> m_records;
    std::deque<std::string> m_keptText;
    DxfRecord* m_first = nullptr;
    DxfRecord* m_last = nullptr;
    std::string m_sVersion = "AC1009";
    std::string m_sLineEnd = "\r\n";
    DxfText m_encoding;
    std::string m_binary;
    std::string m_sNotRead;
};

// A record's text with the first tag of the code given another value, all else
// byte for byte; the tag is added at the end where there is none.
std::string withValue(const DxfFile& file, const DxfRecord& record, int code, std::string_view value);

}  // namespace dxf
