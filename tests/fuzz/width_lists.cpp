// The lists of the grid's headers, widths and alignments.
#include <cstdlib>

#include "fuzz_database.h"
#include "fuzz_host.h"
#include "modules/modErrores.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace catalogador;
    FuzzedDataProvider data(bytes, size);
    const std::string headers = data.ConsumeRandomLengthString(60);
    const std::string widths = data.ConsumeRandomLengthString(60);
    const std::string alignments = data.ConsumeRandomLengthString(60);
    fuzz::FuzzHost desk(data);
    fuzz::FuzzConnection connection(data, {{"ABMColumnasNombre", headers},
                                           {"ABMColumnasAncho", widths},
                                           {"ABMColumnasAlineacion", alignments},
                                           {"ABMConsulta", "Select"},
                                           {"ABMAnchoForm", 5000},
                                           {"ABMIDAyuda", 1}});
    desk.surface.setModalRunner([&](Window& window) {
        auto& form = dynamic_cast<frmCatalogador&>(window);
        for (int column = 0; column < form.grdGrilla.columns(); ++column)
            if (form.grdGrilla.columnWidth(column) < 0) std::abort();
        if (form.grdGrilla.columns() > 0) form.grdGrilla.userResized(0, 1234);
        window.requestClose();
    });
    clsCatalogador component(desk.host);
    component.Coneccion(&connection);
    component.Empresa(1);
    component.AppKey("VEM04");
    component.ActivarABM(data.ConsumeBool() ? 10 : 1, 0, "");
    return 0;
}
