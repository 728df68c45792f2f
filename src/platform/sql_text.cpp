#include "platform/sql_text.h"

#include <algorithm>

namespace catalogador {

namespace {

constexpr char dataMark = '\1';

}  // namespace

SqlText SqlText::ofData(std::string text) {
    SqlText sql(std::move(text));
    sql.isData_.assign(sql.text_.size(), dataMark);
    return sql;
}

std::vector<SqlText::Piece> SqlText::data() const {
    std::vector<Piece> pieces;
    std::size_t start = isData_.find(dataMark);
    while (start != std::string::npos) {
        const std::size_t end = std::min(isData_.find('\0', start), isData_.size());
        pieces.push_back({start, end - start});
        start = isData_.find(dataMark, end);
    }
    return pieces;
}

SqlText& SqlText::operator+=(const SqlText& other) {
    text_ += other.text_;
    isData_ += other.isData_;
    return *this;
}

void SqlText::replace(std::string_view find, const SqlText& with, Compare how) {
    if (find.empty()) return;
    const auto touchesData = [&](const FoundText& place) {
        return std::string_view(isData_).substr(place.position, place.length).find(dataMark) !=
               std::string_view::npos;
    };
    SqlText replaced;
    std::size_t from = 0;
    for (FoundText hit = findTextFrom(text_, find, from, how);
         hit.position != std::string_view::npos; hit = findTextFrom(text_, find, from, how)) {
        const std::size_t before = hit.position - from;
        replaced.text_.append(text_, from, before).append(with.text_);
        replaced.isData_.append(isData_, from, before);
        if (touchesData(hit))
            replaced.isData_.append(with.text_.size(), dataMark);
        else
            replaced.isData_.append(with.isData_);
        from = hit.position + hit.length;
    }
    replaced.text_.append(text_, from);
    replaced.isData_.append(isData_, from);
    *this = std::move(replaced);
}

}  // namespace catalogador
