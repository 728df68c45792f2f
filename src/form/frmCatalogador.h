#pragma once
#include <cstdint>
#include <string>
#include <utility>

#include "form/activation_values.h"
#include "form/fields/screen_controls.h"
#include "form/working_records.h"
#include "modules/modErrores.h"
#include "platform/controls/window.h"
#include "platform/host.h"

namespace catalogador {

class vsPrinter;

/// The one maintenance screen. The public class fills the ActivationValues, then showModal() runs
/// the start-up sequence and shows the screen until it is closed.
///
/// A procedure reports its run-time errors to the user under its own name and then returns, with
/// its failure value if it has one; those that say so raise or ignore them instead.
class frmCatalogador : public Window, public ScreenControls, public ActivationValues {
  public:
    /// `host` must outlive the form.
    explicit frmCatalogador(Host& host);

    /// "0" browse, "1" new record, "2" modify.
    [[nodiscard]] const std::string& modo() const { return mstrModo; }
    [[nodiscard]] const std::string& decimalSeparator() const { return mstrSeparadorDecimal; }
    [[nodiscard]] const std::string& thousandsSeparator() const { return mstrSeparadorMiles; }
    [[nodiscard]] bool filterInputOpen() const { return mblnFiltroAbierto; }
    [[nodiscard]] std::string statusText() const override;
    [[nodiscard]] std::string memoryName() const override;
    [[nodiscard]] std::string emptyListText() const override;

    /// Loads the form, shows it and returns when the user has closed it.
    void showModal();
    /// Start-up, in the order in which every step relies on the one before.
    void Form_Load();
    /// Keeps the user's order of view 10, before the form closes.
    void Form_QueryUnload();
    /// Keeps the widths of columns that the user changed, and lets go of the connection.
    void Form_Unload();
    /// Keeps the window at 5000 by 4000 twips or more.
    void Form_Resize();
    /// Reads the view's row of the metadata and sets the list up from it.
    void InicializarForm();
    /// Takes all fields out of use.
    void InicializarControles();
    /// Sets the fields up from the metadata, shows those in use and loads the list.
    void MostrarControles();
    /// Stacks the fields in use, and the list under them.
    void UbicoControles();
    /// Makes the list fill what the fields leave of the panel.
    void picBackColor_Resize();
    /// Fills a combo from a statement (code, text), into which the company is put, and selects the
    /// last entry whose text is `valor`.
    void CargoComboXSQL(std::string& sql, ComboBox& combo, const std::string& valor);
    /// Adds the entries of a list "code,text;code,text". Nothing is selected.
    void CargoComboXArray(const std::string& lista, ComboBox& combo);

    /// Sets the grid up from the view's row, the current row of the form's resultset.
    void InicializarGrilla();
    /// Widens the form to its visible columns: their sum + 500 twips, 5700 at least. Ignores
    /// errors.
    void AjustarAnchoForm();
    /// Reads the list, then applies the filter, the sort and the position again.
    void CargarGrilla();
    /// The text of a list of genListas, empty when there is none.
    std::string BuscarTextoLista(std::int16_t lista, std::int32_t clave);
    /// Shows only the rows with a cell that contains the text, which becomes the pattern "*TEXT*".
    void FiltrarGrilla(std::string& texto);
    /// Applies the filter that was on before the list was read again.
    void SimularFiltrar();
    /// Selects the record being edited, or the first one, and brings it into sight.
    void PosicionarseGrilla();
    /// Stores the widths of the columns in the view's metadata.
    void GuardarAnchoColumnas();
    /// Delete, Space and the menu key in the list.
    void grdGrilla_KeyDown(int& keyCode);
    /// A header click sorts, a right click opens the context menu; row rows() is the empty part.
    void grdGrilla_MouseUp(MouseButton button, int row, int column);
    /// Sorts and remembers the sort; `order` is one of sort_order. May raise RuntimeError.
    void grdGrilla_Sort(int column, int order);
    /// Takes note of the widths of the columns, in twips.
    void grdGrilla_AfterUserResize();

    /// True puts the screen into browse state, false into edit state.
    void SetButtonState(bool browse);
    /// Starts a new record. The fields keep what they hold.
    void AccionNuevo();
    /// Opens the selected row for changes; a row that is hidden or gone is not opened.
    void AccionModificar();
    /// Goes back to the list and clears the fields, without asking.
    void AccionCancelar();
    /// Reads a record into the fields. False when it could not be read.
    bool CargoDatos(std::int32_t codigo);
    /// Empties all fields, used or not.
    void LimpiarControles();

    /// False after the focus was put on a required field that is empty.
    bool ValidoCamposObligatorios();
    /// False after the user was shown a text that is not a number.
    bool ValidarDatosNumericos();
    /// Runs the view's own rule, a statement with tokens: false when it returns a row.
    bool ValidarSQLDuplicados(const std::string& sql, std::int32_t codigo);
    /// False after the user was shown a value that another record has too.
    bool VerificarValDuplicados();
    /// Whether another record has the value in the column "CTe" + `campo`. Raises RuntimeError.
    bool ValorDuplicado(const std::string& campo, const std::string& valor, bool numerico);
    /// Whether another classification has that name, which the user is shown. True after an error.
    bool ValidarClasificacion(std::int32_t codigo, const std::string& nombre);
    /// Takes a "&" off the start and a ":" off the end.
    void LimpiarCaption(std::string& caption) const;

    /// Checks, asks, saves and goes back to the list.
    void AccionGrabar();
    /// Writes the record. False after the user was shown why it was not written.
    bool GrabarDatos();
    /// Replaces or adds a list of genListas. Ignores errors.
    void GrabarLista(std::int32_t& clave, std::int16_t& lista, const std::string& texto);
    /// Stores the order of the rows for the user. Ignores errors.
    void GrabarListaGrilla();
    /// The current error as "number - description".
    std::string TextoError() const;
    /// Always false. Nothing calls it.
    bool ChequearUltFechaModificado();
    /// Asks, and deletes the record of the selected row where the rules on delete allow it.
    void AccionEliminar();

    /// Adds the actions of the command bars with the texts of the language.
    void CrearAcciones();
    /// Lays out the menus and the toolbar.
    void CrearRibbon();
    /// Lays out the context menu of the list.
    void CrearContextMenues();
    /// Binds the keys that the language gives to the actions.
    void CrearAceleradores();
    /// Gives the actions their icons.
    void AdjuntarIconos();
    /// Sets the application button, the quick-access buttons and the theme.
    void OpcionesRibbon();
    /// Runs the procedure of an action; other ids do nothing.
    void cmdBars_Execute(int id);
    /// Makes the panel fill what the command bars leave of the window.
    void cmdBars_Resize();
    /// Opens the filter box and shows all rows, or applies what was typed into it.
    void AccionFiltrar();
    /// Moves the focus to the first field in use after field `desde` (1 to 6), or saves.
    void SiguienteCampo(int desde);
    /// Opens view `accion` on the record `dato`; what was saved there becomes the combo's entry.
    void AccionF2(std::int16_t accion, ComboBox* combo, std::int32_t dato);
    /// Exports the rows shown to a file that the user chooses.
    void AccionExportarDatosGrilla();
    /// The folder that exports go to unless the user says otherwise; made when it is missing.
    std::string ObtenerDirInicial();
    /// Prints the rows shown.
    void AccionImprimirDatosGrilla();
    /// Fonts and header of a document that is not begun yet.
    void PrepararImpresion(vsPrinter& vsPrint);
    /// Date, maker and page number on every page of a document that is ended.
    void SetearFooter(vsPrinter& vsPrint);

  private:
    void wireEvents();
    void readViewRow();
    void openAtStart();
    void loadList(bool& stopped);
    SqlText listingStatement();
    void readListAgain();
    void leaveInput();
    bool confirmDiscard();
    bool checkAndConfirm();
    bool drawNewCode();
    void deleteRecord();
    void showNotice(std::int32_t message);
    [[nodiscard]] bool browsing() const { return mstrModo == "0"; }
    template <class... Arguments>
    auto trap(const char* procedure, Arguments&&... arguments) {
        return trapped(host_, procedure, mstrAppName, std::forward<Arguments>(arguments)...);
    }

    Host& host_;
    WorkingRecords records_;
    std::string mstrSeparadorDecimal = ".", mstrSeparadorMiles = ",";
    std::string mstrSQLDuplicados;
    std::int16_t mintIdAyuda = 0;
    bool mblnAnchoCambiado = false;
    bool viewHasMetadata_ = false;
    std::string mstrModo = "0";
    std::string mstrAnchoColumnas;
    bool mblnPorEmpresa = false;
    std::string mstrListaNoMarcados;
    std::string contentsWhenEditBegan_;
    std::int16_t mintColOrden = 0, mintOrden = 0;
    bool mblnSinFiltro = true, mblnFiltroAbierto = false;
    Date mdatModificado{1900, 1, 1};
};

}  // namespace catalogador
