#include "apps/view_notice.h"

#include <algorithm>
#include <ostream>

#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

/// The call that says more. A connection string may hold a password.
std::string checkCall(const Options& options) {
    const std::string connection =
        options.connectionString.empty() ? "--database " + options.database : "--connect …";
    return "'catalogador check " + connection + "'";
}

std::string onOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

}  // namespace

void tellWhenViewIsMissing(std::ostream& out, rdoConnection& connection, const Options& options) {
    rdoSession* session = connection.session();
    const std::int16_t view = options.activation.view;
    if (session == nullptr || view < 1) return;
    try {
        for (const char* table : {"CatalogadorControles", "genCodigoTexto"})
            static_cast<void>(
                session->query("Select 1 From " + std::string(table) + " Where 1 = 0"));
        const auto rows =
            session->query("Select 1 From Catalogador Where ABMIDFormVista = " + decimalText(view));
        if (rows.empty())
            out << "catalogador: There is no view " << view << " in the database; "
                << checkCall(options) << " says what is there and what is wrong\n";
    } catch (const RuntimeError& error) {
        out << "catalogador: The tables of the views cannot be read: "
            << onOneLine(error.description()) << "; " << checkCall(options)
            << " says what is missing\n";
    }
}

}  // namespace catalogador
