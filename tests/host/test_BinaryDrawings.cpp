#include "dxf/Drawing.h"
#include "dxf/SummaryInfo.h"
#include "library/text/Ascii.h"
#include "tests/support/FolderFrom.h"
#include "tests/support/Hex.h"
#include "tests/support/TestFolder.h"

#include "dwg/BinaryDrawing.h"
#include "dwg/Bits.h"
#include "dwg/DxfWriter.h"
#include "dwg/Packing.h"

#include <cmath>
#include <filesystem>
#include <iterator>
#include <limits>
#include <map>
#include <random>

using dxf::Drawing;
using dxf::DxfFile;

namespace {

// The one of this ending in a folder, by name. The folder's own may have letters that the
// library writes in another encoding than it reads.
std::map<std::string, std::string> drawingsIn(const std::string& sFolder, const std::string& sEnding)
{
    std::map<std::string, std::string> drawings;
    for (const auto& entry : std::filesystem::directory_iterator(sFolder))
        if (entry.path().extension() == sEnding)
            drawings[entry.path().stem().string()] =
                CTestFolder::read(sFolder + "\\" + entry.path().filename().string());
    return drawings;
}

std::map<std::string, std::string> madeDrawings()
{
    const std::string sFolder = folderFrom("ZAVIK_MADE");
    REQUIRE_MESSAGE(!sFolder.empty(), "ZAVIK_MADE must name the folder of the drawings that the build makes");
    return drawingsIn(sFolder, ".dwg");
}

std::map<std::string, std::string> realDrawings(const char* sEnding)
{
    const std::string sFolder = folderFrom("ZAVIK_REAL");
    return sFolder.empty() ? std::map<std::string, std::string>() : drawingsIn(sFolder, sEnding);
}

std::string decoded(const Drawing& drawing, std::string_view value) { return drawing.file().encoding().decode(value); }

std::string valueOf(const AcDbStub& node, int code) { return decoded(*node.database, node.record->value(code)); }

std::string numberOf(const AcDbStub& node, int code) { return std::to_string(dxf::toInt(node.record->value(code))); }

// A line for each block: name, flags, path, and its references with where they stand.
std::string shown(Drawing& drawing)
{
    std::string sText;
    for (const dxf::BlockNode* pBlock : drawing.graph().blocks()) {
        sText += pBlock->name + " " + std::to_string(pBlock->flags & ~32) + (pBlock->layout ? " layout" : "") +
                 (pBlock->unloaded ? " unloaded" : "") + " " + pBlock->xrefPath +
                 (pBlock->record != nullptr ? numberOf(*pBlock, 20) : "0");
        for (const dxf::InsertNode* pInsert : pBlock->references) {
            sText += " <" + static_cast<dxf::BlockNode*>(pInsert->owner)->name + " " + valueOf(*pInsert, 8) +
                     (numberOf(*pInsert, 60) == "1" ? " invisible" : "");
            for (const AcDbStub* pAttribute : pInsert->attributes)
                sText += " " + valueOf(*pAttribute, 2) + "=" + valueOf(*pAttribute, 1) + numberOf(*pAttribute, 70);
            sText += ">";
        }
        sText += "\n";
    }
    return sText;
}

// The value of a tag that comes for the nth time; what DXF leaves out is what it mostly is.
std::string nthValue(const dxf::DxfRecord& record, int code, int n)
{
    dxf::TagReader tags = record.tags();
    for (dxf::DxfTag tag; dxf::nextTag(tags, tag);)
        if (tag.code == code && n-- == 0)
            return std::string(tag.value);
    return code == 230 || (code >= 41 && code <= 43) ? "1" : code >= 10 ? "0" : "";
}

// What is otherwise in the twin, a line each; counts the values.
std::string differences(Drawing& ours, Drawing& twin, int& count)
{
    std::string sAll, sLine;
    const std::string sTwin = "\n" + Tesk::upperAscii(shown(twin));
    for (std::istringstream lines(Tesk::upperAscii(shown(ours))); std::getline(lines, sLine); ++count)
        if (sTwin.find("\n" + sLine + "\n") == std::string::npos)
            sAll += sLine + "\n";
    std::map<std::string, int> missing;
    for (const dxf::DxfRecord* p = ours.file().section("BLOCKS"); p != nullptr; p = p->next()) {
        const AcDbStub* const pNode = ours.graph().find(dxf::toHandle(p->value(5)));
        if (pNode == nullptr || pNode->record != p || !pNode->isEntity())
            continue;
        const AcDbStub* const pTwin = twin.graph().find(pNode->handle);
        if (pTwin == nullptr || pTwin->record->type() != p->type()) {
            ++missing[std::string(p->type())];
            continue;
        }
        std::map<int, int> met;
        dxf::TagReader tags = p->tags();
        for (dxf::DxfTag tag; dxf::nextTag(tags, tag);) {
            const std::string sOther = nthValue(*pTwin->record, tag.code, met[tag.code]++);
            const double ourNumber = dxf::toDouble(tag.value);
            ++count;
            if (tag.code < 10 ? tag.code != 5 && !dxf::sameName(decoded(ours, tag.value), decoded(twin, sOther))
                              : std::abs(ourNumber - dxf::toDouble(sOther)) > 1e-9 * std::max(1.0, std::abs(ourNumber)))
                sAll += std::string(p->type()) + " " + std::string(p->value(5)) + " " + std::string(tag.text);
        }
    }
    for (const auto& [sType, entities] : missing)
        sAll += std::to_string(entities) + " " + sType + "\n";
    return sAll;
}

// Bits turned, bytes of another place, an end too early, numbers of the largest kind.
std::string damaged(std::string bytes, std::minstd_rand& random)
{
    const auto below = [&](std::size_t count) { return random() % count; };
    const auto place = [&] { return 6 + below(std::min<std::size_t>(bytes.size(), 0x200) - 6); };
    for (std::size_t left = 1 + below(8); left != 0; --left) {
        const std::size_t at = below(3) == 0 ? place() : 6 + below(bytes.size() - 6);
        const std::size_t length = std::min(1 + below(64), bytes.size() - at);
        switch (below(8)) {
        case 0:
            bytes.replace(at, length, bytes, below(bytes.size()), length);
            break;
        case 1:
            bytes.replace(at, std::min<std::size_t>(length, 4), std::min<std::size_t>(length, 4), '\xFF');
            break;
        case 2:
            if (below(8) == 0)
                bytes.resize(std::max<std::size_t>(at, 0x40));
            break;
        default:
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << below(8)));
        }
    }
    return bytes;
}

}  // namespace

TEST_CASE("a binary drawing of each container shows its blocks, references, attributes and properties")
{
    std::map<std::string, std::string> drawings = madeDrawings();
    REQUIRE(drawings.size() == 3);
    for (const auto& [sName, sBytes] : drawings) {
        CAPTURE(sName);
        Drawing drawing(DxfFile::parse(sBytes, sName), sName);
        CHECK(drawing.file().notRead() == "");
        CHECK(drawing.file().isBinary());
        CHECK((drawing.file().bytes() == sBytes));
        CHECK(shown(drawing) == "*Model_Space 0 layout 7\n"
                                "*Paper_Space 0 layout 7\n"
                                "BORDER 2 7 <*Paper_Space Frame TITLE=Plan^A1 AUTHOR=J\xF6r" +
                                    std::string(2101, 'g') +
                                    "1> <*Paper_Space Frame> <*Paper_Space5 Frame>\n"
                                    "GRID 4 ..\\grid.dwg7 <*Model_Space Frame>\n"
                                    "SITE 12 C:\\jobs\\site.dwg7 <*Model_Space Frame invisible>\n"
                                    "OLD 4 unloaded old.dwg7 <*Paper_Space5 Frame>\n"
                                    "GRID|LAMP 16 7\n"
                                    "*Paper_Space5 0 layout 7\n"
                                    "*D7 1 7\n"
                                    "*U9 1 7\n");
        const dxf::InsertNode* const pGrid = drawing.graph().block("GRID")->references.at(0);
        CHECK(numberOf(*pGrid, 42) + numberOf(*pGrid, 70) + numberOf(*pGrid, 71) == "232");
        const dxf::Summary summary = dxf::readSummary(drawing.file());
        std::string sSummary;
        for (const std::string& sField : summary.fields)
            sSummary += sField + "|";
        for (const auto& [sKey, sValue] : summary.custom)
            sSummary += sKey + ":" + sValue + "|";
        CHECK(sSummary == "Titel|s|\xC4|k|a\r\nb|me|3|http://x|Client:A = B|Empty:|");
    }
}

TEST_CASE("coded values are what they stand for; behind the end they are 0, and the reader has failed")
{
    using dwg::Bits;
    const struct {
        const char* hex;
        double (*read)(Bits&);
        double value;
    } rows[] = {
        {"0d 04 80", [](Bits& b) { return 1.0 * b.bs(); }, 0x1234},
        {"c0", [](Bits& b) { return 1.0 * b.bs(); }, 256},
        {"1e 15 8d 04 80", [](Bits& b) { return 1.0 * b.bl(); }, 0x12345678},
        {"00 00 00 00 00 00 01 10 00", [](Bits& b) { return b.bd(); }, 2.5},
        {"40 40 80 c1 00", [](Bits& b) { return b.dd(1.0); }, 0x1.0000004030201p0},
        {"81 41 80 40 80 c1 00", [](Bits& b) { return b.dd(1.0); }, 0x1.0060504030201p0},
        {"85 4b", [](Bits& b) { return 1.0 * static_cast<double>(b.mc()); }, -1413},
        {"31 f4 8d 00", [](Bits& b) { return 1.0 * b.ms(); }, 4650033},
        {"01 c0", [](Bits& b) { return 1.0 * b.ot(); }, 7},
        {"41 00", [](Bits& b) { return 1.0 * b.ot(); }, 500},
        {"83 00 80", [](Bits& b) { return 1.0 * b.ot(); }, 524},
        {"46 82 40", [](Bits& b) { return 1.0 * static_cast<double>(b.bll()); }, 0x1234},
    };
    for (const auto& row : rows) {
        CAPTURE(row.hex);
        const std::string sBytes = bytesOf(row.hex);
        Bits whole(sBytes);
        CHECK(row.read(whole) == row.value);
        CHECK_FALSE(whole.failed());
        Bits cut(std::string_view(sBytes).substr(0, sBytes.size() - 1));
        row.read(cut);
        CHECK(cut.failed());
    }
}

// As CAD systems wrote it, in three of the formats; of 2007 literals, whose order is shuffled, and a copy of each kind.
TEST_CASE("what is packed is unpacked, and never beyond what it says")
{
    const std::string sFar = "0123....x" + std::string(0x8005 - 9, '-');
    const std::string sPackedFar = std::string(129, '\0') + static_cast<char>(115) + sFar;
    const std::string sStart = bytesOf("20 00 00 05") + "bcdea";
    const struct {
        decltype(&dwg::unpack) unpack;
        std::string packed, expected;
    } rows[] = {
        {dwg::unpack, bytesOf("02 61 62 63 64 65 11 00 00"), "abcde"},
        {dwg::unpack, bytesOf("00 01") + std::string(19, 'A') + bytesOf("11 00 00"), std::string(19, 'A')},
        {dwg::unpack, bytesOf("01 61 62 63 64 4c 00 11 00 00"), "abcdabc"},
        {dwg::unpack, bytesOf("01 61 62 63 64 5d 00 7a 11 00 00"), "abcdabcdz"},
        {dwg::unpack, bytesOf("01 61 62 63 64 23 0c 00 11 00 00"), "abcdabcda"},
        {dwg::unpack, bytesOf("01 61 62 63 64 20 05 0e 00 78 79 11 00 00"),
         "abcdabcdabcdabcdabcdabcdabcdabcdabcdabcdabxy"},
        {dwg::unpack, bytesOf("01 61 62 63 64 a0 00 11 00 00"), "abcdddddddddd"},
        {dwg::unpack, sPackedFar + bytesOf("1b 04 00 11 00 00"), sFar + "....x"},
        {dwg::unpack, sPackedFar + bytesOf("18 05 04 00 11 00 00"), sFar + "....x" + std::string(9, '-')},
        {dwg::unpack2007, sStart, "abcde"},
        {dwg::unpack2007, sStart + bytesOf("34 00"), "abcdeabc"},
        {dwg::unpack2007, sStart + bytesOf("12 04 00"), "abcdeabcde"},
        {dwg::unpack2007, sStart + bytesOf("02 00 00"), "abcde" + std::string(21, 'e')},
        {dwg::unpack2007, sStart + bytesOf("02 00 80"), "abcde" + std::string(37, 'e')},
        {dwg::unpack2007, sStart + bytesOf("34 00 f2 00 00"), "abcdeabc" + std::string(21, 'c')},
        {dwg::unpack2007, bytesOf("0f ff 01 00") + std::string(279, 'a'), std::string(279, 'a')},
        {dwg::unpack2007, sStart + bytesOf("22 05 00 08"), "abcdeabcdeabcde"},
        {dwg::unpack2007, sStart + bytesOf("2a 00 00 00 00"), "abcde" + std::string(258, 'e')},
        {dwg::unpack2007, sStart + bytesOf("34 02") + "yx", "abcdeabcxy"},
        {dwg::unpack2007, sStart + bytesOf("34 00 00") + "12345678", "abcdeabc12345678"},
        {dwg::unpack2007, bytesOf("0f 28") + "abcdefghijklmnopqrstuvwxyz012345ABCDEFGHIJKLMNOPQRSTUVWXYZ67890",
         "yz012345qrstuvwxijklmnopabcdefgh06789STUVWXYZKLMNOPQRCDEFGHIJBA"},
    };
    for (const auto& row : rows) {
        CAPTURE(row.expected);
        CHECK(row.unpack(row.packed, 0x9000) == row.expected);
        CHECK_THROWS_AS(row.unpack(row.packed, row.expected.size() - 1), dwg::Unreadable);
        if (row.unpack == dwg::unpack)
            CHECK_THROWS_AS(dwg::unpack(row.packed.substr(0, row.packed.size() - 3), 0x9000), dwg::Unreadable);
    }
    CHECK_THROWS_AS(dwg::unpack(bytesOf("01 61 62 63 64 60 04 11 00 00"), 100), dwg::Unreadable);
    CHECK_THROWS_AS(dwg::unpack2007(sStart + bytesOf("35 00"), 100), dwg::Unreadable);
}

TEST_CASE("a damaged binary drawing is read in part, or said to be damaged")
{
    const char* const sSeed = std::getenv("TEST_SEED");  // repeats a run
    const unsigned seed = sSeed != nullptr ? static_cast<unsigned>(std::atoll(sSeed)) : ::GetTickCount();
    CAPTURE(seed);
    std::minstd_rand random(seed);
    std::vector<std::string> originals;
    for (const auto& drawings : {madeDrawings(), realDrawings(".dwg")})
        for (const auto& drawing : drawings)
            originals.push_back(drawing.second);
    const char* const sCount = std::getenv("ZAVIK_DAMAGES");
    int read = 0, refused = 0;
    for (int left = sCount != nullptr ? std::atoi(sCount) : 400; left > 0; --left) {
        const std::string& sOriginal = originals[random() % originals.size()];
        const std::string sBytes = damaged(sOriginal, random);
        Drawing drawing(DxfFile::parse(sBytes, "damaged.dwg"), "damaged.dwg");
        ++(drawing.file().notRead().empty() ? read : refused);
        CHECK((drawing.file().notRead().empty() || drawing.graph().blocks().size() == 2));
    }
    CHECK(read > 0);
    CHECK(refused > 0);
}

TEST_CASE("a tag is one line, with a sound number")
{
    dwg::DxfWriter out(932);
    out.text(1, "a^\r\n\x8F^^");  // behind the first byte of two, what looks like a mark is none
    out.number(40, std::numeric_limits<double>::infinity());
    out.angle(50, std::atan2(-1.0, 0.0));
    CHECK(out.take() == "1\na^ ^M^J\x8F^^ \n40\n0\n50\n270\n");
}

TEST_CASE("a binary drawing whose contents are not read says why, and has nothing in it")
{
    const std::string sMade = madeDrawings()["made_2004"];
    std::string sTable = madeDrawings()["made_2000"],
                sOverlapping = CTestFolder::read(folderFrom("ZAVIK_MADE") + "\\large");
    sTable[0x108] = '\xFF';  // its handle
    // Each object says that it goes on as far as it can.
    const auto byte = [&](std::size_t at) -> unsigned char& {
        return reinterpret_cast<unsigned char&>(sOverlapping[at]);
    };
    const std::size_t end = byte(0x1A) + std::size_t{256} * byte(0x1B);  // where their map begins
    for (std::size_t at = 0x100, next = 0; at < end; at = next) {
        next = at + byte(at) + std::size_t{256} * byte(at + 1) + 4;
        const std::size_t most = std::min<std::size_t>(0x7FFF, sOverlapping.size() - at - 2);
        byte(at) = most & 0xFF;
        byte(at + 1) = static_cast<unsigned char>(most >> 8);
    }
    const auto with = [&](std::size_t at, const std::string& sNew) {
        return std::string(sMade).replace(at, sNew.size(), sNew);
    };
    const struct {
        std::string bytes, reason;
    } rows[] = {
        {with(0, "AC1009"), "it is from before R13 (AC1009)"},
        {with(0, "AC1099"), "its version is not known (AC1099)"},
        {with(sMade.find("AcDb:AcDbObjects") - 4, "\1"), "it is protected by a password"},
        {with(0x80, "AcFs"), "damaged: the header of its pages"},
        {sTable, "damaged: its block table"},
        {sOverlapping, "damaged: it would grow without end"},
        {sMade.substr(0, 0x200), "damaged: it ends before its contents"},
    };
    for (const auto& row : rows) {
        Drawing drawing(DxfFile::parse(row.bytes, "P.dwg"), "P.dwg");
        CHECK(drawing.file().notRead() == row.reason);
        CHECK(drawing.graph().blocks().size() == 2);
        CHECK(drawing.graph().modelSpace().entities.empty());
        CHECK((drawing.file().bytes() == row.bytes));
    }
}

TEST_SUITE("foreign")
{
    TEST_CASE("binary drawings of CAD systems hold what their DXF twins hold")
    {
        // The twins were saved in sessions of their own: numbers of anonymous blocks are others, a
        // dynamic block shows another state; DXF of R13 has tables as references, and other handles in one block.
        const std::map<std::string, std::string> known = {
            {"example_2018", "*D3 1 0\n*T13 1 0\nDIMENSION 37e 2\n*D3\nDIMENSION 420 2\n*D5\nDIMENSION 430 2\n*D6\n"
                             "DIMENSION 43b 2\n*D7\nDIMENSION 453 2\n*D8\nDIMENSION 467 2\n*D9\n"
                             "DIMENSION 47f 2\n*D10\nDIMENSION 497 2\n*D11\nDIMENSION 4af 2\n*D12\n"},
            {"example_r13",
             "*PAPER_SPACE0 0 LAYOUT 0\n*T14 1 0\n*X15 1 0 <*MODEL_SPACE TAVOLO_3>\nINSERT 24f 2\n*X15\n1297 LINE\n"},
            {"example_r14", "*PAPER_SPACE0 0 LAYOUT 0\n*T14 1 0\n"},
            {"sample_AC1015", "2 INSERT\n1 MTEXT\n"},
            {"sample_AC1018", "2 INSERT\n1 MTEXT\n"},
        };
        const auto binaries = realDrawings(".dwg");
        if (binaries.empty()) {
            MESSAGE("NOT TESTED: the folder of binary drawings (ZAVIK_REAL) is not here");
            return;
        }
        int values = 0;
        for (const auto& [sName, sText] : realDrawings(".dxf")) {
            CAPTURE(sName);
            Drawing ours(DxfFile::parse(binaries.at(sName), sName), sName);
            Drawing twin(DxfFile::parse(sText, sName), sName);
            CHECK(ours.file().notRead() == "");
            const auto found = known.find(sName);
            CHECK(differences(ours, twin, values) == (found == known.end() ? "" : found->second));
        }
        CHECK(values > 70000);
    }
}
