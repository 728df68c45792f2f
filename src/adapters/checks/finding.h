#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace catalogador::checks {

/// An error is what a clerk meets as an error, what keeps records from being listed, saved or
/// deleted, and what lets data be harmed; a warning is what silently does something else than was
/// meant; a note is taste.
enum class Severity { error, warning, note };
std::string_view nameOf(Severity severity);

/// A kind of finding. Its number never changes and is never used again.
struct FindingKind {
    int number = 0;
    Severity severity = Severity::error;
    /// What is wrong; "[p1]" and "[p2]" stand for what was found.
    std::string_view message;
    /// What the clerk meets.
    std::string_view effect;
    /// How it is mended.
    std::string_view hint;
};

/// Every kind in the order of the numbers.
std::span<const FindingKind> findingKinds();
/// The kind of a number, which has to exist.
const FindingKind& findingKind(int number);
/// "CAT007".
std::string idOf(int number);
/// The number of "CAT007"; nullopt for what is no number of a kind.
std::optional<int> numberOf(std::string_view id);

/// Where something is wrong. Texts that are empty stand for nothing.
struct Place {
    std::optional<std::int64_t> view;
    std::string table;
    /// The column that is to blame; empty where the row or its absence is.
    std::string column;
    /// The field, or the order of the rule.
    std::string key;
};

/// Something that is wrong with the metadata.
struct Finding {
    int number = 0;
    Place place;
    std::string message;
    /// A statement that mends it; empty where somebody has to decide.
    std::string fix;

    [[nodiscard]] const FindingKind& kind() const { return findingKind(number); }
};

/// Collects findings.
class Findings {
  public:
    /// `first` and `second` take the place of "[p1]" and "[p2]". The finding is good until the next
    /// one is added.
    Finding& add(int number, Place place, std::string_view first = {},
                 std::string_view second = {});

    [[nodiscard]] const std::vector<Finding>& all() const { return findings_; }
    [[nodiscard]] std::vector<Finding> take() { return std::move(findings_); }

  private:
    std::vector<Finding> findings_;
};

}  // namespace catalogador::checks
