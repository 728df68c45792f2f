#include "fuzz_database.h"

#include <array>

#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::fuzz {

namespace {

constexpr std::size_t longestText = 40;
constexpr std::size_t mostRows = 4;
constexpr int errorEvery = 40;

struct TableColumns {
    const char* table;
    std::vector<std::string> columns;
};

const std::vector<TableColumns>& knownTables() {
    static const std::vector<TableColumns> tables{
        {"CatalogadorControles",
         {"ACoIDFormVista", "ACoKeyControl", "ACoCaption", "ACoLen", "ACoObligatorio",
          "ACoDuplicado", "ACoAccionF2", "ACoTipo", "ACoDatosCombo"}},
        {"Catalogador",
         {"ABMIDFormVista", "ABMTitulo", "ABMNombreVista", "ABMConsulta", "ABMColumnasNombre",
          "ABMColumnasAncho", "ABMColumnasAlineacion", "ABMAnchoForm", "ABMSQLValidarDuplicados",
          "ABMIDAyuda", "ABMValidarAcceso"}},
        {"genCodigoTexto",
         {"CTeCodigo", "CTeIDTipoVista", "CTeTextoCorto", "CTeTextoLargo", "CTeValor1", "CTeValor2",
          "CTeValor3", "CTeSiNo1", "Modificado"}},
        {"genListas", {"LisIDLista", "LisIDClave", "LisLista"}},
        {"genForaneas",
         {"ForTablaAControlar", "ForSQLForanea", "ForMensaje", "ForSQLUpdate", "ForOrdenSQL"}},
        {"genClasificacionesEntes", {"ClaCodigo", "ClaNombre"}},
        {"cceImpuestos", {"ImpPosTblReceta"}}};
    return tables;
}

/// A word that means something somewhere, or any text.
std::string anyText(FuzzedDataProvider& data) {
    static const std::array<const char*, 14> words{
        "",       "TextoCorto",      "TextoLargo", "Valor1",  "Valor2",
        "Valor3", "ValorSiNo",       "Select 1",   "1,a;2,b", "a|b|c",
        "100|0|", "[prmIdEmpresa]=", "2024-02-30", "1"};
    if (data.ConsumeBool()) return data.PickValueInArray(words);
    return data.ConsumeRandomLengthString(longestText);
}

class FuzzResultset : public rdoResultset {
  public:
    FuzzResultset(FuzzedDataProvider& data, const std::string& sql,
                  const std::map<std::string, Variant>& fixed)
        : data_(data) {
        std::vector<std::string> names;
        if (data.ConsumeIntegralInRange(0, 7) != 0)
            for (const TableColumns& known : knownTables())
                if (names.empty() && containsText(sql, known.table, Compare::text))
                    names = known.columns;
        if (names.empty())
            for (int left = data.ConsumeIntegralInRange(0, 3); left > 0; --left)
                names.push_back(anyText(data));
        for (std::string& name : names)
            columns_.push_back({std::move(name), data.ConsumeBool() ? bitColumnType : 12});
        const auto rows = data.ConsumeIntegralInRange<std::size_t>(0, mostRows);
        for (std::size_t row = 0; row < rows; ++row) {
            auto& values = rows_.emplace_back();
            for (const ColumnDescription& column : columns_) {
                const auto known = fixed.find(column.name);
                values.push_back(known != fixed.end() ? known->second : anyValue(data));
            }
        }
    }

    [[nodiscard]] bool atEnd() const override { return row_ >= rows_.size(); }
    void MoveNext() override {
        if (atEnd()) throw RuntimeError(error_number::noCurrentRow, "No current row");
        ++row_;
    }
    [[nodiscard]] int columnCount() const override { return static_cast<int>(columns_.size()); }
    [[nodiscard]] const ColumnDescription& column(int index) const override {
        return columns_[checked(index)];
    }
    [[nodiscard]] Variant value(int index) const override {
        const std::size_t column = checked(index);
        if (adding_) return Null{};
        if (atEnd()) throw RuntimeError(error_number::noCurrentRow, "No current row");
        return rows_[row_][column];
    }
    [[nodiscard]] Variant value(std::string_view name) const override {
        for (std::size_t i = 0; i < columns_.size(); ++i)
            if (equalText(columns_[i].name, name)) return value(static_cast<int>(i));
        throw RuntimeError(error_number::columnNotFound, "There is no column " + std::string(name));
    }
    void AddNew() override { adding_ = true; }
    void Edit() override {}
    void setValue(std::string_view, Variant) override {}
    void Update() override {
        adding_ = false;
        fail();
    }
    void Delete() override { fail(); }
    void Close() override {}

  private:
    [[nodiscard]] std::size_t checked(int index) const {
        if (index < 0 || index >= columnCount())
            throw RuntimeError(error_number::columnNotFound, "There is no such column");
        return static_cast<std::size_t>(index);
    }
    void fail() {
        if (data_.ConsumeIntegralInRange(0, 3) == 0)
            throw RuntimeError(error_number::rowChanged, "The row was changed");
    }

    FuzzedDataProvider& data_;
    std::vector<ColumnDescription> columns_;
    std::vector<std::vector<Variant>> rows_;
    std::size_t row_ = 0;
    bool adding_ = false;
};

}  // namespace

Variant anyValue(FuzzedDataProvider& data) {
    switch (data.ConsumeIntegralInRange(0, 9)) {
        case 0:
            return Null{};
        case 1:
            return data.ConsumeBool();
        case 2:
            return data.ConsumeIntegral<std::int64_t>();
        case 3:
            return data.ConsumeFloatingPoint<double>();
        case 4:
            return Decimal{std::to_string(data.ConsumeIntegral<std::int32_t>()) + ".50"};
        case 5:
            return Date{
                data.ConsumeIntegralInRange(1, 9999),       data.ConsumeIntegralInRange(1, 12),
                data.ConsumeIntegralInRange(1, 28),         data.ConsumeIntegralInRange(0, 23),
                data.ConsumeIntegralInRange(0, 59),         data.ConsumeIntegralInRange(0, 59),
                data.ConsumeIntegralInRange(0, 999'999'999)};
        case 6:
            return data.ConsumeIntegralInRange<std::int64_t>(-1, 5);
        default:
            return anyText(data);
    }
}

std::unique_ptr<rdoResultset> FuzzConnection::OpenResultset(const SqlText& sql, int /*type*/,
                                                            int /*lock*/) {
    // A loop that waits for the rows to end must not be kept waiting by bytes that have ended.
    if (data_.remaining_bytes() == 0 || data_.ConsumeIntegralInRange(0, errorEvery) == 1)
        throw RuntimeError(error_number::statementFailed, "42000: No such table");
    return std::make_unique<FuzzResultset>(data_, sql.text(), fixed_);
}

std::int64_t FuzzConnection::Execute(const SqlText& /*sql*/) {
    if (data_.ConsumeBool()) throw RuntimeError(error_number::statementFailed, "42000: No");
    return 1;
}

}  // namespace catalogador::fuzz
