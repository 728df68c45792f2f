#include "adapters/services/access.h"

#include "adapters/services/service_queries.h"
#include "runtime/convert.h"

namespace catalogador::services {

namespace {

constexpr std::int32_t unknownUser = -1;

class TableAccess : public clsAccesos {
  public:
    explicit TableAccess(std::string userName) : userName_(std::move(userName)) {}

    std::string PermisosOpcion(rdoConnection& connection, const std::string&,
                               const std::string& option, std::int16_t company) override {
        const std::int32_t user = userId(connection);
        std::string rights;
        if (user == unknownUser) return rights;
        for (const auto& row :
             rowsWhere(connection,
                       {"accPermisos",
                        {"PerDerechos"},
                        {{"PerUsuID", user}, {"PerOpcion", option}, {"PerEmpresa", company}}}))
            rights += toTextOrEmpty(row.front(), Regional{});
        return rights;
    }

    void UsuarioActual(rdoConnection& connection, const std::string&, std::int32_t& user) override {
        user = userId(connection);
    }

  private:
    [[nodiscard]] std::int32_t userId(rdoConnection& connection) const {
        const auto rows =
            rowsWhere(connection, {"accUsuarios", {"UsuID"}, {{"UsuNombre", userName_}}});
        return rows.empty() ? unknownUser : toLong(rows.front().front(), Regional{});
    }

    std::string userName_;
};

}  // namespace

std::unique_ptr<clsAccesos> TableAccessLibrary::create() {
    return std::make_unique<TableAccess>(userName_);
}

}  // namespace catalogador::services
