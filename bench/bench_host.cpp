#include "bench_host.h"

#include <chrono>
#include <cstdio>
#include <ctime>

#include "apps/connections.h"
#include "runtime/error.h"

namespace catalogador::bench {

namespace {

[[noreturn]] void notMeasured() {
    throw RuntimeError(error_number::invalidProcedureCall, "This is not measured");
}

class NoFonts : public FontMeasure {
  public:
    [[nodiscard]] int width(std::string_view, const PrintFont&) const override { notMeasured(); }
    [[nodiscard]] int lineHeight(const PrintFont&) const override { notMeasured(); }
};

Options optionsFor(const std::string& connection) {
    Options options;
    options.connectionString = connection;
    options.locale = "es_ES";
    return options;
}

}  // namespace

class BenchHost::NoFiles : public GridFiles {
  public:
    void save(const RecordGrid&, const std::string&, int, const GridFileOptions&) override {
        notMeasured();
    }
};

class BenchHost::NoPrinter : public Printer {
  public:
    std::optional<PrinterChoice> setUp(Window&) override { return std::nullopt; }
    void show(Window&, const PrintedDocument&, const PrinterChoice&) override {}
    [[nodiscard]] const FontMeasure& fonts() const override { return fonts_; }

  private:
    NoFonts fonts_;
};

BenchHost::BenchHost(const std::string& connection, Surface& surface)
    : options_(optionsFor(connection)),
      services_(servicesOf(options_)),
      connection_(openDatabase(options_)),
      messages_(surface),
      files_(std::make_unique<NoFiles>()),
      printer_(std::make_unique<NoPrinter>()),
      host_{surface,           *services_.utilities, messages_,
            *services_.access, *services_.languages, *files_,
            *printer_,         services_.regional,   "Bench"} {}

BenchHost::~BenchHost() = default;

void BenchHost::activate(std::int16_t view) {
    const auto component = componentOf(host_, options_, 1, *connection_);
    if (!component->ActivarABM(view, 0, ""))
        throw RuntimeError(error_number::invalidProcedureCall, "The view could not be opened");
}

void report(const std::string& name, double value) {
    std::printf("%s %.9g\n", name.c_str(), value);
    std::fflush(stdout);
}

double secondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double processorSecondsOf(const std::function<void()>& work) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    };
    const double start = now();
    work();
    return now() - start;
}

}  // namespace catalogador::bench
