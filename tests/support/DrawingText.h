#pragma once

// A small drawing as text, put together by a test: header variables, blocks, inserts with
// attributes, external references; or tags as notes, "|code=value|code=value", where the
// value # is a handle of its own.

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

class DrawingText {
public:
    using Values = std::vector<std::pair<std::string, std::string>>;

    // A block's flags.
    enum Flags { Anonymous = 1, HasAttributes = 2, Xref = 4, Resolved = 32 };

    explicit DrawingText(const std::string& sVersion = "AC1018") : m_sVersion(sVersion) {}

    DrawingText& header(const std::string& sNotes) { return add(m_sHeader, sNotes); }
    DrawingText& blocks(const std::string& sNotes) { return add(m_sBlocks, sNotes); }
    DrawingText& entities(const std::string& sNotes) { return add(m_sEntities, sNotes); }

    DrawingText& variable(const std::string& sName, const std::string& sValue)
    {
        return header("|9=$" + sName + "|1=" + sValue);
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
            sContents += "|0=ATTDEF" + text("-") + "|3=" + sTag + "|2=" + sTag + "|70=0";
        return addBlock(sName, tags.empty() ? 0 : HasAttributes, sContents);
    }
    DrawingText& xref(const std::string& sName, const std::string& sPath, int flags = Xref | Resolved)
    {
        return addBlock(sName, flags, sPath);
    }

    // A reference in model space, with attributes of these tags and values.
    DrawingText& insert(const std::string& sBlock, const Values& values = {})
    {
        entities("|0=INSERT|5=#|8=0|2=" + sBlock + "|10=0.0|20=0.0|30=0.0" + (values.empty() ? "" : "|66=1"));
        for (const auto& [sTag, sValue] : values)
            entities("|0=ATTRIB" + text(sValue) + "|2=" + sTag + "|70=0");
        return entities(values.empty() ? "" : "|0=SEQEND|5=#|8=0");
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
        const std::string sNotes = "|0=SECTION|2=HEADER|9=$ACADVER|1=" + m_sVersion + "|9=$DWGCODEPAGE|3=ANSI_1252" +
                                   m_sHeader + "|0=ENDSEC|0=SECTION|2=BLOCKS" + m_sBlocks +
                                   "|0=ENDSEC|0=SECTION|2=ENTITIES" + m_sEntities + "|0=ENDSEC|0=EOF|";
        std::string sText;
        unsigned handle = 0x100;
        for (std::size_t start = 1, end; start < sNotes.size(); start = end + 1) {
            end = sNotes.find('|', start);
            const std::size_t equals = sNotes.find('=', start);
            std::string sValue = sNotes.substr(equals + 1, end - equals - 1);
            if (sValue == "#") {
                char sHandle[16];
                std::snprintf(sHandle, sizeof sHandle, "%X", ++handle);
                sValue = sHandle;
            }
            sText += sNotes.substr(start, equals - start) + "\r\n" + sValue + "\r\n";
        }
        return sText;
    }

private:
    static std::string text(const std::string& sText) { return "|5=#|8=0|10=0.0|20=0.0|30=0.0|40=2.5|1=" + sText; }
    DrawingText& add(std::string& sSection, const std::string& sNotes)
    {
        sSection += sNotes;
        return *this;
    }
    DrawingText& addBlock(const std::string& sName, int flags, const std::string& sPathOrContents)
    {
        return blocks("|0=BLOCK|5=#|8=0|2=" + sName + "|70=" + std::to_string(flags) +
                      "|10=0.0|20=0.0|30=0.0|3=" + sName + "|1=" + sPathOrContents + "|0=ENDBLK|5=#|8=0");
    }

    std::string m_sVersion, m_sHeader, m_sBlocks, m_sEntities;
};
