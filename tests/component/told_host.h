#pragma once
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "adapters/odbc/odbc_connection.h"
#include "blank_surface.h"
#include "modules/modLenguaje.h"
#include "plain_services.h"
#include "platform/host.h"
#include "runtime/error.h"

namespace catalogador::test {

/// Keeps what the user is told.
class ToldMessages : public clsMensajes {
  public:
    struct Error {
        std::string text;
        std::string title;
        std::string detail;
        std::string context;
        std::string task;
    };
    std::vector<std::string> notices;
    std::vector<Error> errors;
    int language = -1;

    int MostrarMensaje(const std::string& text, int, const std::string&) override {
        notices.push_back(text);
        return 1;
    }
    void MostrarError(const std::string& text, const std::string& title, const std::string& detail,
                      const std::string& context, const std::string& task) override {
        errors.push_back({text, title, detail, context, task});
    }
    void Idioma(std::uint8_t number) override { language = number; }
};

/// Settings from a map; what is not in it is not set.
class SettingUtilities : public PlainUtilities {
  public:
    std::map<std::string, Variant> settings;
    std::vector<std::string> keysAsked;

    Variant LeerConfiguracion(const std::string& key, const std::string& name) override {
        keysAsked.push_back(key);
        const auto found = settings.find(name);
        return found == settings.end() ? Variant(Null{}) : found->second;
    }
};

/// Libraries whose every text is "[p], [p]: number"; keeps what it is asked for and told.
class ToldLanguages : public LanguageLibraries {
  public:
    bool missing = false;
    std::vector<std::string> asked;
    std::string application;
    int secondary = -1;

    std::unique_ptr<clsResources> create(const std::string& progId) override {
        asked.push_back(progId);
        if (missing) throw RuntimeError(error_number::cannotCreateObject, "no " + progId);
        return std::make_unique<Texts>(*this);
    }

  private:
    class Texts : public clsResources {
      public:
        explicit Texts(ToldLanguages& owner) : owner_(owner) {}
        [[nodiscard]] std::string resLoad(std::int32_t id) const override {
            return "[p], [p]: " + std::to_string(id);
        }
        void IDAppName(const std::string& name) override { owner_.application = name; }
        void IDSLng(std::uint8_t number) override { owner_.secondary = number; }

      private:
        ToldLanguages& owner_;
    };
};

/// A surface that counts the forms it shows, and can fail to show one.
class CountingSurface : public BlankSurface {
  public:
    bool broken = false;
    int opened = 0;
    Rect shownAt;

    void open(Window&) override {
        ++opened;
        if (broken) throw RuntimeError(error_number::cannotCreateObject, "no window");
    }
    void showModal(Window& window) override { shownAt = window.place(); }
};

/// Everything a component needs, and an empty SQLite database in memory.
struct ToldHost {
    ToldHost() = default;
    /// The loaded library refers to this host's.
    ~ToldHost() { gobjLenguaje.reset(); }
    ToldHost(const ToldHost&) = delete;
    ToldHost& operator=(const ToldHost&) = delete;

    CountingSurface surface;
    SettingUtilities utilities;
    ToldMessages messages;
    PlainAccess access;
    ToldLanguages languages;
    PlainGridFiles gridFiles;
    PlainPrinter printer;
    Host host{surface,   utilities, messages, access,     languages,
              gridFiles, printer,   {},       "The host", nullptr};
    std::unique_ptr<odbc::OdbcConnection> connection =
        odbc::OdbcConnection::open(odbc::OdbcConnection::sqliteConnectionString(":memory:"));
};

}  // namespace catalogador::test
