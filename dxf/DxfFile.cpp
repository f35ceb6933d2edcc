#include "dxf/DxfFile.h"

#include "dwg/BinaryDrawing.h"
#include "dxf/FileError.h"
#include "library/system/Handles.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <new>
#include <utility>

namespace dxf {

namespace {

constexpr std::string_view kBinaryDxf = "AutoCAD Binary DXF";

std::size_t lineOf(std::string_view text, const char* pPosition)
{
    return static_cast<std::size_t>(std::count(text.data(), pPosition, '\n')) + 1;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isBinaryDrawing(std::string_view bytes)
{
    return bytes.size() >= 6 && bytes.starts_with("AC10") && isDigit(bytes[4]) && isDigit(bytes[5]);
}

// From before R9: "AC1.40", "AC2.10".
bool isOldDrawing(std::string_view bytes)
{
    return bytes.size() >= 6 && bytes.starts_with("AC") && isDigit(bytes[2]) && bytes[3] == '.' && isDigit(bytes[4]);
}

// Shows the header's entries one after the other, until one is wanted.
template <class Wants>
void seeEntries(const DxfRecord* pHeader, Wants wants)
{
    TagReader reader(pHeader != nullptr ? pHeader->text() : std::string_view());
    HeaderEntry entry;
    for (DxfTag tag; nextTag(reader, tag);) {
        if (tag.code != 9) {
            entry.text = {entry.text.data(), entry.text.size() + (entry.text.empty() ? 0 : tag.text.size())};
            continue;
        }
        if (!entry.text.empty() && wants(entry))
            return;
        entry = {trimmed(tag.value), tag.text};
    }
    if (!entry.text.empty())
        wants(entry);
}

}  // namespace

std::string_view DxfRecord::value(int code) const
{
    TagReader reader(m_text);
    bool inGroup = false;
    for (DxfTag tag; nextTag(reader, tag);) {
        if (tag.code == 102)
            inGroup = tag.value.find('{') != std::string_view::npos;
        else if (tag.code >= 1000)
            break;
        else if (tag.code == code && !inGroup)
            return tag.value;
    }
    return {};
}

bool DxfRecord::has(int code) const { return value(code).data() != nullptr; }

std::vector<DxfTag> HeaderEntry::values() const
{
    std::vector<DxfTag> tags;
    TagReader reader(text);
    DxfTag tag;
    for (nextTag(reader, tag); nextTag(reader, tag);)  // behind the name
        tags.push_back(tag);
    return tags;
}

std::unique_ptr<DxfFile> DxfFile::read(const std::string& sPath)
{
    if (sPath.size() >= MAX_PATH)
        throw FileError(sPath, 0, "the path is too long");
    const UniqueHandle file(CreateFileA(sPath.c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                        FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER size{};
    if (!file || !GetFileSizeEx(file.get(), &size)) {
        const DWORD error = GetLastError(), attributes = GetFileAttributesA(sPath.c_str());
        const bool folder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        throw FileError(sPath, 0, folder ? "a folder, not a file" : FileError::systemReason(error));
    }
    if (size.QuadPart > 0x3FFFFFFF)
        throw FileError(sPath, 0, "too large to be read");
    std::string sBytes(static_cast<std::size_t>(size.QuadPart), '\0');
    DWORD count = 0;
    if (!ReadFile(file.get(), sBytes.data(), static_cast<DWORD>(sBytes.size()), &count, nullptr))
        throw FileError(sPath, 0, FileError::systemReason(GetLastError()));
    sBytes.resize(count);
    return parse(std::move(sBytes), sPath);
}

std::unique_ptr<DxfFile> DxfFile::parse(std::string sBytes, const std::string& sName)
{
    std::unique_ptr<DxfFile> file;
    if (isBinaryDrawing(sBytes)) {
        std::string sText = "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n", sNotRead;
        try {
            sText = dwg::toText(sBytes);
        } catch (const dwg::Unreadable& error) {
            sNotRead = error.what();
        } catch (const std::bad_alloc&) {
            sNotRead = "it is too large";
        }
        file = parse(std::move(sText), sName);
        file->m_sNotRead = std::move(sNotRead);
        file->m_sVersion = sBytes.substr(0, 6);
        file->m_binary = std::move(sBytes);
        return file;
    }
    file.reset(new DxfFile);
    file->m_bytes = std::move(sBytes);
    file->scan(sName);
    const auto value = [&](std::string_view name, std::string_view otherwise) {
        const HeaderEntry entry = file->headerEntry(name);
        const std::vector<DxfTag> values = entry.values();
        return values.empty() ? otherwise : trimmed(values.front().value);
    };
    file->m_sVersion = value("$ACADVER", "AC1009");
    file->m_encoding = DxfText(file->m_sVersion, value("$DWGCODEPAGE", ""));
    return file;
}

void DxfFile::scan(const std::string& sName)
{
    const std::string_view bytes = m_bytes;
    const auto fail = [&](const char* pPosition, const std::string& sReason) -> void {
        throw FileError(sName, pPosition == nullptr ? 0 : lineOf(bytes, pPosition), sReason);
    };
    if (trimmed(bytes).empty())
        fail(nullptr, "the file is empty");
    if (bytes.starts_with(kBinaryDxf))
        fail(nullptr, "binary DXF cannot be read");
    if (isOldDrawing(bytes))
        fail(nullptr,
             "a binary drawing from before R9 (" + std::string(m_bytes.substr(0, 6).c_str()) + ") cannot be read");
    if (const std::size_t nul = std::strlen(m_bytes.c_str()); nul != bytes.size())
        fail(bytes.data() + nul, "NUL byte in the text");
    const std::size_t firstEnd = bytes.find('\n');
    m_sLineEnd = firstEnd != std::string_view::npos && firstEnd > 0 && bytes[firstEnd - 1] == '\r' ? "\r\n" : "\n";

    TagReader reader(bytes.substr(bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0));
    const char* pStart = bytes.data();
    std::string_view type;
    const auto flush = [&](const char* pEnd) {
        if (pEnd != pStart)
            addRecord({pStart, static_cast<std::size_t>(pEnd - pStart)}, type);
        pStart = pEnd;
    };
    bool open = false, any = false;
    std::string name;
    DxfTag tag;
    TagReader::Result result = reader.next(tag);
    for (; result == TagReader::Result::Tag; result = reader.next(tag)) {
        if (tag.code == 2 && open && name.empty())
            name = trimmed(tag.value);
        if (tag.code != 0)
            continue;
        const char* pTag = tag.text.data();
        flush(pTag);
        type = trimmed(tag.value);
        if (type == "SECTION") {
            if (open)
                fail(pTag, "SECTION inside section " + name);
            open = any = true;
            name.clear();
        } else if (type == "ENDSEC") {
            open = false;
        } else if (type == "EOF") {
            if (open)
                fail(pTag, "section " + name + " has no ENDSEC");
            break;
        }
    }
    if (result == TagReader::Result::BadCode)
        fail(reader.rest().data(), "group code is not a number");
    if (result == TagReader::Result::NoValue)
        fail(reader.rest().data(), "the file ends in the middle of a tag");
    if (open)
        fail(bytes.data() + bytes.size(), "the file ends inside section " + name);
    if (!any)
        fail(nullptr, "no SECTION in the file");
    flush(bytes.data() + bytes.size());
}

void DxfFile::addRecord(std::string_view text, std::string_view type)
{
    DxfRecord& record = m_records.emplace_back();
    record.m_text = text;
    record.m_type = type;
    record.m_previous = m_last;
    (m_last != nullptr ? m_last->m_next : m_first) = &record;
    m_last = &record;
}

std::vector<HeaderEntry> DxfFile::headerEntries() const
{
    std::vector<HeaderEntry> entries;
    seeEntries(section("HEADER"), [&entries](const HeaderEntry& entry) {
        entries.push_back(entry);
        return false;
    });
    return entries;
}

HeaderEntry DxfFile::headerEntry(std::string_view name) const
{
    HeaderEntry found;
    seeEntries(section("HEADER"), [name, &found](const HeaderEntry& entry) {
        if (sameName(entry.name, name))
            found = entry;
        return !found.text.empty();
    });
    return found;
}

unsigned long long DxfFile::highestHandle() const
{
    unsigned long long highest = 0;
    for (const DxfRecord& record : m_records)
        if (record.type() != "SECTION" && record.type() != "DIMSTYLE")
            highest = std::max(highest, toHandle(record.value(5)));
    return highest;
}

DxfRecord* DxfFile::section(std::string_view name) const
{
    for (DxfRecord* p = m_first; p != nullptr; p = p->next())
        if (p->type() == "SECTION" && trimmed(p->value(2)) == name)
            return p;
    return nullptr;
}

std::string DxfFile::tag(int code, std::string_view value) const
{
    char digits[16];
    std::snprintf(digits, sizeof digits, "%3d", code);
    return digits + m_sLineEnd + std::string(value) + m_sLineEnd;
}

std::string DxfFile::bytes() const
{
    if (isBinary())
        return m_binary;
    std::size_t size = 0;
    for (const DxfRecord* p = m_first; p != nullptr; p = p->next())
        size += p->text().size();
    std::string sBytes;
    sBytes.reserve(size);
    for (const DxfRecord* p = m_first; p != nullptr; p = p->next())
        sBytes += p->text();
    return sBytes;
}

std::string_view DxfFile::setText(DxfRecord& record, std::string_view text)
{
    return std::exchange(record.m_text, text);
}

std::string_view DxfFile::keep(std::string sText) { return m_keptText.emplace_back(std::move(sText)); }

DxfRecord* DxfFile::create(std::string sText)
{
    DxfRecord& record = m_records.emplace_back();
    record.m_text = keep(std::move(sText));
    TagReader reader(record.m_text);
    if (DxfTag tag; nextTag(reader, tag))
        record.m_type = trimmed(tag.value);
    return &record;
}

void DxfFile::linkBefore(DxfRecord& record, DxfRecord& position)
{
    record.m_next = &position;
    record.m_previous = position.m_previous;
    relink(record);
}

void DxfFile::unlink(DxfRecord& record)
{
    (record.m_previous != nullptr ? record.m_previous->m_next : m_first) = record.m_next;
    (record.m_next != nullptr ? record.m_next->m_previous : m_last) = record.m_previous;
}

void DxfFile::relink(DxfRecord& record)
{
    (record.m_previous != nullptr ? record.m_previous->m_next : m_first) = &record;
    (record.m_next != nullptr ? record.m_next->m_previous : m_last) = &record;
}

std::string withValue(const DxfFile& file, const DxfRecord& record, int code, std::string_view value)
{
    const std::string_view old = record.value(code);
    const std::string_view text = record.text();
    if (old.data() == nullptr)
        return std::string(text) + file.tag(code, value);
    const std::size_t at = static_cast<std::size_t>(old.data() - text.data());
    return std::string(text.substr(0, at)) + std::string(value) + std::string(text.substr(at + old.size()));
}

}  // namespace dxf
