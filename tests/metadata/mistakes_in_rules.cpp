#include "mistakes.h"

namespace catalogador::test {

namespace {

const std::string records = "From genCodigoTexto Where CTeIDTipoVista = 41";

/// Sets the view's rule about duplicates.
std::string duplicates(const std::string& value) {
    return "Update Catalogador Set ABMSQLValidarDuplicados = '" + value +
           "' Where ABMIDFormVista = 41";
}

/// Sets a column of the rule for deleting.
std::string rule(const std::string& column, const std::string& value) {
    return "Update genForaneas Set " + column + " = " + value +
           " Where ForTablaAControlar = 'Units'";
}

}  // namespace

std::vector<Mistake> ruleMistakes() {
    const std::string duplicateRule = " 41 Catalogador.ABMSQLValidarDuplicados ";
    const std::string same = "Select CTeCodigo " + records;
    const std::string other = same + " And CTeCodigo <> [Codigo] And ";
    const std::string table = " 41 genForaneas.";
    return {
        {"DuplicateRuleOfAColumnThatIsNotThere",
         {duplicates(other + "CTeTexto = ''[TextoLargo]''")},
         "CAT110 error" + duplicateRule},
        {"DuplicateRuleThatWrites",
         {duplicates("Delete " + records + " And CTeTextoLargo = ''[TextoLargo]''")},
         "CAT111 error" + duplicateRule},
        {"DuplicateRuleWithoutPlaceholders", {duplicates(same)}, "CAT112 error" + duplicateRule},
        {"DuplicateRuleWithoutTheCode",
         {duplicates(same + " And CTeTextoLargo = ''[TextoLargo]''")},
         "CAT113 error" + duplicateRule},
        {"DuplicateRuleThatFindsTheRecordItself",
         {duplicates(same + " And CTeCodigo = [Codigo] And CTeTextoLargo = ''[TextoLargo]''")},
         "CAT113 error" + duplicateRule},
        {"DuplicateRuleWithoutQuotes",
         {duplicates(other + "CTeTextoLargo = [TextoLargo]")},
         "CAT114 error" + duplicateRule},
        {"DuplicateRuleOnAFieldThatIsNotThere",
         {duplicates(other + "CTeValor1 = [Valor1]"),
          "Delete From CatalogadorControles Where ACoKeyControl = 'Valor1'"},
         "CAT115 warning" + duplicateRule},
        {"DuplicateRuleOfAnotherView",
         {duplicates("Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 42 And CTeCodigo "
                     "<> [Codigo] And CTeTextoLargo = ''[TextoLargo]''")},
         "CAT116 warning" + duplicateRule},
        {"RuleInOtherCapitals",
         {rule("ForTablaAControlar", "'UNITS'")},
         "CAT120 error" + table + "ForTablaAControlar 1"},
        {"RuleMisspelt",
         {rule("ForTablaAControlar", "'Unites'")},
         "CAT120 error" + table + "ForTablaAControlar 1"},
        {"RuleOfNothing",
         {rule("ForTablaAControlar", "'Currencies'")},
         "CAT121 warning - genForaneas.ForTablaAControlar 1"},
        {"RuleWithoutAStatement",
         {rule("ForSQLForanea", "Null")},
         "CAT122 error" + table + "ForSQLForanea 1"},
        {"RuleOfATableThatIsNotThere",
         {rule("ForSQLForanea", "'Select 1 From Items Where Unit = [prmID]'")},
         "CAT123 error" + table + "ForSQLForanea 1"},
        {"RuleThatWrites",
         {rule("ForSQLForanea", "'Delete From genCodigoTexto Where CTeValor3 = [prmID]'")},
         "CAT124 error" + table + "ForSQLForanea 1"},
        {"TokenInOtherCapitals",
         {rule("ForSQLForanea",
               "'Select CTeCodigo From genCodigoTexto Where CTeValor3 = [PrmId]'")},
         "CAT125 error" + table + "ForSQLForanea 1"},
        {"UserInAFollowUp",
         {rule("ForSQLUpdate",
               "'Update genCodigoTexto Set CTeValor3 = [prmID1] Where CTeValor3 = "
               "[prmID]'")},
         "CAT125 error" + table + "ForSQLUpdate 1"},
        {"RuleThatHoldsBackEveryRecord",
         {rule("ForSQLForanea", "'Select CTeCodigo From genCodigoTexto'")},
         "CAT126 error" + table + "ForSQLForanea 1"},
        {"BlankBeforeTheFollowUp",
         {rule("ForSQLUpdate",
               "' Update genCodigoTexto Set CTeValor3 = Null Where CTeValor3 = [prmID]'")},
         "CAT127 error" + table + "ForSQLUpdate 1"},
        {"FollowUpThatDeletes",
         {rule("ForSQLUpdate", "'Delete From genCodigoTexto Where CTeValor3 = [prmID]'")},
         "CAT127 error" + table + "ForSQLUpdate 1"},
        {"FollowUpOfAColumnThatIsNotThere",
         {rule("ForSQLUpdate",
               "'Update genCodigoTexto Set Base = Null Where CTeValor3 = [prmID]'")},
         "CAT128 error" + table + "ForSQLUpdate 1"},
        {"FollowUpOfEveryRecord",
         {rule("ForSQLUpdate", "'Update genCodigoTexto Set CTeValor3 = Null'")},
         "CAT129 error" + table + "ForSQLUpdate 1"},
        {"RuleWithoutAMessage",
         {rule("ForSQLUpdate", "''"), rule("ForMensaje", "Null")},
         "CAT130 warning" + table + "ForMensaje 1"},
        {"FollowUpOfSeveralTables",
         {rule("ForSQLUpdate",
               "'Select a.* From genCodigoTexto a Join genCodigoTexto b On "
               "a.CTeCodigo = b.CTeCodigo Where a.CTeValor3 = [prmID]'")},
         "CAT131 error" + table + "ForSQLUpdate 1"},
    };
}

}  // namespace catalogador::test
