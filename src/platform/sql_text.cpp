#include "platform/sql_text.h"

#include <algorithm>

namespace catalogador {

namespace {

constexpr char noMark = '\0';
constexpr char valueMark = '\1';
constexpr char codesMark = '\2';

}  // namespace

DataRefused::DataRefused(std::string data)
    : RuntimeError(error_number::dataRefused, "This text cannot be used in a statement: " + data),
      data_(std::move(data)) {}

SqlText SqlText::ofData(std::string data, Kind kind) {
    SqlText sql(std::move(data));
    sql.marks_.assign(sql.text_.size(), kind == Kind::codes ? codesMark : valueMark);
    return sql;
}

std::vector<SqlText::Piece> SqlText::data() const {
    std::vector<Piece> pieces;
    std::size_t start = marks_.find_first_not_of(noMark);
    while (start != std::string::npos) {
        const char mark = marks_[start];
        const std::size_t end = std::min(marks_.find_first_not_of(mark, start), marks_.size());
        pieces.push_back({start, end - start, mark == codesMark ? Kind::codes : Kind::value});
        start = marks_.find_first_not_of(noMark, end);
    }
    return pieces;
}

SqlText& SqlText::operator+=(const SqlText& other) {
    text_ += other.text_;
    marks_ += other.marks_;
    return *this;
}

void SqlText::replace(std::string_view find, const SqlText& with, Compare how) {
    if (find.empty()) return;
    const auto touchesData = [&](const FoundText& place) {
        return std::string_view(marks_)
                   .substr(place.position, place.length)
                   .find_first_not_of(noMark) != std::string_view::npos;
    };
    SqlText replaced;
    std::size_t from = 0;
    for (FoundText hit = findTextFrom(text_, find, from, how);
         hit.position != std::string_view::npos; hit = findTextFrom(text_, find, from, how)) {
        const std::size_t before = hit.position - from;
        replaced.text_.append(text_, from, before).append(with.text_);
        replaced.marks_.append(marks_, from, before);
        if (touchesData(hit))
            replaced.marks_.append(with.text_.size(), valueMark);
        else
            replaced.marks_.append(with.marks_);
        from = hit.position + hit.length;
    }
    replaced.text_.append(text_, from);
    replaced.marks_.append(marks_, from);
    *this = std::move(replaced);
}

}  // namespace catalogador
