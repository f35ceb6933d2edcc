#include "host/drawing/Database.h"

namespace host {

namespace {

// A new drawing, its tags as "code=value|"; "@" is the system's code page. The oldest
// format needs no more, and every program reads it.
constexpr char kBlank[] = "0=SECTION|2=HEADER|9=$ACADVER|1=AC1009|9=$DWGCODEPAGE|3=@|9=$INSBASE|10=0.0|20=0.0|30=0.0"
                          "|9=$LIMMIN|10=0.0|20=0.0|9=$LTSCALE|40=1.0|0=ENDSEC|0=SECTION|2=ENTITIES|0=ENDSEC|0=EOF|";

}  // namespace

std::unique_ptr<Database> Database::createNew()
{
    std::string sText;
    for (const char c : std::string_view(kBlank))
        sText += c == '|' || c == '=' ? "\r\n" : c == '@' ? DxfText::ansiName() : std::string(1, c);
    return std::unique_ptr<Database>(new Database(DxfFile::parse(sText, "a new drawing"), "", false));
}

}  // namespace host
