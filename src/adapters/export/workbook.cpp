#include "adapters/export/workbook.h"

#include <xlsxwriter.h>

#include <cerrno>
#include <cstring>
#include <vector>

#include "adapters/export/shown_rows.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr int mostRows = LXW_ROW_MAX - 1;
constexpr std::size_t longestName = 31;
constexpr double twipsPerCharacter = 105;
constexpr double cellPadding = 0.7;
constexpr lxw_color_t headerFill = 0xDEE6F0;

std::size_t utf16Units(std::string_view text) {
    std::size_t units = 0;
    for (const char byte : text) {
        const auto code = static_cast<unsigned char>(byte);
        if ((code & 0xC0U) != 0x80U) units += code >= 0xF0U ? 2 : 1;
    }
    return units;
}

/// A workbook that is being written. Ends with close(), or without a usable file.
class Workbook {
  public:
    explicit Workbook(const ReplacedFile& file) : file_(file), folder_(file.folder()) {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        // Beside the target, so that a full disk shows in one place.
        options.tmpdir = folder_.data();
        book_ = workbook_new_opt(file.path().c_str(), &options);
        if (book_ == nullptr) file.fail(std::strerror(errno));
    }
    ~Workbook() {
        if (book_ != nullptr) workbook_close(book_);
    }
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    void addSheet(const std::string& name) {
        sheet_ = workbook_add_worksheet(book_, name.c_str());
        if (sheet_ == nullptr) file_.fail("no sheet can be called " + name);
    }
    lxw_format* addFormat(int alignment) {
        lxw_format* format = workbook_add_format(book_);
        constexpr int left = 1;
        constexpr int centre = 4;
        constexpr int right = 7;
        if (alignment == left) format_set_align(format, LXW_ALIGN_LEFT);
        if (alignment == centre) format_set_align(format, LXW_ALIGN_CENTER);
        if (alignment == right) format_set_align(format, LXW_ALIGN_RIGHT);
        return format;
    }
    [[nodiscard]] lxw_worksheet* sheet() const { return sheet_; }
    void check(lxw_error error) const {
        if (error != LXW_NO_ERROR) file_.fail(lxw_strerror(error));
    }
    void close() {
        // The library does not look whether its own temporary file could be written.
        const bool kept = std::fflush(sheet_->optimize_tmpfile) == 0 &&
                          std::ferror(sheet_->optimize_tmpfile) == 0;
        const std::string reason = std::strerror(errno);
        const lxw_error error = workbook_close(std::exchange(book_, nullptr));
        if (!kept) file_.fail(reason);
        if (error != LXW_NO_ERROR)
            file_.fail(errno != 0 ? std::strerror(errno) : lxw_strerror(error));
    }

  private:
    const ReplacedFile& file_;
    std::string folder_;
    lxw_workbook* book_ = nullptr;
    lxw_worksheet* sheet_ = nullptr;
};

struct SheetColumn {
    int gridColumn = 0;
    ColumnKind kind;
    lxw_format* format = nullptr;
};

std::vector<SheetColumn> columnsOf(const RecordGrid& grid, Workbook& book,
                                   const Regional& regional) {
    std::vector<SheetColumn> columns;
    for (const int column : shownColumns(grid)) {
        SheetColumn made{column, kindOfColumn(grid, column, regional), nullptr};
        made.format = book.addFormat(made.kind.alignment);
        if (made.kind.decimals > 0) {
            const std::string zeros(static_cast<std::size_t>(made.kind.decimals), '0');
            format_set_num_format(made.format, ("0." + zeros).c_str());
        }
        columns.push_back(made);
    }
    return columns;
}

void writeHeader(const RecordGrid& grid, Workbook& book, const std::vector<SheetColumn>& columns) {
    lxw_format* style = book.addFormat(0);
    format_set_bold(style);
    format_set_bg_color(style, headerFill);
    format_set_bottom(style, LXW_BORDER_THIN);
    lxw_col_t number = 0;
    for (const SheetColumn& column : columns) {
        book.check(worksheet_write_string(book.sheet(), 0, number,
                                          grid.header(column.gridColumn).c_str(), style));
        const double width = grid.columnWidth(column.gridColumn) / twipsPerCharacter + cellPadding;
        book.check(worksheet_set_column(book.sheet(), number, number, width, nullptr));
        ++number;
    }
    worksheet_freeze_panes(book.sheet(), 1, 0);
}

lxw_error writeCell(const RecordGrid& grid, int row, lxw_worksheet* sheet, lxw_row_t sheetRow,
                    lxw_col_t sheetColumn, const SheetColumn& column, const Regional& regional) {
    if (column.kind.kind == ColumnKind::Kind::boolean) {
        const CheckState state = grid.check(row, column.gridColumn);
        if (state == CheckState::none) return LXW_NO_ERROR;
        return worksheet_write_boolean(sheet, sheetRow, sheetColumn,
                                       state == CheckState::checked ? 1 : 0, column.format);
    }
    const std::string text(grid.text(row, column.gridColumn));
    if (text.empty()) return LXW_NO_ERROR;
    if (column.kind.kind == ColumnKind::Kind::number)
        return worksheet_write_number(sheet, sheetRow, sheetColumn,
                                      plainNumber(text, regional).value_or(0), column.format);
    return worksheet_write_string(sheet, sheetRow, sheetColumn, text.c_str(), column.format);
}

void writeRows(const RecordGrid& grid, Workbook& book, const std::vector<SheetColumn>& columns,
               const ReplacedFile& file, const GridFileOptions& options) {
    const int rows = grid.visibleRows();
    for (int n = 0; n < rows; ++n) {
        lxw_col_t number = 0;
        for (const SheetColumn& column : columns) {
            const lxw_error error =
                writeCell(grid, grid.visibleRow(n), book.sheet(), static_cast<lxw_row_t>(n + 1),
                          number, column, options.regional);
            if (error == LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED)
                file.fail("row " + std::to_string(n + 1) +
                          " has a text that is too long for a workbook; the text format takes it");
            book.check(error);
            ++number;
        }
        tellProgress(options, n + 1, rows);
    }
    if (!columns.empty())
        worksheet_autofilter(book.sheet(), 0, 0, static_cast<lxw_row_t>(rows),
                             static_cast<lxw_col_t>(columns.size() - 1));
}

}  // namespace

std::string sheetName(const std::string& title) {
    std::string name;
    for (const char character : title)
        name += std::string_view("[]:*?/\\").find(character) == std::string_view::npos ? character
                                                                                       : ' ';
    while (utf16Units(name) > longestName) {
        while (!name.empty() && (static_cast<unsigned char>(name.back()) & 0xC0U) == 0x80U)
            name.pop_back();
        name.pop_back();
    }
    const auto bare = [](char character) { return character == '\'' || character == ' '; };
    while (!name.empty() && bare(name.back())) name.pop_back();
    while (!name.empty() && bare(name.front())) name.erase(0, 1);
    // A spreadsheet program keeps this name for itself.
    if (upperCase(name) == "HISTORY") name += "_";
    return name.empty() ? "1" : name;
}

void writeWorkbook(const RecordGrid& grid, const ReplacedFile& file,
                   const GridFileOptions& options) {
    if (grid.visibleRows() > mostRows)
        file.fail("a workbook has no more than " + std::to_string(mostRows) +
                  " rows; filter the list or take the text format");
    Workbook book(file);
    book.addSheet(sheetName(options.title));
    const std::vector<SheetColumn> columns = columnsOf(grid, book, options.regional);
    writeHeader(grid, book, columns);
    writeRows(grid, book, columns, file, options);
    book.close();
}

}  // namespace catalogador
