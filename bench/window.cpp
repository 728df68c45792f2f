// Measures the real window: how long it takes to open, beside an empty one, and to paint a page.
#include <wx/app.h>
#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/panel.h>
#include <wx/utils.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <typeinfo>

#include "adapters/wx/grid_view.h"
#include "adapters/wx/wx_surface.h"
#include "bench_host.h"
#include "modules/modIds.h"
#include "platform/controls/keys.h"
#include "runtime/error.h"

namespace catalogador::bench {

namespace {

using Clock = std::chrono::steady_clock;

/// Lets the loop run until a window of a class has been painted and nothing is left to do.
class PaintedWindow : public wxEventFilter {
  public:
    explicit PaintedWindow(const std::type_info& kind) : kind_(kind) {
        wxEvtHandler::AddFilter(this);
    }
    ~PaintedWindow() override { wxEvtHandler::RemoveFilter(this); }
    PaintedWindow(const PaintedWindow&) = delete;
    PaintedWindow& operator=(const PaintedWindow&) = delete;

    int FilterEvent(wxEvent& event) override {
        const wxObject* painted = event.GetEventObject();
        if (event.GetEventType() == wxEVT_PAINT && painted != nullptr && typeid(*painted) == kind_)
            painted_ = true;
        return Event_Skip;
    }
    void wait() {
        wxGUIEventLoop loop;
        const wxEventLoopActivator activate(&loop);
        while (!painted_) loop.DispatchTimeout(1);
        while (loop.Pending()) loop.Dispatch();
    }

  private:
    const std::type_info& kind_;
    bool painted_ = false;
};

void openEmpty() {
    report("empty_window", secondsOf([] {
               PaintedWindow painted(typeid(wxPanel));
               auto* frame =
                   new wxFrame(nullptr, wxID_ANY, "Empty", wxDefaultPosition, wxSize(640, 480));
               new wxPanel(frame);
               frame->Show();
               painted.wait();
           }));
}

void openView(wx::WxSurface& surface, BenchHost& host, std::int16_t view) {
    PaintedWindow painted(typeid(wx::GridView));
    const auto start = Clock::now();
    surface.setModalRunner([&](Window& window) {
        painted.wait();
        const auto shown = std::chrono::duration<double>(Clock::now() - start).count();
        report("open_window", shown);
        window.requestClose();
    });
    host.activate(view);
}

wx::GridView* gridViewIn(wxWindow& window) {
    for (wxWindow* child : window.GetChildren()) {
        if (auto* view = dynamic_cast<wx::GridView*>(child)) return view;
        if (wx::GridView* view = gridViewIn(*child)) return view;
    }
    return nullptr;
}

/// Paints the page that begins at a visible row; gives the seconds that took.
double paintPage(wx::GridView& view, RecordGrid& grid, int first, wxBitmap& bitmap) {
    wxMemoryDC dc(bitmap);
    dc.SetFont(view.GetFont());
    return processorSecondsOf([&] {
        grid.setTopRow(grid.visibleRow(std::min(first, grid.visibleRows() - 1)));
        view.paint(dc);
    });
}

/// Whether there is anything but background in the lowest rows of a page.
bool drawsLastRow(const wxBitmap& page) {
    const wxImage image = page.ConvertToImage();
    constexpr int lowest = 60;
    for (int y = image.GetHeight() - lowest; y < image.GetHeight() - lowest / 2; ++y)
        for (int x = 0; x < image.GetWidth() / 4; ++x)
            if (image.GetRed(x, y) < 100) return true;
    return false;
}

void paintPages(wx::WxSurface& surface, BenchHost& host, std::int16_t view, int rounds) {
    surface.setModalRunner([&](Window& window) {
        RecordGrid& grid = dynamic_cast<frmCatalogador&>(window).grdGrilla;
        auto* frame = dynamic_cast<wxFrame*>(surface.nativeWindow(window));
        frame->SetSize(0, 0, 1280, 900);
        // The new size goes through the window manager and the form's own layout, step by step.
        constexpr int pageOfABigWindow = 30;
        for (int step = 0; step < 200 && grid.rowsThatFit() < pageOfABigWindow; ++step) {
            wxMilliSleep(10);
            surface.processEvents();
            wxTheApp->ProcessPendingEvents();
        }
        wx::GridView* grids = gridViewIn(*frame);
        wxBitmap bitmap(grids->GetClientSize());
        const auto measurePages = [&](const std::string& name) {
            for (int round = 0; round < rounds; ++round) {
                const int count = grid.visibleRows();
                report(name + "_first", paintPage(*grids, grid, 0, bitmap));
                report(name + "_middle", paintPage(*grids, grid, count / 2 + round, bitmap));
                report(name + "_last", paintPage(*grids, grid, count - 1, bitmap));
            }
        };
        report("page_rows", grid.rowsThatFit());
        measurePages("paint");
        report("last_row_drawn", drawsLastRow(bitmap) ? 1 : 0);
        grid.filter(LikePattern("*A*"));
        grid.sort(1, sort_order::descending);
        measurePages("paint_filtered_sorted");
        window.requestClose();
    });
    host.activate(view);
}

/// Opens the list of a combo and a record while the combo has that many entries.
void measureCombo(wx::WxSurface& surface, frmCatalogador& form, ComboBox& combo, int entries) {
    const std::string number = std::to_string(entries);
    combo.clear();
    for (int entry = 0; entry < entries; ++entry)
        combo.addItem("Entry " + std::to_string(entry), entry);
    surface.processEvents();
    report("edit_" + number, processorSecondsOf([&] {
               form.commandBars.execute(action::modify);
               surface.processEvents();
           }));
    form.setFocus(combo);
    surface.processEvents();
    report("list_" + number, processorSecondsOf([&] {
               combo.openList();
               surface.processEvents();
           }));
    combo.closeList(false);
    form.commandBars.execute(action::cancel);
    surface.processEvents();
}

void measureCombos(wx::WxSurface& surface, BenchHost& host, std::int16_t view, int rounds) {
    surface.setModalRunner([&](Window& window) {
        auto& combo = dynamic_cast<ComboBox&>(*window.find("cmbValor1"));
        constexpr int few = 10;
        constexpr int many = 50'000;
        for (int round = 0; round < rounds; ++round)
            for (const int entries : {few, many})
                measureCombo(surface, dynamic_cast<frmCatalogador&>(window), combo, entries);
        window.requestClose();
    });
    host.activate(view);
}

/// From a key in the list to the row that it selects being drawn.
void measureKeys(wx::WxSurface& surface, BenchHost& host, std::int16_t view, int rounds) {
    surface.setModalRunner([&](Window& window) {
        window.setFocus(dynamic_cast<frmCatalogador&>(window).grdGrilla);
        surface.processEvents();
        for (int round = 0; round < rounds; ++round)
            report("key", processorSecondsOf([&] {
                       window.pressKey(key::down);
                       surface.processEvents();
                   }));
        window.requestClose();
    });
    host.activate(view);
}

int measure(const std::string& what, const std::string& connection, std::int16_t view, int rounds) {
    constexpr std::int16_t spanish = 1;
    wx::WxSurface surface(spanish);
    if (what == "empty") {
        openEmpty();
        return 0;
    }
    BenchHost host(connection, surface);
    if (what == "open")
        openView(surface, host, view);
    else if (what == "paint")
        paintPages(surface, host, view, rounds);
    else if (what == "combo")
        measureCombos(surface, host, view, rounds);
    else if (what == "keys")
        measureKeys(surface, host, view, rounds);
    else
        return 2;
    return 0;
}

}  // namespace

int run(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "usage: bench_window empty|open|paint|combo|keys CONNECTION VIEW ROUNDS\n";
        return 2;
    }
    try {
        return measure(argv[1], argv[2], static_cast<std::int16_t>(std::atoi(argv[3])),
                       std::atoi(argv[4]));
    } catch (const std::exception& error) {
        std::cerr << "bench_window: " << error.what() << '\n';
        return 1;
    }
}

}  // namespace catalogador::bench

int main(int argc, char** argv) {
    return catalogador::bench::run(argc, argv);
}
