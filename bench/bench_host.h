#pragma once
#include <functional>
#include <memory>
#include <string>

#include "adapters/services/messages.h"
#include "apps/component.h"
#include "form/frmCatalogador.h"
#include "platform/host.h"

namespace catalogador::bench {

/// A host that opens one view of a database on a surface and hands the loaded form over, so that
/// what is measured is what a user of the program waits for.
class BenchHost : private FormListener {
  public:
    /// `connection` is a connection string.
    BenchHost(const std::string& connection, Surface& surface);
    ~BenchHost() override;
    BenchHost(const BenchHost&) = delete;
    BenchHost& operator=(const BenchHost&) = delete;

    /// Opens the view; returns when the surface has shown the form.
    void activate(std::int16_t view);
    /// The form while it is open.
    [[nodiscard]] frmCatalogador& form() const { return *form_; }

  private:
    class NoFiles;
    class NoPrinter;

    void formOpening(frmCatalogador& form) override { form_ = &form; }
    void formClosed(frmCatalogador&) override { form_ = nullptr; }

    Options options_;
    Services services_;
    std::unique_ptr<rdoConnection> connection_;
    services::SurfaceMessages messages_;
    std::unique_ptr<GridFiles> files_;
    std::unique_ptr<Printer> printer_;
    Host host_;
    frmCatalogador* form_ = nullptr;
};

/// Prints one measure: its name and its value, in seconds unless the name says otherwise.
void report(const std::string& name, double value);

/// Seconds that a piece of work takes.
double secondsOf(const std::function<void()>& work);
/// Seconds of processor time that the program uses for it: for work that waits for nothing, on a
/// machine that is shared.
double processorSecondsOf(const std::function<void()>& work);

}  // namespace catalogador::bench
