#pragma once

// A small drawing as text, put together by a test: header variables, blocks, inserts
// with attributes, external references; or, where a test is about the file itself, tags
// as notes: "|code=value|code=value".

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

class DrawingText {
public:
    using Values = std::vector<std::pair<std::string, std::string>>;

    // A block's flags.
    enum Flags { Anonymous = 1, HasAttributes = 2, Xref = 4, Resolved = 32 };

    explicit DrawingText(const std::string& sVersion = "AC1018") : m_sVersion(sVersion) {}

    DrawingText& header(const std::string& sNotes) { return addNotes(m_sHeader, sNotes); }
    DrawingText& blocks(const std::string& sNotes) { return addNotes(m_sBlocks, sNotes); }
    DrawingText& entities(const std::string& sNotes) { return addNotes(m_sEntities, sNotes); }

    DrawingText& variable(const std::string& sName, const std::string& sValue, const char* sCode = "1")
    {
        m_sHeader += tag("9", "$" + sName) + tag(sCode, sValue);
        return *this;
    }
    DrawingText& custom(const std::string& sKey, const std::string& sValue)
    {
        return variable("CUSTOMPROPERTYTAG", sKey).variable("CUSTOMPROPERTY", sValue);
    }

    // With attribute definitions of these tags.
    DrawingText& block(const std::string& sName, const std::vector<std::string>& tags = {})
    {
        std::string sContents;
        for (const std::string& sTag : tags)
            sContents += entity("ATTDEF") + text("-") + tag("3", sTag) + tag("2", sTag) + tag("70", "0");
        return addBlock(sName, tags.empty() ? 0 : HasAttributes, "", sContents);
    }
    DrawingText& xref(const std::string& sName, const std::string& sPath, int flags = Xref | Resolved)
    {
        return addBlock(sName, flags, sPath, "");
    }

    // A reference in model space, with attributes of these tags and values.
    DrawingText& insert(const std::string& sBlock, const Values& values = {})
    {
        m_sEntities += entity("INSERT") + (values.empty() ? "" : tag("66", "1")) + tag("2", sBlock) + point();
        for (const auto& [sTag, sValue] : values)
            m_sEntities += entity("ATTRIB") + text(sValue) + tag("2", sTag) + tag("70", "0");
        if (!values.empty())
            m_sEntities += entity("SEQEND");
        return *this;
    }
    // A border with an attribute definition for each value, and one insert of it.
    DrawingText& border(const std::string& sName, const Values& values)
    {
        std::vector<std::string> tags;
        for (const auto& value : values)
            tags.push_back(value.first);
        return block(sName, tags).insert(sName, values);
    }

    std::string str() const
    {
        return section("HEADER", tag("9", "$ACADVER") + tag("1", m_sVersion) + tag("9", "$DWGCODEPAGE") +
                                     tag("3", "ANSI_1252") + m_sHeader) +
               section("BLOCKS", m_sBlocks) + section("ENTITIES", m_sEntities) + tag("0", "EOF");
    }

private:
    static std::string tag(const std::string& sCode, const std::string& sValue)
    {
        return sCode + "\r\n" + sValue + "\r\n";
    }
    static std::string section(const std::string& sName, const std::string& sContents)
    {
        return tag("0", "SECTION") + tag("2", sName) + sContents + tag("0", "ENDSEC");
    }
    static std::string point() { return tag("10", "0.0") + tag("20", "0.0") + tag("30", "0.0"); }
    static std::string text(const std::string& sText) { return point() + tag("40", "2.5") + tag("1", sText); }

    DrawingText& addNotes(std::string& sSection, const std::string& sNotes)
    {
        for (std::size_t start = 1, end; start < sNotes.size(); start = end + 1) {
            end = std::min(sNotes.find('|', start), sNotes.size());
            const std::size_t equals = sNotes.find('=', start);
            sSection += tag(sNotes.substr(start, equals - start), sNotes.substr(equals + 1, end - equals - 1));
        }
        return *this;
    }

    std::string entity(const char* sType)
    {
        static const char digits[] = "0123456789ABCDEF";
        std::string sHandle;
        for (unsigned rest = ++m_handle; rest != 0; rest >>= 4)
            sHandle.insert(sHandle.begin(), digits[rest & 15]);
        return tag("0", sType) + tag("5", sHandle) + tag("8", "0");
    }
    DrawingText& addBlock(const std::string& sName, int flags, const std::string& sPath, const std::string& sContents)
    {
        m_sBlocks += entity("BLOCK") + tag("2", sName) + tag("70", std::to_string(flags)) + point() + tag("3", sName) +
                     tag("1", sPath) + sContents + entity("ENDBLK");
        return *this;
    }

    std::string m_sVersion;
    std::string m_sHeader;
    std::string m_sBlocks;
    std::string m_sEntities;
    unsigned m_handle = 0x100;
};
