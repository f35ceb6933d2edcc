#include "host/drawing/Database.h"

namespace host {

namespace {

// A new drawing, its tags as "code=value|"; "@" is the system's code page. Handles up to
// 3F are taken.
constexpr char kBlank[] =
    "0=SECTION|2=HEADER|9=$ACADVER|1=AC1018|9=$ACADMAINTVER|70=0|9=$DWGCODEPAGE|3=@"
    "|9=$INSBASE|10=0.0|20=0.0|30=0.0|9=$EXTMIN|10=0.0|20=0.0|30=0.0|9=$EXTMAX|10=0.0|20=0.0|30=0.0"
    "|9=$LIMMIN|10=0.0|20=0.0|9=$LIMMAX|10=420.0|20=297.0|9=$LTSCALE|40=1.0|9=$ATTMODE|70=1|9=$TEXTSIZE|40=2.5"
    "|9=$CLAYER|8=0|9=$CELTYPE|6=ByLayer|9=$CECOLOR|62=256|9=$LUNITS|70=2|9=$LUPREC|70=4|9=$TILEMODE|70=1"
    "|9=$INSUNITS|70=4|9=$HANDSEED|5=40|0=ENDSEC"
    "|0=SECTION|2=CLASSES|0=ENDSEC"
    "|0=SECTION|2=TABLES"
    "|0=TABLE|2=VPORT|5=8|330=0|100=AcDbSymbolTable|70=0|0=ENDTAB"
    "|0=TABLE|2=LTYPE|5=5|330=0|100=AcDbSymbolTable|70=3"
    "|0=LTYPE|5=14|330=5|100=AcDbSymbolTableRecord|100=AcDbLinetypeTableRecord|2=ByBlock|70=0|3=|72=65|73=0|40=0.0"
    "|0=LTYPE|5=15|330=5|100=AcDbSymbolTableRecord|100=AcDbLinetypeTableRecord|2=ByLayer|70=0|3=|72=65|73=0|40=0.0"
    "|0=LTYPE|5=16|330=5|100=AcDbSymbolTableRecord|100=AcDbLinetypeTableRecord|2=Continuous|70=0|3=Solid line"
    "|72=65|73=0|40=0.0|0=ENDTAB"
    "|0=TABLE|2=LAYER|5=2|330=0|100=AcDbSymbolTable|70=1"
    "|0=LAYER|5=10|330=2|100=AcDbSymbolTableRecord|100=AcDbLayerTableRecord|2=0|70=0|62=7|6=Continuous|0=ENDTAB"
    "|0=TABLE|2=STYLE|5=3|330=0|100=AcDbSymbolTable|70=1"
    "|0=STYLE|5=11|330=3|100=AcDbSymbolTableRecord|100=AcDbTextStyleTableRecord|2=Standard|70=0|40=0.0|41=1.0"
    "|50=0.0|71=0|42=2.5|3=txt|4=|0=ENDTAB"
    "|0=TABLE|2=VIEW|5=6|330=0|100=AcDbSymbolTable|70=0|0=ENDTAB"
    "|0=TABLE|2=UCS|5=7|330=0|100=AcDbSymbolTable|70=0|0=ENDTAB"
    "|0=TABLE|2=APPID|5=9|330=0|100=AcDbSymbolTable|70=1"
    "|0=APPID|5=12|330=9|100=AcDbSymbolTableRecord|100=AcDbRegAppTableRecord|2=ACAD|70=0|0=ENDTAB"
    "|0=TABLE|2=DIMSTYLE|5=A|330=0|100=AcDbSymbolTable|70=1|100=AcDbDimStyleTable"
    "|0=DIMSTYLE|105=27|330=A|100=AcDbSymbolTableRecord|100=AcDbDimStyleTableRecord|2=Standard|70=0|0=ENDTAB"
    "|0=TABLE|2=BLOCK_RECORD|5=1|330=0|100=AcDbSymbolTable|70=2"
    "|0=BLOCK_RECORD|5=1F|330=1|100=AcDbSymbolTableRecord|100=AcDbBlockTableRecord|2=*Model_Space|340=22"
    "|0=BLOCK_RECORD|5=1B|330=1|100=AcDbSymbolTableRecord|100=AcDbBlockTableRecord|2=*Paper_Space|340=1E"
    "|0=ENDTAB|0=ENDSEC"
    "|0=SECTION|2=BLOCKS"
    "|0=BLOCK|5=20|330=1F|100=AcDbEntity|8=0|100=AcDbBlockBegin|2=*Model_Space|70=0|10=0.0|20=0.0|30=0.0"
    "|3=*Model_Space|1=|0=ENDBLK|5=21|330=1F|100=AcDbEntity|8=0|100=AcDbBlockEnd"
    "|0=BLOCK|5=1C|330=1B|100=AcDbEntity|67=1|8=0|100=AcDbBlockBegin|2=*Paper_Space|70=0|10=0.0|20=0.0|30=0.0"
    "|3=*Paper_Space|1=|0=ENDBLK|5=1D|330=1B|100=AcDbEntity|67=1|8=0|100=AcDbBlockEnd|0=ENDSEC"
    "|0=SECTION|2=ENTITIES|0=ENDSEC"
    "|0=SECTION|2=OBJECTS"
    "|0=DICTIONARY|5=C|330=0|100=AcDbDictionary|281=1|3=ACAD_GROUP|350=D|3=ACAD_LAYOUT|350=1A"
    "|0=DICTIONARY|5=D|330=C|100=AcDbDictionary|281=1"
    "|0=DICTIONARY|5=1A|330=C|100=AcDbDictionary|281=1|3=Layout1|350=1E|3=Model|350=22"
    "|0=LAYOUT|5=22|330=1A|100=AcDbPlotSettings|1=|70=1024|100=AcDbLayout|1=Model|70=1|71=0|10=0.0|20=0.0|11=420.0"
    "|21=297.0|330=1F"
    "|0=LAYOUT|5=1E|330=1A|100=AcDbPlotSettings|1=|70=0|100=AcDbLayout|1=Layout1|70=1|71=1|10=0.0|20=0.0|11=420.0"
    "|21=297.0|330=1B"
    "|0=ENDSEC|0=EOF|";

}  // namespace

std::unique_ptr<Database> Database::createNew()
{
    std::string sText;
    for (const char c : std::string_view(kBlank))
        sText += c == '|' || c == '=' ? "\r\n" : c == '@' ? DxfText::ansiName() : std::string(1, c);
    return std::unique_ptr<Database>(new Database(DxfFile::parse(sText, "a new drawing"), "", false));
}

}  // namespace host
