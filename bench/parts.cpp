// The parts of the record grid on rows made here, without a database.
#include <benchmark/benchmark.h>

#include <array>
#include <string>

#include "platform/controls/record_grid.h"

namespace catalogador {
namespace {

/// Numbers that look random and are the same in every run.
class Sequence {
  public:
    std::uint32_t next(std::uint32_t limit) {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return static_cast<std::uint32_t>(state_ >> 33U) % limit;
    }

  private:
    std::uint64_t state_ = 42;
};

void fill(RecordGrid& grid, int rows) {
    constexpr std::array<const char*, 8> names{"García", "Martínez",  "López", "Peña",
                                               "Ruiz",   "Fernández", "Díaz",  "Soto"};
    Sequence random;
    const auto name = [&] { return std::string(names.at(random.next(names.size()))); };
    grid.setColumns(0);
    grid.setFormatString("A|B|C|D");
    grid.setRedraw(false);
    for (int i = 1; i <= rows; ++i) {
        const int row = grid.addRow();
        grid.setCode(row, std::to_string(i));
        grid.setText(row, 0, name() + " " + name() + " " + std::to_string(random.next(100000)));
        grid.setText(row, 1, name() + " de " + name() + " y " + name());
        grid.setText(row, 2, std::to_string(random.next(100000)) + ",5");
        grid.setCheck(row, 3, random.next(2) == 0 ? CheckState::checked : CheckState::unchecked);
    }
    grid.setRedraw(true);
}

RecordGrid& filledGrid(int rows) {
    static RecordGrid grid("grid");
    if (grid.rows() != rows + RecordGrid::fixedRows) {
        grid.clearRows();
        fill(grid, rows);
    }
    return grid;
}

int rowsOf(const benchmark::State& state) {
    return static_cast<int>(state.range(0));
}

void countRows(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void appendRows(benchmark::State& state) {
    for (auto _ : state) {
        RecordGrid grid("grid");
        fill(grid, rowsOf(state));
        benchmark::DoNotOptimize(grid.rows());
    }
    countRows(state);
}

void filterWith(benchmark::State& state, const char* text) {
    RecordGrid& grid = filledGrid(rowsOf(state));
    const LikePattern pattern(text);
    for (auto _ : state) {
        grid.filter(pattern);
        benchmark::DoNotOptimize(grid.visibleRows());
    }
    grid.showAllRows();
    countRows(state);
}

void sortBy(benchmark::State& state, int column) {
    RecordGrid& grid = filledGrid(rowsOf(state));
    for (auto _ : state) {
        state.PauseTiming();
        grid.sort(1 - column / 2, sort_order::descending);
        state.ResumeTiming();
        grid.sort(column, sort_order::ascending);
    }
    countRows(state);
}

void findCode(benchmark::State& state) {
    RecordGrid& grid = filledGrid(rowsOf(state));
    for (auto _ : state) benchmark::DoNotOptimize(grid.findCode(rowsOf(state)));
}

#define CATALOGADOR_SIZES ->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond)

BENCHMARK(appendRows) CATALOGADOR_SIZES;
BENCHMARK_CAPTURE(filterWith, plain, "*MARTÍNEZ DE LÓPEZ*") CATALOGADOR_SIZES;
BENCHMARK_CAPTURE(filterWith, mostRows, "*E*") CATALOGADOR_SIZES;
BENCHMARK_CAPTURE(filterWith, wildcards, "*MART[IÍ]NEZ DE L?PEZ*") CATALOGADOR_SIZES;
BENCHMARK_CAPTURE(sortBy, text, 0) CATALOGADOR_SIZES;
BENCHMARK_CAPTURE(sortBy, number, 2) CATALOGADOR_SIZES;
BENCHMARK(findCode) CATALOGADOR_SIZES;

}  // namespace
}  // namespace catalogador

BENCHMARK_MAIN();
