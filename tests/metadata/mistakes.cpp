#include "mistakes.h"

#include <ostream>

namespace catalogador::test {

namespace {

const std::string records = "From genCodigoTexto Where CTeIDTipoVista = 41";

/// Sets a column of the view's row.
std::string view(const std::string& column, const std::string& value) {
    return "Update Catalogador Set " + column + " = " + value + " Where ABMIDFormVista = 41";
}

/// Sets a column of a field's row.
std::string field(const std::string& key, const std::string& column, const std::string& value) {
    return "Update CatalogadorControles Set " + column + " = " + value +
           " Where ACoIDFormVista = 41 And ACoKeyControl = '" + key + "'";
}

std::string listing(const std::string& value) {
    return view("ABMConsulta", "'" + value + "'");
}

std::string combo(const std::string& value) {
    return field("Valor2", "ACoDatosCombo", "'" + value + "'");
}

std::vector<Mistake> viewMistakes() {
    return {
        {"TitleNull", {view("ABMTitulo", "Null")}, "CAT013 error 41 Catalogador.ABMTitulo "},
        {"ListOfWidthsNull",
         {view("ABMColumnasAncho", "Null")},
         "CAT013 error 41 Catalogador.ABMColumnasAncho "},
        {"WidthOfTheFormNull",
         {view("ABMAnchoForm", "Null")},
         "CAT013 error 41 Catalogador.ABMAnchoForm "},
        {"TitleOfBlanks", {view("ABMTitulo", "'  '")}, "CAT014 warning 41 Catalogador.ABMTitulo "},
        {"NameEmpty",
         {view("ABMNombreVista", "''"),
          "Delete From genForaneas Where ForTablaAControlar = "
          "'Units'"},
         "CAT015 error 41 Catalogador.ABMNombreVista "},
        {"WidthOfTheFormNoNumber",
         {view("ABMAnchoForm", "'wide'")},
         "CAT016 error 41 Catalogador.ABMAnchoForm ",
         true},
        {"NameOfAnotherView",
         {"Insert Into Catalogador (ABMIDFormVista, ABMTitulo, ABMNombreVista, ABMAnchoForm, "
          "ABMConsulta, ABMColumnasNombre, ABMColumnasAncho, ABMColumnasAlineacion) Values (44, "
          "'More', 'Units', 6000, 'Select CTeCodigo, CTeTextoCorto From genCodigoTexto Where "
          "CTeIDTipoVista = 44', 'Unit', '3000', '1')",
          "Insert Into CatalogadorControles (ACoIDFormVista, ACoKeyControl, ACoCaption) Values "
          "(44, 'TextoCorto', '&Unit')"},
         "CAT017 warning 41 Catalogador.ABMNombreVista "},
        {"NameTooLongForASequence",
         {view("ABMNombreVista", "'" + std::string(101, 'u') + "'"),
          "Update genNumeradores Set NumNombre = '" + std::string(101, 'u') +
              "' Where NumNombre = 'Units'",
          "Update genForaneas Set ForTablaAControlar = '" + std::string(101, 'u') +
              "' Where ForTablaAControlar = 'Units'"},
         "CAT018 warning 41 Catalogador.ABMNombreVista ",
         true},
        {"HelpWithoutAPage",
         {view("ABMIDAyuda", "99")},
         "CAT019 warning 41 Catalogador.ABMIDAyuda "},
        {"TitleLongerThanItsColumn",
         {view("ABMTitulo", "'" + std::string(256, 't') + "'")},
         "CAT020 warning 41 Catalogador.ABMTitulo ",
         true},
        {"AccessRuleOfOneElement",
         {view("ABMValidarAcceso", "'Units'")},
         "CAT021 error 41 Catalogador.ABMValidarAcceso "},
        {"AccessRuleWithOtherSeparators",
         {view("ABMValidarAcceso", "'Units,M,0'")},
         "CAT021 error 41 Catalogador.ABMValidarAcceso "},
        {"AccessRuleWithoutARight",
         {view("ABMValidarAcceso", "'Units||0'")},
         "CAT022 warning 41 Catalogador.ABMValidarAcceso "},
        {"RightThatNobodyHas",
         {view("ABMValidarAcceso", "'Units|X|0'")},
         "CAT023 error 41 Catalogador.ABMValidarAcceso "},
        {"OptionThatNobodyHas",
         {view("ABMValidarAcceso", "'Measures|M|0'")},
         "CAT023 error 41 Catalogador.ABMValidarAcceso "},
        {"RightOfAUserWhoIsGone",
         {"Delete From accUsuarios"},
         "CAT023 error 41 Catalogador.ABMValidarAcceso "},
        {"CompanyOfTheAccessRuleInWords",
         {view("ABMValidarAcceso", "'Units|M|yes'")},
         "CAT024 warning 41 Catalogador.ABMValidarAcceso "},
        {"NoSequence",
         {"Delete From genNumeradores Where NumNombre = 'Units'"},
         "CAT100 error 41 genNumeradores. "},
        {"SequenceBehindTheRecords",
         {"Update genNumeradores Set NumUltimo = 2 Where NumNombre = 'Units'"},
         "CAT101 error 41 genNumeradores.NumUltimo "},
        {"SequenceAtItsEnd",
         {"Update genNumeradores Set NumUltimo = 2147483647 Where NumNombre = 'Units'"},
         "CAT102 error 41 genNumeradores.NumUltimo "},
    };
}

std::vector<Mistake> listingMistakes() {
    const std::string place = " 41 Catalogador.ABMConsulta ";
    const std::string four = "CTeTextoCorto, CTeTextoLargo, CTeValor1, CTeValor2 ";
    return {
        {"ListingEmpty", {listing("")}, "CAT030 error" + place},
        {"ListingOfATableThatIsNotThere",
         {listing("Select CTeCodigo, CTeTextoCorto From genCodigosTexto")},
         "CAT031 error" + place},
        {"ListingOfAColumnThatIsNotThere",
         {listing("Select CTeCodigo, CTeTexto " + records)},
         "CAT031 error" + place},
        {"ListingOfTwoStatements",
         {listing("Select CTeCodigo, " + four + records + "; Delete From genCodigoTexto")},
         "CAT031 error" + place},
        {"ListingThatDeletes", {listing("Delete From genCodigoTexto")}, "CAT032 error" + place},
        {"ListingOfAnotherView",
         {listing("Select CTeCodigo, " + four + "From genCodigoTexto Where CTeIDTipoVista = 42")},
         "CAT033 error" + place},
        {"ListingOfEveryView",
         {listing("Select CTeCodigo, " + four + "From genCodigoTexto")},
         "CAT033 error" + place},
        {"CodeOfTheJoinedView",
         {listing("Select b.CTeCodigo, u.CTeTextoCorto, u.CTeTextoLargo, 1, 2 From genCodigoTexto "
                  "u Join genCodigoTexto b On b.CTeIDTipoVista = 42 And b.CTeCodigo = u.CTeCodigo "
                  "Where u.CTeIDTipoVista = 41")},
         "CAT033 error" + place},
        {"ListingOfTwoViews",
         {listing("Select CTeCodigo, " + four +
                  "From genCodigoTexto Where CTeIDTipoVista In (41, "
                  "43, 42)"),
          "Update genCodigoTexto Set CTeCodigo = 5 Where CTeIDTipoVista = 42 And CTeCodigo = 3"},
         "CAT034 error" + place},
        {"ValueInThePlaceOfTheCode",
         {listing("Select CTeCodigo + 100, " + four + records)},
         "CAT034 error" + place},
        {"JoinThatDoublesRows",
         {listing("Select u.CTeCodigo, 1, 2, 3, 4 From genCodigoTexto u Join genCodigoTexto c On "
                  "c.CTeIDTipoVista = 42 Where u.CTeIDTipoVista = 41")},
         "CAT035 error" + place},
        {"TextInThePlaceOfTheCode",
         {listing("Select CTeTextoCorto, " + four + records)},
         "CAT036 error" + place},
        {"NullInThePlaceOfTheCode",
         {listing("Select CTeValor3, " + four + records)},
         "CAT036 error" + place},
        {"PlaceholderOfAnotherView",
         {listing("Select CTeCodigo, " + four + records + " And CTeCodigo In ([prm99])")},
         "CAT037 error" + place},
        {"PlaceholderMisspelt",
         {listing("Select CTeCodigo, " + four + records + " And CTeValor1 = [prmEmpresa]")},
         "CAT037 error" + place},
        {"JoinThatLeavesRowsOut",
         {listing("Select u.CTeCodigo, u.CTeTextoCorto, u.CTeTextoLargo, b.CTeTextoCorto, "
                  "u.CTeSiNo1 From genCodigoTexto u Join genCodigoTexto b On b.CTeIDTipoVista = 41 "
                  "And b.CTeCodigo = u.CTeValor3 Where u.CTeIDTipoVista = 41")},
         "CAT044 warning" + place},
        {"HeaderTooFew",
         {view("ABMColumnasNombre", "'Symbol|Unit|Base'")},
         "CAT038 warning 41 Catalogador.ABMColumnasNombre "},
        {"WidthTooMany",
         {view("ABMColumnasAncho", "'1000|4000|1000|700|500'")},
         "CAT039 warning 41 Catalogador.ABMColumnasAncho "},
        {"AlignmentTooFew",
         {view("ABMColumnasAlineacion", "'1|1|1'")},
         "CAT040 warning 41 Catalogador.ABMColumnasAlineacion "},
        {"WidthsWithCommas",
         {view("ABMColumnasAncho", "'1000,4000,1000,700'")},
         "CAT041 warning 41 Catalogador.ABMColumnasAncho "},
        {"WidthInWords",
         {view("ABMColumnasAncho", "'1000|wide|1000|700'")},
         "CAT041 warning 41 Catalogador.ABMColumnasAncho "},
        {"AlignmentInWords",
         {view("ABMColumnasAlineacion", "'1|left|1|4'")},
         "CAT042 warning 41 Catalogador.ABMColumnasAlineacion "},
        {"AlignmentBeyondNine",
         {view("ABMColumnasAlineacion", "'1|1|10|4'")},
         "CAT042 warning 41 Catalogador.ABMColumnasAlineacion "},
        {"HeaderWiderThanItsColumn",
         {view("ABMColumnasAncho", "'1000|4000|300|700'")},
         "CAT043 note 41 Catalogador.ABMColumnasAncho "},
    };
}

std::vector<Mistake> fieldMistakes() {
    const std::string table = " 41 CatalogadorControles.";
    return {
        {"NoField",
         {"Delete From CatalogadorControles Where ACoIDFormVista = 41",
          view("ABMSQLValidarDuplicados", "Null")},
         "CAT050 warning" + table + " "},
        {"FieldMisspelt",
         {field("Valor1", "ACoKeyControl", "'Valor4'")},
         "CAT051 warning" + table + "ACoKeyControl Valor4"},
        {"FieldInOtherCapitals",
         {field("Valor1", "ACoKeyControl", "'valor1'")},
         "CAT051 warning" + table + "ACoKeyControl valor1"},
        {"FieldTwice",
         {"Insert Into CatalogadorControles (ACoIDFormVista, ACoKeyControl, ACoCaption, ACoLen) "
          "Values (41, 'TextoCorto', '&Symbol:', 8)"},
         "CAT052 warning" + table + "ACoKeyControl TextoCorto"},
        {"KindSeven",
         {field("Valor1", "ACoTipo", "7")},
         "CAT053 warning" + table + "ACoTipo Valor1"},
        {"KindForgotten",
         {field("Valor1", "ACoTipo", "Null")},
         "CAT054 note" + table + "ACoTipo Valor1"},
        {"KindInWords",
         {field("Valor1", "ACoTipo", "'number'")},
         "CAT016 error" + table + "ACoTipo Valor1",
         true},
        {"LengthZero",
         {field("Valor1", "ACoLen", "0")},
         "CAT055 warning" + table + "ACoLen Valor1"},
        {"LengthNegative",
         {field("TextoCorto", "ACoLen", "-1")},
         "CAT055 warning" + table + "ACoLen TextoCorto"},
        {"LengthInWords",
         {field("TextoCorto", "ACoLen", "'long'")},
         "CAT016 error" + table + "ACoLen TextoCorto",
         true},
        {"LengthBeyondTheColumn",
         {field("TextoCorto", "ACoLen", "300")},
         "CAT056 error" + table + "ACoLen TextoCorto"},
        {"RecordsLongerThanTheField",
         {field("TextoLargo", "ACoLen", "8")},
         "CAT065 warning" + table + "ACoLen TextoLargo"},
        {"RequiredWithoutAKind",
         {field("Valor1", "ACoTipo", "Null"), field("Valor1", "ACoObligatorio", "1")},
         "CAT057 warning" + table + "ACoObligatorio Valor1"},
        {"CheckBoxRequired",
         {field("ValorSiNo", "ACoObligatorio", "1")},
         "CAT058 note" + table + "ACoObligatorio ValorSiNo"},
        {"FlagTwo",
         {field("TextoCorto", "ACoDuplicado", "2")},
         "CAT059 warning" + table + "ACoDuplicado TextoCorto"},
        {"FlagMinusOne",
         {field("TextoCorto", "ACoObligatorio", "-1")},
         "CAT016 error" + table + "ACoObligatorio TextoCorto"},
        {"FirstValueOfAViewPerCompany",
         {"Insert Into CatalogadorControles (ACoIDFormVista, ACoKeyControl, ACoCaption, ACoTipo) "
          "Values (43, 'Valor1', '&Rooms:', 1)"},
         "CAT060 error 43 CatalogadorControles.ACoKeyControl Valor1"},
        {"MnemonicsThatMeet",
         {field("Valor1", "ACoCaption", "'Deci&mals (&s):'"),
          field("Valor2", "ACoCaption", "'&mass:'")},
         "CAT061 warning" + table + "ACoCaption Valor2"},
        {"NoMnemonic",
         {field("Valor1", "ACoCaption", "'R && D:'")},
         "CAT062 note" + table + "ACoCaption Valor1"},
        {"NoCaption",
         {field("Valor1", "ACoCaption", "Null")},
         "CAT063 warning" + table + "ACoCaption Valor1"},
        {"FieldOfAViewThatIsNotThere",
         {"Insert Into CatalogadorControles (ACoIDFormVista, ACoKeyControl, ACoCaption) Values "
          "(411, 'TextoCorto', '&Unit')"},
         "CAT064 warning 411 CatalogadorControles.ACoIDFormVista TextoCorto"},
        {"F2ToAViewThatIsNotThere",
         {field("Valor3", "ACoAccionF2", "'14'")},
         "CAT066 error" + table + "ACoAccionF2 Valor3"},
        {"F2InWords",
         {field("Valor3", "ACoAccionF2", "'Units'")},
         "CAT067 warning" + table + "ACoAccionF2 Valor3"},
        {"F2BeyondEveryView",
         {field("Valor3", "ACoAccionF2", "'70000'")},
         "CAT016 error" + table + "ACoAccionF2 Valor3"},
        {"F2OnACheckBox",
         {field("ValorSiNo", "ACoAccionF2", "'42'")},
         "CAT068 warning" + table + "ACoAccionF2 ValorSiNo"},
        {"F2InWordsOnACheckBox",
         {field("ValorSiNo", "ACoAccionF2", "'[Abrir]'")},
         "CAT068 warning" + table + "ACoAccionF2 ValorSiNo"},
        {"CheckBoxThatStartsInWords",
         {field("ValorSiNo", "ACoDatosCombo", "'yes'")},
         "CAT069 warning" + table + "ACoDatosCombo ValorSiNo"},
        {"ListOfAFieldThatIsNoCombo",
         {field("Valor1", "ACoDatosCombo", "'1,One;2,Two'")},
         "CAT070 warning" + table + "ACoDatosCombo Valor1"},
        {"CaptionWiderThanTheForm",
         {field("ValorSiNo", "ACoCaption", "'S&I " + std::string(80, 'i') + "'")},
         "CAT071 note" + table + "ACoCaption ValorSiNo"},
    };
}

std::vector<Mistake> comboMistakes() {
    const std::string place = " 41 CatalogadorControles.ACoDatosCombo Valor2";
    return {
        {"ComboWithoutAList", {field("Valor2", "ACoDatosCombo", "Null")}, "CAT080 error" + place},
        {"BlankBeforeTheComboStatement",
         {combo(" Select CTeCodigo, CTeTextoCorto From genCodigoTexto")},
         "CAT081 error" + place},
        {"ComboOfATableThatIsNotThere",
         {combo("Select Code, Name From Kinds")},
         "CAT082 error" + place},
        {"ComboOfTwoStatements",
         {combo("Select CTeCodigo, CTeTextoCorto " + records + "; Select 1, 2")},
         "CAT082 error" + place},
        {"ComboThatWrites",
         {combo("Select CTeCodigo, CTeTextoCorto Into Kinds " + records)},
         "CAT083 error" + place},
        {"ComboOfOneColumn", {combo("Select CTeCodigo " + records)}, "CAT084 error" + place},
        {"ComboWithTextBeforeCode",
         {combo("Select CTeTextoCorto, CTeCodigo " + records)},
         "CAT085 error" + place},
        {"ComboWithANullCode",
         {combo("Select CTeValor3, CTeTextoCorto " + records)},
         "CAT085 error" + place},
        {"CodeBeyondThirtyTwoBits",
         {combo("1,Length;2,Mass;3000000000,Time")},
         "CAT085 error" + place},
        {"ComboWithANullText",
         {combo("Select CTeCodigo, CTeTextoLargo From genCodigoTexto Where CTeIDTipoVista = 42")},
         "CAT086 error" + place},
        {"EntryWithoutItsComma", {combo("1,Length;2;3,Time")}, "CAT087 error" + place},
        {"EntryWithoutACode", {combo("1,Length;2,Mass;Time")}, "CAT088 warning" + place},
        {"EntryWithACommaInItsText", {combo("1,Length, width;2,Mass")}, "CAT089 warning" + place},
        {"CodeTwiceInAList", {combo("1,Length;2,Mass;2,Time")}, "CAT090 warning" + place},
        {"StoredCodeWithoutAnEntry", {combo("1,Length;3,Time")}, "CAT091 error" + place},
        {"RequiredComboWithoutEntries",
         {combo("Select CTeCodigo, CTeTextoCorto From genCodigoTexto Where CTeIDTipoVista = 4"),
          "Update genCodigoTexto Set CTeValor2 = Null"},
         "CAT092 warning" + place},
        {"EntryWithoutAText", {combo("1,Length;2,Mass;3,")}, "CAT093 warning" + place},
        {"PlaceholderOfAListingInACombo",
         {combo("Select CTeCodigo, CTeTextoCorto " + records + " And CTeCodigo In ([prm99])")},
         "CAT094 error" + place},
    };
}

std::vector<Mistake> allMistakes() {
    std::vector<Mistake> all;
    for (auto part : {viewMistakes, listingMistakes, fieldMistakes, comboMistakes, ruleMistakes})
        for (Mistake& mistake : part()) all.push_back(std::move(mistake));
    return all;
}

}  // namespace

const std::vector<Mistake>& mistakes() {
    static const std::vector<Mistake> all = allMistakes();
    return all;
}

void PrintTo(const Mistake& mistake, std::ostream* out) {
    *out << mistake.name;
}

}  // namespace catalogador::test
