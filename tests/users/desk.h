#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "adapters/script/windowless_surface.h"
#include "adapters/services/messages.h"
#include "adapters/services/utilities.h"
#include "component/clsCatalogador.h"
#include "form/frmCatalogador.h"
#include "plain_services.h"

namespace catalogador::test {

/// A user who answers Yes to every question and remembers what else was said.
class YesSurface : public script::WindowlessSurface {
  public:
    int messageBox(const std::string& text, int style, const std::string& title) override;
    void errorBox(const ErrorNotice& error) override;

    /// Notices and errors, in the order in which they were shown.
    std::vector<std::string> told;
};

/// The component on a connection of its own, with the real services and a user in the place of a
/// window.
class Desk {
  public:
    explicit Desk(std::unique_ptr<rdoConnection> connection);

    /// Opens the screen of a view, lets the user work on it and closes it.
    void open(std::int16_t view, const std::function<void(frmCatalogador&)>& work);
    /// What the user was told since the last question.
    std::vector<std::string> takeTold();

    /// Whether one of the texts says that nobody knows whether a save is stored.
    static bool isUnknown(const std::vector<std::string>& told);

    rdoConnection& connection() { return *connection_; }

  private:
    std::unique_ptr<rdoConnection> connection_;
    YesSurface surface_;
    services::Utilities utilities_{services::Settings("", {}), Regional{}, "", nullptr};
    services::SurfaceMessages messages_{surface_};
    PlainAccess access_;
    PlainLanguages languages_;
    PlainGridFiles gridFiles_;
    PlainPrinter printer_;
    Host host_{surface_,   utilities_, messages_, access_,
               languages_, gridFiles_, printer_,  Regional{}};
    clsCatalogador component_{host_};
};

}  // namespace catalogador::test
