#include "hosted.h"

namespace catalogador::test {
namespace {

/// Run while nothing is registered.
TEST(Manifest, LetsAHostUseTheLibrariesWithoutRegisteringThem) {
    const Apartment apartment;
    CLSID classId{};
    ASSERT_TRUE(FAILED(CLSIDFromProgID(L"Catalogador.clsCatalogador", &classId)))
        << "the library is registered";
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.lpSource = L"vemCatalogador.manifest";
    const HANDLE context = CreateActCtxW(&description);
    ASSERT_NE(context, INVALID_HANDLE_VALUE);
    ULONG_PTR cookie = 0;
    ASSERT_NE(ActivateActCtx(context, &cookie), 0);
    {
        const com::AutomationObject component = created(L"Catalogador.clsCatalogador");
        const com::AutomationObject connection = created(L"vemDatos.rdoConnection");
        EXPECT_EQ(component.idOf(L"ActivarABM"), com::member_id::activarABM);
        EXPECT_TRUE(connection.has(L"EstablishConnection"));
        EXPECT_EQ(com::variantOf(component.call(L"ActivarABM", {1}).get()), Variant(false));
    }
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
}

}  // namespace
}  // namespace catalogador::test
