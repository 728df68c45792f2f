#include "platform/controls/rows/cell_order.h"

#include <algorithm>
#include <array>
#include <bit>

#include "platform/controls/rows/cell_number.h"
#include "platform/controls/rows/folded_column.h"

namespace catalogador {

namespace {

/// Shorter runs are not worth the tables of the sort by bytes, or any preparation at all.
constexpr std::size_t shortRun = 24;
constexpr std::size_t mediumRun = 160;
/// Texts that are equal for so long are compared one by one from there on.
constexpr std::size_t deepestLevel = 32;

/// A row and what it is sorted by at the moment: its number, or a few bytes of its folded text,
/// which begins at `place`.
struct Entry {
    std::uint64_t key;
    std::uint32_t row;
    FoldedColumn::Place place;
};
using Entries = std::vector<Entry>;

bool lessKey(const Entry& left, const Entry& right) {
    return left.key < right.key;
}

/// A whole number in the order of the numbers.
std::uint64_t numberKey(double number) {
    const auto bits = std::bit_cast<std::uint64_t>(number + 0.0);
    constexpr std::uint64_t sign = std::uint64_t{1} << 63U;
    return (bits & sign) != 0 ? ~bits : bits | sign;
}

/// Sorts by key, equal ones as they are: byte by byte, the last one first, those left out that are
/// the same in all keys.
void sortByBytes(Entry* first, std::size_t count, Entries& spare) {
    std::uint64_t differing = 0;
    for (std::size_t i = 1; i < count; ++i) differing |= first[i].key ^ first[0].key;
    spare.resize(std::max(spare.size(), count));
    Entry* from = first;
    Entry* to = spare.data();
    for (unsigned shift = 0; shift < 64; shift += 8) {
        if (((differing >> shift) & 0xFFU) == 0) continue;
        std::array<std::uint32_t, 257> starts{};
        for (std::size_t i = 0; i < count; ++i) ++starts[((from[i].key >> shift) & 0xFFU) + 1];
        for (std::size_t digit = 1; digit < 256; ++digit) starts[digit] += starts[digit - 1];
        for (std::size_t i = 0; i < count; ++i)
            to[starts[(from[i].key >> shift) & 0xFFU]++] = from[i];
        std::swap(from, to);
    }
    if (from != first) std::copy(from, from + count, first);
}

void sortByKey(Entry* first, std::size_t count, Entries& spare) {
    if (count < mediumRun)
        std::stable_sort(first, first + count, lessKey);
    else
        sortByBytes(first, count, spare);
}

/// Sorts rows by their folded texts: by eight bytes, and what is equal then by the next eight.
class TextOrder {
  public:
    TextOrder(const FoldedColumn& texts, bool descending)
        : texts_(texts), flip_(descending ? ~std::uint64_t{0} : 0) {}

    void sort(Entry* first, std::size_t count, std::size_t level) {
        for (; count > 1; ++level) {
            if (level > deepestLevel) return sortWhole(first, count);
            if (count < shortRun) return sortFew(first, count, level);
            for (std::size_t i = 0; i < count; ++i)
                first[i].key = texts_.key(first[i].place, level) ^ flip_;
            if (!allEqual(first, count)) return sortLevel(first, count, level);
            if (!goesOn(*first)) return sortEnded(first, count);
        }
    }

  private:
    void sortLevel(Entry* first, std::size_t count, std::size_t level) {
        sortByKey(first, count, spare_);
        for (std::size_t from = 0; from < count;) {
            std::size_t to = from + 1;
            while (to < count && first[to].key == first[from].key) ++to;
            if (to - from > 1) {
                if (goesOn(first[from]))
                    sort(first + from, to - from, level + 1);
                else
                    sortEnded(first + from, to - from);
            }
            from = to;
        }
    }
    static bool allEqual(const Entry* first, std::size_t count) {
        return std::all_of(first + 1, first + count,
                           [&](const Entry& entry) { return entry.key == first->key; });
    }
    [[nodiscard]] bool goesOn(const Entry& entry) const {
        return FoldedColumn::goesOn(entry.key ^ flip_);
    }
    /// Texts that seem to have ended: equal ones, unless they hold zeros.
    void sortEnded(Entry* first, std::size_t count) const {
        const std::size_t size = texts_.at(first->row).size();
        const bool sameSize = std::all_of(first + 1, first + count, [&](const Entry& entry) {
            return texts_.at(entry.row).size() == size;
        });
        if (!sameSize || texts_.at(first->row).find('\0') != std::string_view::npos)
            sortWhole(first, count);
    }
    void sortWhole(Entry* first, std::size_t count) const {
        const bool descending = flip_ != 0;
        std::stable_sort(first, first + count, [&](const Entry& left, const Entry& right) {
            const std::string_view one = texts_.at((descending ? right : left).row);
            return one < texts_.at((descending ? left : right).row);
        });
    }
    /// By insertion, which is quick for a few.
    void sortFew(Entry* first, std::size_t count, std::size_t level) const {
        for (std::size_t i = 1; i < count; ++i) {
            const Entry entry = first[i];
            std::size_t to = i;
            for (; to > 0 && precedes(entry, first[to - 1], level); --to) first[to] = first[to - 1];
            first[to] = entry;
        }
    }
    [[nodiscard]] bool precedes(const Entry& left, const Entry& right, std::size_t level) const {
        for (;; ++level) {
            const auto one = texts_.key(left.place, level);
            const auto other = texts_.key(right.place, level);
            if (one != other) return (one ^ flip_) < (other ^ flip_);
            if (FoldedColumn::goesOn(one)) continue;
            return flip_ == 0 ? texts_.at(left.row) < texts_.at(right.row)
                              : texts_.at(right.row) < texts_.at(left.row);
        }
    }

    const FoldedColumn& texts_;
    std::uint64_t flip_;
    Entries spare_;
};

/// The rows by kind of cell.
struct Kinds {
    std::vector<std::uint32_t> empty;
    Entries numbers;
    Entries texts;
};

/// What kinds of cell there are, and the keys of the numbers, by stored row.
class CellKinds {
  public:
    CellKinds(const PackedTexts& texts, std::size_t rows) : kinds_(rows, Kind::empty), keys_(rows) {
        for (std::size_t row = 0; row < texts.rows(); ++row) {
            const std::string_view text = texts.at(row);
            if (text.empty()) continue;
            const auto number = cellNumber(text);
            kinds_[row] = number ? Kind::number : Kind::text;
            if (number) keys_[row] = numberKey(*number);
        }
    }
    [[nodiscard]] Kinds inOrder(const std::vector<std::uint32_t>& order) const {
        Kinds kinds;
        for (std::size_t n = 0; n < kinds_.size(); ++n) {
            const auto row = order.empty() ? static_cast<std::uint32_t>(n) : order[n];
            if (kinds_[row] == Kind::empty)
                kinds.empty.push_back(row);
            else
                (kinds_[row] == Kind::number ? kinds.numbers : kinds.texts)
                    .push_back({keys_[row], row, 0});
        }
        return kinds;
    }

  private:
    enum class Kind : std::uint8_t { empty, number, text };

    std::vector<Kind> kinds_;
    std::vector<std::uint64_t> keys_;
};

void sortNumbers(Entries& numbers, bool descending) {
    if (numbers.empty()) return;
    Entries spare;
    for (Entry& entry : numbers)
        if (descending) entry.key = ~entry.key;
    sortByKey(numbers.data(), numbers.size(), spare);
}

}  // namespace

std::vector<std::uint32_t> rowsInOrder(const PackedTexts& texts, std::vector<std::uint32_t> order,
                                       std::size_t rows, bool descending) {
    Kinds kinds = CellKinds(texts, rows).inOrder(order);
    sortNumbers(kinds.numbers, descending);
    if (!kinds.texts.empty()) {
        const FoldedColumn folded(texts);
        for (Entry& entry : kinds.texts) entry.place = folded.place(entry.row);
        TextOrder(folded, descending).sort(kinds.texts.data(), kinds.texts.size(), 0);
    }
    order.clear();
    order.reserve(rows);
    const auto addEntries = [&](const Entries& entries) {
        for (const Entry& entry : entries) order.push_back(entry.row);
    };
    if (descending) addEntries(kinds.texts);
    if (descending) addEntries(kinds.numbers);
    order.insert(order.end(), kinds.empty.begin(), kinds.empty.end());
    if (!descending) addEntries(kinds.numbers);
    if (!descending) addEntries(kinds.texts);
    const bool asStored = std::is_sorted(order.begin(), order.end());
    return asStored ? std::vector<std::uint32_t>() : order;
}

}  // namespace catalogador
