#include "modules/modEliminar.h"

#include "modules/modErrores.h"
#include "modules/modIds.h"
#include "runtime/text.h"

namespace catalogador {

std::vector<ForeignRule> gregForaneas(1);

namespace {

/// How often the trial run of one rule is repeated before the rules count as not loadable.
constexpr int maximumTrials = 3;
/// More different numbers than this in the tokens of one statement are taken for a faulty rule.
constexpr int maximumTokenNumber = 1000;

std::size_t upperBound() {
    return gregForaneas.size() - 1;
}

bool withTrialIds(std::string& sql) {
    sql = replaceText(sql, "[prmID]", "0", Compare::text);
    for (int n = 0; containsText(sql, "[prmID", Compare::text); ++n) {
        if (n > maximumTokenNumber) return false;
        sql = replaceText(sql, "[prmID" + decimalText(n) + "]", "0", Compare::text);
    }
    return true;
}

void appendRule(Host& host, rdoResultset& row) {
    const auto text = [&](const char* column) { return host.utilities.TextoDe(row.value(column)); };
    gregForaneas.back() = {text("ForSQLForanea"), text("ForMensaje"), text("ForSQLUpdate")};
    gregForaneas.emplace_back();
}

/// The statement's first six characters in capitals, which decide what is done with it.
std::string verb(const std::string& sql) {
    return upperCase(leftCharacters(sql, 6));
}

}  // namespace

bool CargarTablasForaneas(Host& host, const std::string& tabla, rdoConnection& conexion,
                          const std::string& titulo) {
    return trapped(host, "CargarTablasForaneas", titulo, false, [&] {
        const PointerDuring hourglass(host.surface);
        gregForaneas.assign(1, {});
        const auto rows =
            conexion.OpenResultset("Select * From genForaneas Where ForTablaAControlar = '" +
                                   tabla + "' Order By ForOrdenSQL");
        int trials = 0;
        while (!rows->atEnd()) {
            const std::string sql = host.utilities.TextoDe(rows->value("ForSQLForanea"));
            if (ProbarSQLForanea(host, conexion, sql)) {
                appendRule(host, *rows);
                rows->MoveNext();
                trials = 0;
            } else if (++trials == maximumTrials) {
                // The trial's own error says what is wrong with the rule.
                const CurrentError cause = currentError();
                throw RuntimeError(cause.number, cause.description + " (" + sql + ")");
            }
        }
        rows->Close();
        return true;
    });
}

bool ProbarSQLForanea(Host& host, rdoConnection& conexion, const std::string& sentencia) {
    try {
        std::string sql = sentencia;
        if (!withTrialIds(sql))
            throw RuntimeError(error_number::invalidProcedureCall,
                               "A token of the rule has no number");
        const PointerDuring hourglass(host.surface);
        conexion.OpenResultset(sql)->Close();
        return true;
    } catch (const RuntimeError& error) {
        currentError() = {error.number(), error.description()};
        return false;
    }
}

bool ChequearDatosTabla(Host& host, std::int16_t indice, std::int32_t id, rdoConnection& conexion,
                        const std::string& titulo, std::int32_t id1) {
    return trapped(host, "ChequearDatosTabla", titulo, false, [&] {
        if (indice < 0 || static_cast<std::size_t>(indice) >= upperBound()) return false;
        const ForeignRule& rule = gregForaneas[static_cast<std::size_t>(indice)];
        std::string sql = replaceText(rule.statement, "[prmID]", decimalText(id), Compare::binary);
        sql = replaceText(sql, "[prmID1]", decimalText(id1), Compare::binary);
        bool found = false;
        {
            const PointerDuring hourglass(host.surface);
            const auto rows = conexion.OpenResultset(sql);
            found = !rows->atEnd();
            rows->Close();
        }
        if (!found) return true;
        if (rule.followUp.empty()) {
            host.messages.MostrarMensaje(rule.message, styleExclamation, titulo);
            return false;
        }
        return rule.message.empty() ||
               host.messages.MostrarMensaje(rule.message, styleQuestionDefaultNo, titulo) ==
                   answerYes;
    });
}

bool EfectuarAccionTabla(Host& host, std::int16_t indice, std::int32_t id, rdoConnection& conexion,
                         const std::string& titulo) {
    return trapped(host, "EfectuarAccionTabla", titulo, false, [&] {
        const ForeignRule& rule = gregForaneas.at(static_cast<std::size_t>(indice));
        if (rule.followUp.empty()) return true;
        const PointerDuring hourglass(host.surface);
        const std::string sql =
            replaceText(rule.followUp, "[prmID]", decimalText(id), Compare::binary);
        if (verb(sql) == "SELECT") {
            const auto rows = conexion.OpenToWrite(sql);
            for (; !rows->atEnd(); rows->MoveNext()) rows->Delete();
            rows->Close();
        } else if (verb(sql) == "UPDATE") {
            conexion.Execute(sql);
        }
        return true;
    });
}

bool PermitirEliminar(Host& host, const std::string& tabla, std::int32_t id,
                      rdoConnection& conexion, const std::string& titulo, std::int32_t id1) {
    return trapped(host, "PermitirEliminar", titulo, false, [&] {
        if (!CargarTablasForaneas(host, tabla, conexion, titulo)) return false;
        const auto rules = static_cast<std::int16_t>(upperBound());
        for (std::int16_t rule = 0; rule < rules; ++rule)
            if (!ChequearDatosTabla(host, rule, id, conexion, titulo, id1)) return false;
        for (std::int16_t rule = 0; rule < rules; ++rule)
            if (!EfectuarAccionTabla(host, rule, id, conexion, titulo)) return false;
        return true;
    });
}

}  // namespace catalogador
