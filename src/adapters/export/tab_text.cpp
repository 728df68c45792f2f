#include "adapters/export/tab_text.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "adapters/export/shown_rows.h"
#include "adapters/system/open_file.h"

namespace catalogador::exporting {

namespace {

constexpr std::size_t flushedAt = 1U << 16U;

void appendCell(std::string& line, std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char character = text[i];
        if (character == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        const bool breaks = character == '\t' || character == '\r' || character == '\n';
        line += breaks ? ' ' : character;
    }
}

void appendCell(std::string& line, const RecordGrid& grid, int row, int column) {
    if (!grid.columnHasChecks(column)) return appendCell(line, grid.text(row, column));
    const CheckState state = grid.check(row, column);
    if (state != CheckState::none) line += state == CheckState::checked ? "TRUE" : "FALSE";
}

}  // namespace

void writeTabText(const RecordGrid& grid, const system::ReplacedFile& file,
                  const GridFileOptions& options) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> out(system::openFile(file.path(), "wb"),
                                                              std::fclose);
    if (!out) file.fail(std::strerror(errno));
    std::string text = "\xEF\xBB\xBF";
    const auto flush = [&] {
        if (std::fwrite(text.data(), 1, text.size(), out.get()) != text.size())
            file.fail(std::strerror(errno));
        text.clear();
    };
    const std::vector<int> columns = shownColumns(grid);
    const auto appendLine = [&](const auto& cell) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (i > 0) text += '\t';
            cell(columns[i]);
        }
        text += "\r\n";
    };
    appendLine([&](int column) { appendCell(text, grid.header(column)); });
    const int rows = grid.visibleRows();
    for (int n = 0; n < rows; ++n) {
        const int row = grid.visibleRow(n);
        appendLine([&](int column) { appendCell(text, grid, row, column); });
        if (text.size() >= flushedAt) flush();
        tellProgress(options, n + 1, rows);
    }
    flush();
    if (std::fflush(out.get()) != 0) file.fail(std::strerror(errno));
}

}  // namespace catalogador::exporting
