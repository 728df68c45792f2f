#include <algorithm>
#include <optional>
#include <span>

#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr int leftCentred = 1;
/// More than any alignment code that there is.
constexpr double largestAlignment = 255;
constexpr std::int32_t listStoppedMessage = 119;
constexpr std::int32_t readAgainMessage = 122;

/// Whether the same listing may succeed a moment later.
bool mayPass(ErrorCause cause) {
    return cause == ErrorCause::locked || cause == ErrorCause::conflict ||
           cause == ErrorCause::lost;
}

/// Draws the grid again when the load ends, however it ends.
class RedrawOff {
  public:
    explicit RedrawOff(RecordGrid& grid) : grid_(grid) { grid_.setRedraw(false); }
    ~RedrawOff() { grid_.setRedraw(true); }
    RedrawOff(const RedrawOff&) = delete;
    RedrawOff& operator=(const RedrawOff&) = delete;

  private:
    RecordGrid& grid_;
};

std::size_t at(int column) {
    return static_cast<std::size_t>(column);
}

/// nullopt for a text that is neither yes nor no.
std::optional<bool> yesOrNo(std::string_view text, const Regional& regional) {
    if (text == "True") return true;
    if (text == "False") return false;
    try {
        return toBoolean(Variant(text), regional);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

/// What every cell of the grid is shown as.
std::span<const std::string_view> trimmed(std::span<std::string_view> texts) {
    for (std::string_view& text : texts)
        if (text.data() != nullptr) text = trim(text);
    return texts;
}

}  // namespace

/// A column of the listing and the cells of it that were read last.
struct frmCatalogador::ListColumn {
    bool bit = false;
    TextBlock cells;
    /// What the cells of a bit column say, up to one that cannot be read.
    std::vector<CheckState> checks;
};

/// While it lives the user sees how far the load is, and can stop it.
class frmCatalogador::Loading {
  public:
    explicit Loading(frmCatalogador& form) : form_(form) {
        form_.loadStopped_ = false;
        if (form_.mrdoCBase != nullptr)
            form_.mrdoCBase->setWaiting([this] { return form_.keepLoading(); });
    }
    ~Loading() {
        if (form_.mrdoCBase != nullptr) form_.mrdoCBase->setWaiting(nullptr);
        form_.surface().progress(form_, 0, 0);
    }
    Loading(const Loading&) = delete;
    Loading& operator=(const Loading&) = delete;

  private:
    frmCatalogador& form_;
};

void frmCatalogador::CargarGrilla() {
    trap("CargarGrilla", [&] {
        try {
            loadList();
        } catch (const RuntimeError& error) {
            if (!browsing() || !mayPass(error.cause())) throw;
            throw RuntimeError(error.number(),
                               error.description() + " " + ObtenerMensaje(readAgainMessage),
                               error.cause());
        }
    });
    if (loadStopped_) tellStopped();
}

void frmCatalogador::loadList() {
    if (!mstrModo.empty()) grdGrilla.clearRows();
    if (grdGrilla.columns() > 0) grdGrilla.addExtraColumn(extraColumnWidth);
    mstrSQL = listingStatement();
    const PointerDuring hourglass(surface());
    if (viewIsKnown_ || !mstrSQL.empty()) {
        const Loading loading(*this);
        const bool opened = openListing();
        const RedrawOff quiet(grdGrilla);
        if (opened) appendRows();
        if (opened) mrdoRegistro->Close();
        ignoringErrors([&] { sortAsLoaded(); });
    }
    ignoringErrors([&] { SimularFiltrar(); });
    ignoringErrors([&] { sortAsRemembered(); });
    showFirstMatch();
    ignoringErrors([&] { PosicionarseGrilla(); });
}

void frmCatalogador::readListAgain() {
    if (!browsing()) return;
    const int row = grdGrilla.row();
    const std::string selected(row >= RecordGrid::fixedRows ? grdGrilla.code(row) : "");
    CargarGrilla();
    grdGrilla.refresh();
    selectCode(selected);
}

bool frmCatalogador::openListing() {
    try {
        openRecords();
        return true;
    } catch (const RuntimeError&) {
        if (!loadStopped_) throw;
        return false;
    }
}

bool frmCatalogador::keepLoading() {
    if (!surface().progress(*this, grdGrilla.rows() - RecordGrid::fixedRows, Surface::unknownTotal))
        loadStopped_ = true;
    return !loadStopped_;
}

void frmCatalogador::tellStopped() {
    loadStopped_ = false;
    const std::string rows = decimalText(grdGrilla.rows() - RecordGrid::fixedRows);
    host_.messages.MostrarMensaje(
        replaceText(ObtenerMensaje(listStoppedMessage), "[p1]", rows, Compare::binary),
        styleExclamation, mstrAppName);
}

SqlText frmCatalogador::listingStatement() {
    SqlText sql = grdGrilla.tag;
    const std::string company = decimalText(mintEmpresa);
    mblnPorEmpresa = containsText(sql.text(), "[prmIdEmpresa]", Compare::text);
    sql.replace(mblnPorEmpresa ? "[prmIdEmpresa]" : "[prmIdEmpresa2]", company, Compare::text);
    if (mlngIdVista == viewClassifications && containsText(sql.text(), "[prm99]", Compare::text)) {
        std::string codes = BuscarTextoLista(1, mlngUsuario);
        if (codes.empty()) codes = "-1";
        sql.replace("[prm99]", SqlText::ofData(codes, SqlText::Kind::codes), Compare::text);
        mstrListaNoMarcados = BuscarTextoLista(2, mlngUsuario);
    }
    return sql;
}

void frmCatalogador::appendRows() {
    const int shown = std::min(mrdoRegistro->columnCount(), grdGrilla.columns());
    std::vector<ListColumn> list(static_cast<std::size_t>(std::max(0, shown)));
    for (int column = 0; column < shown; ++column)
        list[at(column)].bit = column > 0 && isBit(column);
    for (int column = 0; column < shown - 1; ++column) {
        const double code = grdGrilla.headerData(column).value_or(0);
        grdGrilla.setColumnAlignment(
            column, code > 0 ? static_cast<int>(std::min(code, largestAlignment)) : leftCentred);
    }
    while (const std::size_t count = mrdoRegistro->rowsAtHand()) {
        for (int column = 0; column < shown; ++column)
            mrdoRegistro->shownTexts(column, host_.regional, list[at(column)].cells);
        appendBlock(list, count);
        mrdoRegistro->skipRows(count);
        if (!keepLoading()) break;
    }
    grdGrilla.packRows();
}

void frmCatalogador::appendBlock(std::vector<ListColumn>& list, std::size_t count) {
    std::size_t readable = count;
    for (ListColumn& column : list)
        if (column.bit) readable = std::min(readable, readableChecks(column));
    appendPart(list, 0, readable);
    // What cannot be read is an error of its row; the rows before it are there.
    if (readable < count) appendPart(list, readable, readable + 1);
}

void frmCatalogador::appendPart(std::vector<ListColumn>& list, std::size_t from, std::size_t to) {
    const int first = grdGrilla.addRows(to - from);
    for (int number = 0; number < static_cast<int>(list.size()); ++number) {
        ListColumn& column = list[at(number)];
        const std::span texts(column.cells.texts.data() + from, to - from);
        if (number == 0) {
            setGridCodes(first, texts);
        } else if (!column.bit) {
            grdGrilla.setTexts(first, number - 1, trimmed(texts));
        } else {
            const bool starts = from < to && first == RecordGrid::fixedRows;
            if (starts && texts.front().data() != nullptr)
                grdGrilla.setColumnBoolean(number - 1, true);
            for (std::size_t i = from; i < to; ++i)
                setGridCheck(first + static_cast<int>(i - from), number, column, list.front(), i);
        }
    }
}

bool frmCatalogador::isBit(int column) const {
    return mrdoRegistro->column(column).type == bitColumnType;
}

std::size_t frmCatalogador::readableChecks(ListColumn& column) {
    const std::vector<std::string_view>& texts = column.cells.texts;
    column.checks.clear();
    for (const std::string_view text : texts) {
        const auto checked = text.data() == nullptr ? false : yesOrNo(text, host_.regional);
        if (!checked) break;
        column.checks.push_back(text.data() == nullptr ? CheckState::none
                                : *checked             ? CheckState::checked
                                                       : CheckState::unchecked);
    }
    return column.checks.size();
}

void frmCatalogador::setGridCodes(int row, std::span<const std::string_view> codes) {
    for (const std::string_view code : codes) {
        if (code.data() != nullptr) grdGrilla.setCode(row, trim(code));
        ++row;
    }
}

void frmCatalogador::setGridCheck(int row, int number, const ListColumn& column,
                                  const ListColumn& codes, std::size_t index) {
    const std::string_view text = column.cells.texts[index];
    if (text.data() == nullptr) return;
    // Raises what is wrong with a cell that could not be read.
    if (index == column.checks.size()) (void)toBoolean(Variant(text), host_.regional);
    CheckState state = column.checks[index];
    if (mlngIdVista == viewClassifications) {
        const std::string_view code = codes.cells.texts[index];
        const Variant value = code.data() == nullptr ? Variant() : Variant(code);
        const bool unticked =
            containsText("," + mstrListaNoMarcados + ",", "," + toText(value, host_.regional) + ",",
                         Compare::binary);
        state = unticked ? CheckState::unchecked : CheckState::checked;
    }
    grdGrilla.setCheck(row, number - 1, state);
}

void frmCatalogador::sortAsLoaded() {
    if (!hasDataRows()) return;
    grdGrilla.select(RecordGrid::fixedRows, 0);
    grdGrilla.sort(0, sort_order::ascending);
}

void frmCatalogador::sortAsRemembered() {
    if (mintOrden == sort_order::none || mintColOrden >= grdGrilla.columns()) return;
    grdGrilla.select(0, mintColOrden);
    grdGrilla.sort(mintColOrden, mintOrden);
}

std::string frmCatalogador::BuscarTextoLista(std::int16_t lista, std::int32_t clave) {
    return trap("BuscarTextoLista", std::string(), [&] {
        const PointerDuring hourglass(surface());
        const auto rows = mrdoCBase->OpenResultset(
            "Select * From genListas Where LisIdLista = " + decimalText(lista) +
            " And LisIDClave = " + decimalText(clave));
        std::string text;
        if (!rows->atEnd()) text = toTextOrEmpty(rows->value("LisLista"), host_.regional);
        rows->Close();
        return text;
    });
}

}  // namespace catalogador
