#pragma once
#include <map>
#include <optional>
#include <string>

namespace catalogador::services {

/// Settings by key and name: those given with the call first, whatever the key, then the user's
/// INI file, where the key is the section:
///
///     [VEM04]
///     Idioma = 2
///
/// Lines that begin with ";" or "#" are comments. The file is UTF-8.
class Settings {
  public:
    /// Reads the file; one that does not exist holds no settings.
    Settings(const std::string& file, const std::map<std::string, std::string>& overrides);

    /// The file in the user's configuration folder, which need not exist; empty without a folder.
    static std::string defaultFile();

    /// Keys and names are compared without regard to case.
    [[nodiscard]] std::optional<std::string> read(const std::string& key,
                                                  const std::string& name) const;

  private:
    std::map<std::string, std::string> overrides_;
    std::map<std::string, std::string> stored_;
};

}  // namespace catalogador::services
