#include "form/frmCatalogador.h"
#include "form/grid/list_rows.h"
#include "modules/messages.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "printing/vs_printer.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

/// The dialog asks before it overwrites (2) and before it creates (0x2000).
constexpr int saveDialogFlags = 8194;
constexpr const char* printFont = "Tahoma";
constexpr const char* formFont = "Tahoma";
constexpr double headerFontSize = 12;
constexpr double footerFontSize = 8;
/// From the bottom margin line to the footer, in twips.
constexpr int footerDistance = 150;

/// The save format of each entry of the dialog's filter list; other entries write nothing.
std::optional<int> formatOf(int filterIndex) {
    switch (filterIndex) {
        case 1:
            return grid_format::workbook;
        case 2:
            return grid_format::tabText;
        default:
            return std::nullopt;
    }
}

/// The grid without the colour of its selection.
class UnmarkedSelection {
  public:
    explicit UnmarkedSelection(RecordGrid& grid) : grid_(grid), before_(grid.appearance()) {
        GridAppearance look = before_;
        look.backColorSel = grid.backColor();
        grid_.setAppearance(look);
    }
    ~UnmarkedSelection() { grid_.setAppearance(before_); }
    UnmarkedSelection(const UnmarkedSelection&) = delete;
    UnmarkedSelection& operator=(const UnmarkedSelection&) = delete;

  private:
    RecordGrid& grid_;
    GridAppearance before_;
};

/// The grid as it is drawn on paper: not drawn on the screen, and no column stretched.
class UndrawnGrid {
  public:
    explicit UndrawnGrid(RecordGrid& grid) : grid_(grid) {
        grid_.setRedraw(false);
        stretchLast(false);
    }
    ~UndrawnGrid() {
        grid_.setRedraw(true);
        stretchLast(true);
    }
    UndrawnGrid(const UndrawnGrid&) = delete;
    UndrawnGrid& operator=(const UndrawnGrid&) = delete;

  private:
    void stretchLast(bool stretch) {
        GridAppearance look = grid_.appearance();
        look.extendLastColumn = stretch;
        grid_.setAppearance(look);
    }

    RecordGrid& grid_;
};

/// "dd/mm/yy hh:mm"
std::string shortDateTime(const Date& date) {
    const auto two = [](int number) {
        const std::string digits = decimalText(number % 100);
        return digits.size() < 2 ? "0" + digits : digits;
    };
    return two(date.day) + "/" + two(date.month) + "/" + two(date.year) + " " + two(date.hour) +
           ":" + two(date.minute);
}

/// Writes the rows shown to the file, without the extra column. If that fails, the column is
/// missing until the next load.
void saveGrid(Host& host, Window& window, RecordGrid& grid, const SaveChoice& choice) {
    const UnmarkedSelection unmarked(grid);
    grid.removeExtraColumn();
    if (const std::optional<int> format = formatOf(choice.filterIndex)) {
        GridFileOptions options;
        options.title = window.caption();
        options.regional = host.regional;
        options.progress = [&](int done, int total) {
            return host.surface.progress(window, done, total);
        };
        host.gridFiles.save(grid, choice.path, *format, options);
    }
    host.surface.processEvents();
    grid.addExtraColumn(extraColumnWidth);
}

}  // namespace

std::string frmCatalogador::ObtenerDirInicial() {
    return trap("ObtenerDirInicial", std::string(), [this] {
        const std::string application(trim(host_.utilities.RutaAplicacion(mstrAppKey)));
        return host_.utilities.CarpetaVecina(application, ObtenerMensaje(message::exportFolder));
    });
}

void frmCatalogador::AccionExportarDatosGrilla() {
    trap("AccionExportarDatosGrilla", [this] {
        SaveDialog dialog;
        dialog.folder = ObtenerDirInicial();
        dialog.file = replaceText(ObtenerMensaje(message::exportFileName), "[p1]", caption(),
                                  Compare::binary);
        dialog.flags = saveDialogFlags;
        dialog.title = ObtenerMensaje(message::exportDialogTitle);
        dialog.filter = ObtenerMensaje(message::exportFileKinds);
        const std::optional<SaveChoice> choice = host_.surface.saveDialog(dialog);
        if (!choice || choice->path.empty()) return;
        saveGrid(host_, *this, grdGrilla, *choice);
        if (host_.messages.MostrarMensaje(ObtenerMensaje(message::openExportedFile), styleQuestion,
                                          mstrAppName) != answerYes)
            return;
        host_.surface.processEvents();
        host_.utilities.AbrirArchivo(choice->path);
    });
}

void frmCatalogador::AccionImprimirDatosGrilla() {
    trap("AccionImprimirDatosGrilla", [this] {
        const PointerDuring hourglass(host_.surface);
        const std::optional<PrinterChoice> choice = host_.printer.setUp(*this);
        if (!choice) return;
        vsPrinter vsPrint(host_.printer.fonts(), choice->page);
        PrepararImpresion(vsPrint);
        vsPrint.startDocument(caption());
        vsPrint.write("\r\n");
        {
            const UndrawnGrid undrawn(grdGrilla);
            vsPrint.renderGrid(grdGrilla);
        }
        vsPrint.endDocument();
        SetearFooter(vsPrint);
        host_.printer.show(*this, vsPrint.document(), *choice);
    });
}

void frmCatalogador::PrepararImpresion(vsPrinter& vsPrint) {
    trap("PrepararImpresion", [&] {
        vsPrint.pageSetting = pageSettingRules;
        vsPrint.headerFontName = printFont;
        vsPrint.header = mstrAppName;
        vsPrint.headerFontSize = headerFontSize;
        vsPrint.fontName = printFont;
    });
}

void frmCatalogador::SetearFooter(vsPrinter& vsPrint) {
    trap("SetearFooter", [&] {
        vsPrint.fontSize = footerFontSize;
        vsPrint.fontName = formFont;
        const std::string date = shortDateTime(host_.utilities.Ahora());
        const int pages = vsPrint.pageCount();
        for (int page = 1; page <= pages; ++page) {
            vsPrint.startOverlay(page);
            vsPrint.moveTo(vsPrint.marginLeft(), vsPrint.marginBottomLine() + footerDistance);
            vsPrint.writeAligned(date, print_align::left);
            vsPrint.writeAligned("Talvo Software", print_align::centre);
            vsPrint.writeAligned(decimalText(page) + " de " + decimalText(pages),
                                 print_align::right);
            vsPrint.endOverlay();
        }
    });
}

}  // namespace catalogador
