// Measures the maintenance screen without a window, beside plain loops over the same texts.
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <vector>

#include "adapters/script/windowless_surface.h"
#include "bench_host.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::bench {

namespace {

double bytesInUse() {
    malloc_trim(0);
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

double bytesOfTexts(const RecordGrid& grid) {
    std::size_t bytes = 0;
    for (int row = RecordGrid::fixedRows; row < grid.rows(); ++row) {
        bytes += grid.code(row).size();
        for (int column = 0; column < grid.columns(); ++column)
            bytes += grid.text(row, column).size();
    }
    return static_cast<double>(bytes);
}

/// Waits until what a load left to the driver has been freed, which the user does not wait for.
void settle(frmCatalogador& form) {
    form.mrdoCBase->OpenResultset("Select 1")->Close();
}

void load(frmCatalogador& form, int rounds) {
    for (int round = 0; round < rounds; ++round)
        report("load_processor", processorSecondsOf([&] {
                   report("load", secondsOf([&] { form.CargarGrilla(); }));
                   settle(form);
               }));
    report("rows", form.grdGrilla.rows() - RecordGrid::fixedRows);
    report("text_bytes", bytesOfTexts(form.grdGrilla));
    // Forgets what earlier loads left, so that what is held is what one load needs.
    form.grdGrilla.clearRows();
    const double before = bytesInUse();
    form.CargarGrilla();
    settle(form);
    report("held_bytes", bytesInUse() - before);
}

/// All cells in upper case, one after another.
std::string foldedTexts(const RecordGrid& grid) {
    std::string folded;
    for (int column = 0; column < grid.columns(); ++column)
        for (int row = RecordGrid::fixedRows; row < grid.rows(); ++row)
            folded.append(upperCase(grid.text(row, column))).push_back('\0');
    return folded;
}

double occurrences(const std::string& text, const std::string& wanted) {
    const char* at = text.data();
    const char* const end = at + text.size();
    std::size_t count = 0;
    while (at < end) {
        const void* found =
            memmem(at, static_cast<std::size_t>(end - at), wanted.data(), wanted.size());
        if (found == nullptr) break;
        ++count;
        at = static_cast<const char*>(found) + wanted.size();
    }
    return static_cast<double>(count);
}

void filter(frmCatalogador& form, int rounds) {
    RecordGrid& grid = form.grdGrilla;
    const std::string folded = foldedTexts(grid);
    struct Case {
        const char* name;
        const char* text;
    };
    // No row, one row in a thousand or so, a third of them, and nearly all.
    for (const Case& each : {Case{"none", "xyzzy"}, Case{"few", "martínez lópez"},
                             Case{"many", "garcía"}, Case{"most", "a"}}) {
        const std::string plain = upperCase(each.text);
        for (int round = 0; round < rounds; ++round) {
            double count = 0;
            report(std::string("memmem_") + each.name,
                   processorSecondsOf([&] { count = occurrences(folded, plain); }));
            const LikePattern pattern("*" + plain + "*");
            report(std::string("filter_") + each.name, processorSecondsOf([&] {
                       grid.filter(pattern);
                       count = grid.visibleRows();
                   }));
            if (round == 0) report(std::string("shown_rows_") + each.name, count);
        }
    }
    for (int round = 0; round < rounds; ++round) {
        const LikePattern set("*MART[IÍ]NEZ L?PEZ*");
        report("wildcard_few", processorSecondsOf([&] { grid.filter(set); }));
        const LikePattern run("*GARC*MART*L?PEZ*");
        report("wildcard_run", processorSecondsOf([&] { grid.filter(run); }));
    }
    grid.showAllRows();
}

using Key = std::pair<std::uint64_t, std::uint32_t>;

std::vector<Key> keysOf(const RecordGrid& grid, int column) {
    std::vector<Key> keys;
    for (int row = RecordGrid::fixedRows; row < grid.rows(); ++row) {
        const std::string folded = foldCase(grid.text(row, column));
        std::uint64_t key = 0;
        for (std::size_t i = 0; i < sizeof key; ++i)
            key = (key << 8U) | (i < folded.size() ? static_cast<unsigned char>(folded[i]) : 0U);
        keys.emplace_back(key, static_cast<std::uint32_t>(row));
    }
    return keys;
}

void sort(frmCatalogador& form, int rounds) {
    RecordGrid& grid = form.grdGrilla;
    // Before anything is sorted otherwise than the listing came.
    const std::vector<Key> textKeys = keysOf(grid, 1);
    const std::vector<Key> numberKeys = keysOf(grid, 2);
    for (int round = 0; round < rounds; ++round) {
        std::vector<Key> keys = textKeys;
        report("std_sort_text", processorSecondsOf([&] { std::sort(keys.begin(), keys.end()); }));
        report("sort_text", processorSecondsOf([&] { grid.sort(1, sort_order::ascending); }));
        keys = numberKeys;
        report("std_sort_number", processorSecondsOf([&] { std::sort(keys.begin(), keys.end()); }));
        report("sort_number", processorSecondsOf([&] { grid.sort(2, sort_order::ascending); }));
        report("sort_date", processorSecondsOf([&] { grid.sort(3, sort_order::descending); }));
    }
}

void find(frmCatalogador& form, int rounds) {
    RecordGrid& grid = form.grdGrilla;
    const auto last = static_cast<std::int32_t>(leadingNumber(grid.code(grid.rows() - 1)));
    form.CargarGrilla();
    for (int round = 0; round < rounds; ++round) {
        report("find_code", processorSecondsOf([&] { (void)grid.findCode(last); }));
        form.mlngIdDato = last;
        report("position", processorSecondsOf([&] { form.PosicionarseGrilla(); }));
    }
}

void save(frmCatalogador& form, int rounds) {
    RecordGrid& grid = form.grdGrilla;
    for (int round = 0; round < rounds; ++round) {
        grid.select(RecordGrid::fixedRows + 1, 0);
        form.AccionModificar();
        form.txtTexto2.setText("Cambio " + decimalText(round));
        report("save", secondsOf([&] { form.AccionGrabar(); }));
        if (form.modo() != "0") throw RuntimeError(error_number::typeMismatch, "Nothing was saved");
    }
}

}  // namespace

int measure(const std::string& what, const std::string& connection, std::int16_t view, int rounds) {
    using Measure = void (*)(frmCatalogador&, int);
    const std::pair<const char*, Measure> measures[] = {
        {"load", load}, {"filter", filter}, {"sort", sort}, {"find", find}, {"save", save}};
    const auto* const found =
        std::find_if(std::begin(measures), std::end(measures),
                     [&](const auto& candidate) { return what == candidate.first; });
    if (found == std::end(measures)) return 2;
    script::WindowlessSurface surface;
    BenchHost host(connection, surface);
    surface.setModalRunner([&](Window& window) {
        found->second(dynamic_cast<frmCatalogador&>(window), rounds);
        window.requestClose();
    });
    host.activate(view);
    return 0;
}

}  // namespace catalogador::bench

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "usage: bench_screen load|filter|sort|find|save CONNECTION VIEW ROUNDS\n";
        return 2;
    }
    try {
        return catalogador::bench::measure(
            argv[1], argv[2], static_cast<std::int16_t>(std::atoi(argv[3])), std::atoi(argv[4]));
    } catch (const std::exception& error) {
        std::cerr << "bench_screen: " << error.what() << '\n';
        return 1;
    }
}
