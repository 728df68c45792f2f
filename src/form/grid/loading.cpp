#include "form/editing/user_lists.h"
#include "form/frmCatalogador.h"
#include "form/grid/list_load.h"
#include "form/grid/list_rows.h"
#include "modules/messages.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

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

/// While it lives the user sees how far the load is, and can stop it.
class LoadProgress {
  public:
    /// `stopped` becomes true when the user stops the load. `connection` may be null.
    LoadProgress(Window& window, const RecordGrid& grid, rdoConnection* connection, bool& stopped)
        : window_(window), grid_(grid), connection_(connection), stopped_(stopped) {
        if (connection_ != nullptr) connection_->setWaiting([this] { return goOn(); });
    }
    ~LoadProgress() {
        if (connection_ != nullptr) connection_->setWaiting(nullptr);
        window_.surface().progress(window_, 0, 0);
    }
    LoadProgress(const LoadProgress&) = delete;
    LoadProgress& operator=(const LoadProgress&) = delete;

    /// Shows how many rows there are; false once the user wants no more of them.
    bool goOn() {
        const int rows = grid_.rows() - RecordGrid::fixedRows;
        if (!window_.surface().progress(window_, rows, Surface::unknownTotal)) stopped_ = true;
        return !stopped_;
    }

    /// Opens the listing; false when the user stopped that.
    bool open(WorkingRecords& records) {
        try {
            records.open();
            return true;
        } catch (const RuntimeError&) {
            if (!stopped_) throw;
            return false;
        }
    }

  private:
    Window& window_;
    const RecordGrid& grid_;
    rdoConnection* connection_;
    bool& stopped_;
};

void sortAsLoaded(RecordGrid& grid) {
    if (!hasDataRows(grid)) return;
    grid.select(RecordGrid::fixedRows, 0);
    grid.sort(0, sort_order::ascending);
}

void sortAsRemembered(RecordGrid& grid, int column, int order) {
    if (order == sort_order::none || column >= grid.columns()) return;
    grid.select(0, column);
    grid.sort(column, order);
}

}  // namespace

void frmCatalogador::CargarGrilla() {
    bool stopped = false;
    trap("CargarGrilla", [&] {
        try {
            loadList(stopped);
        } catch (const RuntimeError& error) {
            if (!browsing() || !mayPass(error.cause())) throw;
            throw RuntimeError(error.number(),
                               error.description() + " " + ObtenerMensaje(message::readAgain),
                               error.cause());
        }
    });
    if (!stopped) return;
    const std::string rows = decimalText(grdGrilla.rows() - RecordGrid::fixedRows);
    host_.messages.MostrarMensaje(
        replaceText(ObtenerMensaje(message::listStopped), "[p1]", rows, Compare::binary),
        styleExclamation, mstrAppName);
}

void frmCatalogador::loadList(bool& stopped) {
    if (!mstrModo.empty()) grdGrilla.clearRows();
    if (grdGrilla.columns() > 0) grdGrilla.addExtraColumn(extraColumnWidth);
    records_.mstrSQL = listingStatement();
    const PointerDuring hourglass(surface());
    if (viewHasMetadata_ || !records_.mstrSQL.empty()) {
        LoadProgress progress(*this, grdGrilla, mrdoCBase, stopped);
        const bool opened = progress.open(records_);
        const RedrawOff quiet(grdGrilla);
        if (opened) {
            const bool ticksOfUser = mlngIdVista == viewClassifications;
            ListLoad(grdGrilla, host_.regional, ticksOfUser ? &mstrListaNoMarcados : nullptr)
                .append(*records_.mrdoRegistro, [&] { return progress.goOn(); });
            records_.mrdoRegistro->Close();
        }
        ignoringErrors([&] { sortAsLoaded(grdGrilla); });
    }
    ignoringErrors([&] { SimularFiltrar(); });
    ignoringErrors([&] { sortAsRemembered(grdGrilla, mintColOrden, mintOrden); });
    if (!mblnSinFiltro) showFirstMatch(grdGrilla);
    ignoringErrors([&] { PosicionarseGrilla(); });
}

SqlText frmCatalogador::listingStatement() {
    SqlText sql = grdGrilla.tag;
    const std::string company = decimalText(mintEmpresa);
    mblnPorEmpresa = containsText(sql.text(), "[prmIdEmpresa]", Compare::text);
    sql.replace(mblnPorEmpresa ? "[prmIdEmpresa]" : "[prmIdEmpresa2]", company, Compare::text);
    if (mlngIdVista == viewClassifications && containsText(sql.text(), "[prm99]", Compare::text)) {
        std::string codes = BuscarTextoLista(user_list::order, mlngUsuario);
        if (codes.empty()) codes = "-1";
        sql.replace("[prm99]", SqlText::ofData(codes, SqlText::Kind::codes), Compare::text);
        mstrListaNoMarcados = BuscarTextoLista(user_list::unticked, mlngUsuario);
    }
    return sql;
}

void frmCatalogador::readListAgain() {
    if (!browsing()) return;
    const std::string selected = selectedCode(grdGrilla);
    CargarGrilla();
    grdGrilla.refresh();
    selectCode(grdGrilla, selected);
}

void frmCatalogador::PosicionarseGrilla() {
    trap("PosicionarseGrilla", [&] {
        if (mlngIdDato < 1) {
            if (hasDataRows(grdGrilla)) grdGrilla.select(RecordGrid::fixedRows, 0);
            return;
        }
        const int row = grdGrilla.findCode(mlngIdDato);
        if (row == 0) return;
        grdGrilla.select(row, 0);
        grdGrilla.setRowHidden(row, false);
        if (!grdGrilla.rowIsShown(row)) grdGrilla.setTopRow(row);
    });
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
