#pragma once
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "modules/modErrores.h"
#include "platform/controls/fields.h"
#include "platform/controls/record_grid.h"
#include "platform/controls/window.h"
#include "platform/host.h"
#include "platform/rdo.h"

namespace catalogador {

class PointerDuring;
class vsPrinter;

/// The one maintenance screen. The public class fills the members below, then load() runs the
/// start-up sequence and the surface shows the form until it is closed.
class frmCatalogador : public Window {
  public:
    explicit frmCatalogador(Host& host);

    rdoConnection* mrdoCBase = nullptr;
    std::int16_t mintEmpresa = 0;
    std::string mstrAppKey;
    std::int16_t mintIdioma = 0;
    /// Title of every message box: the view's title.
    std::string mstrAppName;
    std::int32_t mlngUsuario = -1;
    std::int16_t mlngIdVista = 0;
    /// Text that a new record starts with when the form opens on code -1.
    std::string mstrValorTexto1;
    std::string gstrNombreVista;
    /// Record being edited: 0 for none or a new one. At start: >= 1 opens that record, -1 starts a
    /// new one.
    std::int32_t mlngIdDato = 0;
    /// How deep in one another screens are open with this one: 1 for the one that the host opened.
    int depth = 1;
    /// Code of the last record saved or deleted.
    std::int32_t mlngIdUltimo = 0;

    Panel picBackColor{"picBackColor"};
    Label lblTexto1{"lblTexto1"}, lblTexto2{"lblTexto2"};
    Label lblValor1{"lblValor1"}, lblValor2{"lblValor2"}, lblValor3{"lblValor3"};
    /// Companion of chkValorSiNo, which carries its own caption; never shown.
    Label lblValorSiNo{"lblValorSiNo"};
    TextBox txtTexto1{"txtTexto1"}, txtTexto2{"txtTexto2"};
    TextBox txtValor1{"txtValor1"}, txtValor2{"txtValor2"}, txtValor3{"txtValor3"};
    ComboBox cmbValor1{"cmbValor1"}, cmbValor2{"cmbValor2"}, cmbValor3{"cmbValor3"};
    CheckBox chkValor1{"chkValor1"}, chkValor2{"chkValor2"}, chkValor3{"chkValor3"};
    CheckBox chkValorSiNo{"chkValorSiNo"};
    RecordGrid grdGrilla{"grdGrilla"};

    /// A text field (TextoCorto, TextoLargo) and its place in the rule flags.
    struct TextField {
        const char* key;
        Label& label;
        TextBox& text;
        const char* column;
        std::size_t index;
    };
    /// A value field and the three controls it can be shown as.
    struct ValueField {
        const char* key;
        Label& label;
        TextBox& text;
        ComboBox& combo;
        CheckBox& check;
        const char* column;
        std::size_t index;
    };
    [[nodiscard]] std::array<TextField, 2>& textFields() { return textFields_; }
    [[nodiscard]] std::array<ValueField, 3>& valueFields() { return valueFields_; }

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
    void Form_QueryUnload();
    void Form_Unload();
    void Form_Resize();
    void InicializarForm();
    void InicializarControles();
    void MostrarControles();
    void UbicoControles();
    void picBackColor_Resize();
    /// Fills a combo from a statement (code, text) and selects the entry whose text is `valor`.
    /// `sql` receives the statement with the company in place.
    void CargoComboXSQL(std::string& sql, ComboBox& combo, const std::string& valor);
    /// Adds the entries of a list "code,text;code,text".
    void CargoComboXArray(const std::string& lista, ComboBox& combo);

    /// Sets the grid up from the view's row, the current row of the form's resultset.
    void InicializarGrilla();
    /// Widens the form to its visible columns: their sum + 500 twips, 5700 at least.
    void AjustarAnchoForm();
    void CargarGrilla();
    std::string BuscarTextoLista(std::int16_t lista, std::int32_t clave);
    void FiltrarGrilla(std::string& texto);
    void SimularFiltrar();
    void PosicionarseGrilla();
    void GuardarAnchoColumnas();
    void grdGrilla_KeyDown(int& keyCode);
    void grdGrilla_MouseUp(MouseButton button, int row, int column);
    void grdGrilla_Sort(int column, int order);
    void grdGrilla_AfterUserResize();

    /// True puts the screen into browse state, false into edit state.
    void SetButtonState(bool browse);
    void AccionNuevo();
    void AccionModificar();
    void AccionCancelar();
    bool CargoDatos(std::int32_t codigo);
    void LimpiarControles();

    bool ValidoCamposObligatorios();
    bool ValidarDatosNumericos();
    bool ValidarSQLDuplicados(const std::string& sql, std::int32_t codigo);
    bool VerificarValDuplicados();
    bool ValorDuplicado(const std::string& campo, const std::string& valor, bool numerico);
    bool ValidarClasificacion(std::int32_t codigo, const std::string& nombre);
    void LimpiarCaption(std::string& caption) const;

    void AccionGrabar();
    bool GrabarDatos();
    void GrabarLista(std::int32_t& clave, std::int16_t& lista, const std::string& texto);
    void GrabarListaGrilla();
    std::string TextoError() const;
    bool ChequearUltFechaModificado();
    void AccionEliminar();

    void CrearAcciones();
    void CrearRibbon();
    void CrearContextMenues();
    void CrearAceleradores();
    void AdjuntarIconos();
    void OpcionesRibbon();
    void cmdBars_Execute(int id);
    void cmdBars_Resize();
    void AccionFiltrar();
    /// Moves the focus to the first field in use after field `desde` (1 to 6), or saves.
    void SiguienteCampo(int desde);
    /// Opens view `accion` on the record `dato`; what was saved there becomes the combo's entry.
    void AccionF2(std::int16_t accion, ComboBox* combo, std::int32_t dato);
    void MostrarAyuda();
    void AccionExportarDatosGrilla();
    /// The folder that exports go to unless the user says otherwise; made when it is missing.
    std::string ObtenerDirInicial();
    void AccionImprimirDatosGrilla();
    void PrepararImpresion(vsPrinter& vsPrint);
    /// Date, maker and page number on every page of a document that is ended.
    void SetearFooter(vsPrinter& vsPrint);

  private:
    class OpenForm;
    /// Width of the narrow last column, which no listing fills, in twips.
    static constexpr int extraColumnWidth = 90;

    void placeDesign();
    void wireEvents();
    void wireGrid();
    void wireFields();
    void wireText(TextBox& box);
    void wireTextField(TextField& field, int number);
    void wireValueField(ValueField& field);
    void exchangeSeparator(char32_t& character) const;
    /// Enter in a numeric box: what is not a number is erased, then the focus moves on.
    void numericStep(ValueField& field, int number);
    void runF2(const std::string& action, ComboBox* combo);
    void showContextMenu();
    /// Keys of the list that no event of it names: copying, the context menu, and while a record is
    /// being edited those that lead to the fields.
    void otherKeyInList(int& keyCode, int modifiers);
    /// While a record is being edited, what is typed in the list goes into the first field.
    void characterInList(char32_t& character);
    void copyFromList(bool onlyTheCell);
    /// What the fields hold, to see whether it has changed.
    [[nodiscard]] std::string contents() const;
    /// Asks whether changes may be lost; true when there are none.
    bool editMayEnd();
    /// Selects the row of that code, if there is one, and scrolls to it.
    void selectCode(const std::string& code);
    /// Escape: closes the filter box, or cancels the edit.
    void leaveInput();
    /// F5: the list as it is stored now, on the record that is selected. Nothing during an edit.
    void readListAgain();
    void readViewRow();
    void centreOnScreen();
    void openAtStart();

    void configureField(int& widest);
    void configureTextField(TextField& field, int& widest);
    void configureValueField(ValueField& field, int& widest);
    void configureKind(ValueField& field);
    void fillCombo(ComboBox& combo, const std::string& source);
    void configureYesNo();
    void readFlags(std::size_t index);
    [[nodiscard]] int maxLengthOfField() const;
    void readF2Action(std::string& tag);
    void showTextField(TextField& field, int column);
    void showValueField(ValueField& field, int column);
    void placeCheck(CheckBox& check, const std::string& caption);

    void hideColumnsOfOtherKeys();
    void setGridWidths();
    void setGridAlignments(const std::string& alignments);
    void setGridAppearance();
    void loadList();
    SqlText listingStatement();
    void appendRows();
    struct ListColumn;
    class Loading;
    /// Opens the listing; false when the user stopped that.
    bool openListing();
    /// Tells how many rows there are; false when the user wants no more of them.
    bool keepLoading();
    void tellStopped();
    void appendBlock(std::vector<ListColumn>& list, std::size_t count);
    /// Whether a column of the form's resultset holds yes or no.
    [[nodiscard]] bool isBit(int column) const;
    /// Reads the check states of a column; how many of them can be read.
    std::size_t readableChecks(ListColumn& column);
    /// Appends the rows from `from` to before `to` of those that were read last.
    void appendPart(std::vector<ListColumn>& list, std::size_t from, std::size_t to);
    void setGridCodes(int row, std::span<const std::string_view> codes);
    void setGridCheck(int row, int number, const ListColumn& column, const ListColumn& codes,
                      std::size_t index);
    /// Writes the rows shown to the file; the extra column is away meanwhile, and stays away until
    /// the next load when that fails.
    void saveGrid(const SaveChoice& choice);
    /// Whether the filter tells "Perú" from "peru": the setting FiltroSinAcentos.
    [[nodiscard]] Accents filterAccents() const;
    /// While a filter is applied its first match becomes the first row shown.
    void showFirstMatch();
    void sortAsLoaded();
    void sortAsRemembered();

    void enableValueField(ValueField& field, bool editing, Color color);
    void loadFields(std::int32_t codigo);
    void loadValueField(ValueField& field);
    void loadYesNo(std::int32_t codigo);
    [[nodiscard]] Date stampOfRecord() const;

    [[nodiscard]] bool required(std::size_t index) const { return mbytReglasCampo[2 * index] == 1; }
    [[nodiscard]] bool unique(std::size_t index) const {
        return mbytReglasCampo[2 * index + 1] == 1;
    }
    Control* missingRequiredField();
    bool duplicateReported(const std::string& campo, const std::string& valor, bool numerico,
                           const Label& label, Control& control);
    bool duplicateValueReported(ValueField& field);
    void replaceValueToken(SqlText& sql, ValueField& field);
    SqlText withFieldValues(SqlText sql, std::int32_t codigo);
    /// A typed number as statements and columns take it; raises typeMismatch for anything else.
    [[nodiscard]] std::string numberForDatabase(const std::string& typed) const;

    bool savable();
    bool drawNewCode();
    /// Puts its description into words for the user, which name the sequence.
    void nameSequenceInError();
    bool startRow(PointerDuring& hourglass);
    /// These give 0, or the number of the message that says why the row cannot be written.
    std::int32_t startNewRow();
    std::int32_t startChange();
    std::int32_t updateRecord(const Date& stamp);
    std::int32_t conflictOfRecord();
    /// Has `look` look, with rows of its own, whether the write is stored whose answer was lost,
    /// and tells data access what it gives.
    std::optional<bool> outcomeOfWrite(const std::function<std::optional<bool>()>& look);
    /// Gives the stamp.
    Date writeColumns();
    /// Whether the record is in the database as it was written with that stamp; nullopt when that
    /// cannot be found out.
    std::optional<bool> isStored(const Date& stamp);
    /// Tells why the record was not written; the list shows what is stored then.
    void refuseWrite(PointerDuring& hourglass, std::int32_t message);
    void writeValueField(ValueField& field);
    void writeUserLists();
    std::string gridCodes() const;
    std::string uncheckedCodes() const;
    void showNotice(std::int32_t message);
    void showRowToDelete(int row);
    /// "Ctrl+G": the key bound to an action, empty when it has none.
    [[nodiscard]] std::string keyOfAction(int id) const;
    /// What the user sees of a row that tells it from the others.
    [[nodiscard]] std::string nameOfRow(int row) const;
    void deleteRecord();
    /// As updateRecord.
    std::int32_t removeRecord();

    [[nodiscard]] bool hasDataRows() const { return grdGrilla.rows() > RecordGrid::fixedRows; }
    [[nodiscard]] bool browsing() const { return mstrModo == "0"; }
    /// The kind kept in a tag, 0 when the field is not in use.
    [[nodiscard]] static int kindOf(const std::string& tag);
    /// The text of a column of the form's resultset; Null gives the empty text.
    [[nodiscard]] std::string textOrEmpty(const char* column) const;
    [[nodiscard]] std::int32_t codeOfRow(int row) const;
    /// Whether that is the row's code, however the listing writes it.
    [[nodiscard]] bool rowHasCode(int row, std::int32_t code) const;
    enum class Purpose { reading, writing };
    /// Opens mstrSQL as the form's resultset. What data access says of a text that cannot be used
    /// is said in the screen's language.
    void openRecords(Purpose purpose = Purpose::reading);
    [[nodiscard]] RuntimeError refusalOf(const DataRefused& refused) const;

    template <class Result, class Body>
    Result trap(const char* procedure, Result failure, Body&& body) {
        return trapped(host_, procedure, mstrAppName, failure, std::forward<Body>(body));
    }
    template <class Body>
    void trap(const char* procedure, Body&& body) {
        trapped(host_, procedure, mstrAppName, std::forward<Body>(body));
    }

    Host& host_;
    std::array<TextField, 2> textFields_;
    std::array<ValueField, 3> valueFields_;

    std::string mstrSeparadorDecimal = ".";
    std::string mstrSeparadorMiles = ",";
    /// Statement and rows of the procedure at work; procedures reuse them one after another.
    SqlText mstrSQL;
    std::unique_ptr<rdoResultset> mrdoRegistro;
    std::string mstrSQLDuplicados;
    std::int16_t mintIdAyuda = 0;
    bool mblnAnchoCambiado = false;
    /// Whether the metadata has a row for the view.
    bool viewIsKnown_ = false;
    std::string mstrModo = "0";

    /// Required flag (2k) and duplicate flag (2k + 1) of field k.
    std::array<std::uint8_t, 12> mbytReglasCampo{};
    bool mblnSiNoDatosCombo = false;

    std::string mstrAnchoColumnas;
    bool mblnPorEmpresa = false;
    std::string mstrListaNoMarcados;
    /// What the fields held when the edit began.
    std::string contentsAtStart_;
    /// Whether the user stopped the last load.
    bool loadStopped_ = false;
    std::int16_t mintColOrden = 0;
    std::int16_t mintOrden = 0;
    bool mblnSinFiltro = true;
    bool mblnFiltroAbierto = false;

    Date mdatModificado{1900, 1, 1};
};

}  // namespace catalogador
