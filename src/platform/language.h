#pragma once
#include <cstdint>
#include <memory>
#include <string>

namespace catalogador {

/// A loaded language library.
class clsResources {
  public:
    virtual ~clsResources() = default;
    /// The text of a resource (message number + 1000). Raises RuntimeError for an unknown id.
    [[nodiscard]] virtual std::string resLoad(std::int32_t id) const = 0;
    /// Name of the calling component.
    virtual void IDAppName(const std::string& name) = 0;
    /// Secondary language number.
    virtual void IDSLng(std::uint8_t number) = 0;
};

/// Where language libraries come from.
class LanguageLibraries {
  public:
    virtual ~LanguageLibraries() = default;
    /// Creates the object of a ProgID such as "LNG_QTX_001.clsResources". Raises RuntimeError
    /// (cannotCreateObject) with a description that says what is missing.
    virtual std::unique_ptr<clsResources> create(const std::string& progId) = 0;
};

}  // namespace catalogador
