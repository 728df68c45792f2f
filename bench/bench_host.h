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
class BenchHost {
  public:
    /// `connection` is a connection string.
    BenchHost(const std::string& connection, Surface& surface);
    ~BenchHost();
    BenchHost(const BenchHost&) = delete;
    BenchHost& operator=(const BenchHost&) = delete;

    /// Opens the view; returns when the surface has shown the form.
    void activate(std::int16_t view);

  private:
    class NoFiles;
    class NoPrinter;

    Options options_;
    Services services_;
    std::unique_ptr<rdoConnection> connection_;
    services::SurfaceMessages messages_;
    std::unique_ptr<GridFiles> files_;
    std::unique_ptr<Printer> printer_;
    Host host_;
};

/// Prints one measure: its name and its value, in seconds unless the name says otherwise.
void report(const std::string& name, double value);

/// Seconds that a piece of work takes.
double secondsOf(const std::function<void()>& work);
/// Seconds of processor time that the program uses for it: for work that waits for nothing, on a
/// machine that is shared.
double processorSecondsOf(const std::function<void()>& work);

}  // namespace catalogador::bench
