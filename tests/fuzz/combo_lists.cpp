// The list of a combo's entries.
#include <cstdlib>

#include "fuzz_database.h"
#include "fuzz_host.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace catalogador;
    const std::string list(reinterpret_cast<const char*>(bytes), size);
    FuzzedDataProvider none(nullptr, 0);
    fuzz::FuzzHost desk(none);
    frmCatalogador form(desk.host);
    form.CargoComboXArray(list, form.cmbValor1);
    for (int index = 0; index < form.cmbValor1.listCount(); ++index) {
        // An entry is found by its code: itself, or an earlier one of the same code.
        const int found = form.cmbValor1.findItemData(form.cmbValor1.itemData(index));
        if (found < 0 || found > index) std::abort();
    }
    return 0;
}
