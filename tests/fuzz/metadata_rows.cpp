// A screen whose metadata and records hold anything, with a user who does anything to it.
#include "fuzz_database.h"
#include "fuzz_host.h"
#include "platform/controls/keys.h"

namespace {

using namespace catalogador;

constexpr int mostInputs = 12;

void anyInput(frmCatalogador& form, FuzzedDataProvider& data) {
    switch (data.ConsumeIntegralInRange(0, 6)) {
        case 0:
            form.commandBars.execute(data.ConsumeIntegralInRange(0, 20));
            break;
        case 1:
            form.pressKey(data.ConsumeIntegralInRange(0, 255), data.ConsumeIntegralInRange(0, 3));
            break;
        case 2:
            form.typeCharacter(data.ConsumeIntegralInRange<std::uint32_t>(1, 0x10FFFF));
            break;
        case 3:
            form.grdGrilla.userClicked(data.ConsumeBool() ? MouseButton::left : MouseButton::right,
                                       data.ConsumeIntegralInRange(-1, form.grdGrilla.rows()),
                                       data.ConsumeIntegralInRange(-1, form.grdGrilla.columns()));
            break;
        case 4:
            if (form.grdGrilla.columns() > 0)
                form.grdGrilla.userResized(
                    data.ConsumeIntegralInRange(0, form.grdGrilla.columns() - 1),
                    data.ConsumeIntegralInRange(0, 100'000));
            break;
        case 5: {
            const auto& controls = form.controls();
            form.userFocused(
                *controls[data.ConsumeIntegralInRange<std::size_t>(0, controls.size() - 1)]);
            break;
        }
        default:
            form.txtTexto1.setText(data.ConsumeRandomLengthString(20));
            form.txtValor1.setText(data.ConsumeRandomLengthString(8));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    fuzz::FuzzHost desk(data);
    fuzz::FuzzConnection connection(data);
    int depth = 0;
    desk.surface.setModalRunner([&](Window& window) {
        auto& form = dynamic_cast<frmCatalogador&>(window);
        // Screens open screens, and bytes are few.
        if (++depth > 3) return window.requestClose();
        for (int i = 0; i < mostInputs && data.remaining_bytes() > 0 && !form.isClosed(); ++i)
            anyInput(form, data);
        window.requestClose();
    });
    clsCatalogador component(desk.host);
    component.Coneccion(&connection);
    component.Empresa(data.ConsumeIntegral<std::int16_t>());
    component.AppKey("VEM04");
    component.ActivarABM(data.ConsumeBool() ? 10 : data.ConsumeIntegralInRange<std::int16_t>(1, 17),
                         data.ConsumeIntegralInRange(-1, 3), data.ConsumeRandomLengthString(10));
    return 0;
}
