#include "adapters/export/workbook.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "adapters/export/shown_rows.h"
#include "adapters/export/workbook_check.h"
#include "adapters/export/workbook_text.h"
#include "adapters/system/open_file.h"
#include "runtime/error.h"

namespace catalogador::exporting {

namespace {

constexpr int mostRows = LXW_ROW_MAX - 1;
constexpr std::size_t longestText = 32767;
constexpr double widestColumn = 255;
constexpr double twipsPerCharacter = 105;
constexpr double cellPadding = 0.7;
constexpr lxw_color_t headerFill = 0xDEE6F0;

[[noreturn]] void refuseWorkbook(const std::string& target, const std::string& reason) {
    throw RuntimeError(error_number::invalidProcedureCall,
                       "The file " + target + " could not be written: " + reason +
                           ". Take the text format, or filter the list; what was there before is "
                           "as it was");
}

/// A workbook that is being written. Ends with close(), or without a usable file.
class Workbook {
  public:
    Workbook(const system::ReplacedFile& file, std::string target)
        : file_(file), target_(std::move(target)), folder_(system::narrowPath(file.folder())) {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        // Beside the target, so that a full disk shows in one place.
        options.tmpdir = folder_.data();
        book_ = workbook_new_opt(system::narrowPath(file.path()).c_str(), &options);
        if (book_ == nullptr) file.fail(std::strerror(errno));
    }
    ~Workbook() {
        if (book_ == nullptr) return;
        // The library would keep it open, and with it the room that it takes on the disk.
        if (sheet_ != nullptr && sheet_->optimize_tmpfile != nullptr)
            std::fclose(std::exchange(sheet_->optimize_tmpfile, nullptr));
        lxw_workbook_free(book_);
    }
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    void addSheet(const std::string& name) {
        sheet_ = workbook_add_worksheet(book_, name.c_str());
        if (sheet_ == nullptr) file_.fail(std::strerror(errno));
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
    /// The library does not look whether its own intermediate file could be written.
    void checkWritten() const {
        if (std::ferror(sheet_->optimize_tmpfile) != 0) file_.fail(std::strerror(errno));
    }
    void putText(lxw_row_t row, lxw_col_t column, const std::string& text, lxw_format* format) {
        const bool fits = text.size() <= longestText || utf16Units(text) <= longestText;
        if (!fits) refuse(row, "a text that is too long for a workbook");
        if (!workbookHolds(text)) refuse(row, "a character that no workbook can hold");
        const lxw_error error =
            worksheet_write_string(sheet_, row, column, workbookText(text).c_str(), format);
        if (error == LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED)
            refuse(row, "a text that is too long for a workbook");
        check(error);
    }
    void close() {
        if (std::fflush(sheet_->optimize_tmpfile) != 0) file_.fail(std::strerror(errno));
        checkWritten();
        const auto sheetBytes = static_cast<std::uint64_t>(ftello(sheet_->optimize_tmpfile));
        errno = 0;
        const lxw_error error = workbook_close(std::exchange(book_, nullptr));
        if (error != LXW_NO_ERROR)
            file_.fail(errno != 0 ? std::strerror(errno) : lxw_strerror(error));
        if (!workbookIsWhole(file_.path(), sheetBytes))
            file_.fail("it could not be written to its end; the disk may be full");
    }

  private:
    [[noreturn]] void refuse(lxw_row_t row, const std::string& what) const {
        const std::string where = row == 0 ? "the header" : "row " + std::to_string(row);
        refuseWorkbook(target_, where + " has " + what);
    }

    const system::ReplacedFile& file_;
    std::string target_;
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
        if (made.kind.kind == ColumnKind::Kind::number) {
            // Without a format, 12 digits and more are shown with an exponent.
            std::string digits = "0";
            if (made.kind.decimals > 0)
                digits.append(".").append(static_cast<std::size_t>(made.kind.decimals), '0');
            format_set_num_format(made.format, digits.c_str());
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
        book.putText(0, number, grid.header(column.gridColumn), style);
        const double width = grid.columnWidth(column.gridColumn) / twipsPerCharacter + cellPadding;
        book.check(worksheet_set_column(book.sheet(), number, number, std::min(width, widestColumn),
                                        nullptr));
        ++number;
    }
    worksheet_freeze_panes(book.sheet(), 1, 0);
}

void writeCell(const RecordGrid& grid, int row, Workbook& book, lxw_row_t sheetRow,
               lxw_col_t sheetColumn, const SheetColumn& column, const Regional& regional) {
    if (column.kind.kind == ColumnKind::Kind::boolean) {
        const CheckState state = grid.check(row, column.gridColumn);
        if (state == CheckState::none) return;
        return book.check(worksheet_write_boolean(book.sheet(), sheetRow, sheetColumn,
                                                  state == CheckState::checked ? 1 : 0,
                                                  column.format));
    }
    const std::string text(grid.text(row, column.gridColumn));
    if (text.empty()) return;
    if (column.kind.kind == ColumnKind::Kind::number)
        return book.check(worksheet_write_number(book.sheet(), sheetRow, sheetColumn,
                                                 plainNumber(text, regional).value_or(0),
                                                 column.format));
    book.putText(sheetRow, sheetColumn, text, column.format);
}

void writeRows(const RecordGrid& grid, Workbook& book, const std::vector<SheetColumn>& columns,
               const GridFileOptions& options) {
    const int rows = grid.visibleRows();
    for (int n = 0; n < rows; ++n) {
        lxw_col_t number = 0;
        for (const SheetColumn& column : columns)
            writeCell(grid, grid.visibleRow(n), book, static_cast<lxw_row_t>(n + 1), number++,
                      column, options.regional);
        book.checkWritten();
        tellProgress(options, n + 1, rows);
    }
    if (!columns.empty())
        book.check(worksheet_autofilter(book.sheet(), 0, 0, static_cast<lxw_row_t>(rows),
                                        static_cast<lxw_col_t>(columns.size() - 1)));
}

}  // namespace

void writeWorkbook(const RecordGrid& grid, const system::ReplacedFile& file,
                   const std::string& target, const GridFileOptions& options) {
    if (grid.visibleRows() > mostRows)
        refuseWorkbook(target, "a workbook has no more than " + std::to_string(mostRows) + " rows");
    Workbook book(file, target);
    book.addSheet(sheetName(options.title));
    const std::vector<SheetColumn> columns = columnsOf(grid, book, options.regional);
    writeHeader(grid, book, columns);
    writeRows(grid, book, columns, options);
    book.close();
}

}  // namespace catalogador::exporting
