#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "platform/host.h"

namespace catalogador {

/// A rule about rows of other tables that refer to a record.
struct ForeignRule {
    /// Returns rows when the record is still referred to.
    std::string statement;
    /// Shown when it is; empty for none.
    std::string message;
    /// What to do to the referring rows; empty when they forbid the delete.
    std::string followUp;
};

/// The rules of the table whose record is being deleted. The last element is an empty sentinel, so
/// the upper bound is the number of rules; rebuilt by every CargarTablasForaneas.
extern std::vector<ForeignRule> gregForaneas;

/// Whether a record may be deleted. If so, the follow-up statements of the rules have run; if not,
/// the user has been shown why.
bool PermitirEliminar(Host& host, const std::string& tabla, std::int32_t id,
                      rdoConnection& conexion, const std::string& titulo, std::int32_t id1);

/// Loads the rules. False after an error, which was reported: a record whose rules are not known
/// must not be deleted.
bool CargarTablasForaneas(Host& host, const std::string& tabla, rdoConnection& conexion,
                          const std::string& titulo);

/// Whether a rule's statement can be run at all, tried with 0 for every id.
bool ProbarSQLForanea(Host& host, rdoConnection& conexion, const std::string& sentencia);

/// Whether the rule at `indice` allows the delete; asks the user where the rule says so. False
/// after an error, which was reported.
bool ChequearDatosTabla(Host& host, std::int16_t indice, std::int32_t id, rdoConnection& conexion,
                        const std::string& titulo, std::int32_t id1);

/// Runs the follow-up statement of the rule at `indice`. False after an error, which was reported.
bool EfectuarAccionTabla(Host& host, std::int16_t indice, std::int32_t id, rdoConnection& conexion,
                         const std::string& titulo);

}  // namespace catalogador
