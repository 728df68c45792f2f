#pragma once
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "com/automation/automation_object.h"
#include "com/automation/com_ptr.h"
#include "com/component/interface.h"

namespace catalogador::test {

/// COM for as long as it lives, in an apartment of one thread as the screens of hosts have it.
class Apartment {
  public:
    Apartment() { CoInitialize(nullptr); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

/// An object by its registered name.
com::AutomationObject created(const wchar_t* progId);
/// The public class as a compiled host holds it.
com::ComPtr<com::_clsCatalogador> createdComponent();
/// A copy of the demonstration database that nothing else uses, as a connection of vemDatos.
class DemoConnection {
  public:
    DemoConnection();
    ~DemoConnection();
    DemoConnection(const DemoConnection&) = delete;
    DemoConnection& operator=(const DemoConnection&) = delete;

    [[nodiscard]] const com::AutomationObject& object() const { return connection_; }
    /// The first value of a query.
    [[nodiscard]] Variant value(const std::string& sql) const;

  private:
    std::string file_;
    com::AutomationObject connection_;
};

/// The same members without anything else, as the library of another maker offers them.
com::ComPtr<IDispatch> asForeign(IDispatch* object);

/// What a call by name gives: its result, or the code of its failure.
struct Outcome {
    HRESULT result = S_OK;
    com::AutomationValue value;
    EXCEPINFO info{};
};
/// Arguments in the order in which they are written.
Outcome invoked(IDispatch* object, DISPID member, WORD kind, std::vector<VARIANT> arguments);

/// Closes the boxes that come up on this thread's process, and keeps their texts.
class BoxCloser {
  public:
    BoxCloser();
    ~BoxCloser();
    BoxCloser(const BoxCloser&) = delete;
    BoxCloser& operator=(const BoxCloser&) = delete;
    [[nodiscard]] std::vector<std::string> texts();
    /// How many there were up to now.
    [[nodiscard]] std::size_t count() const { return count_; }

  private:
    void run();

    std::atomic<bool> ended_ = false;
    std::atomic<std::size_t> count_ = 0;
    std::vector<std::string> texts_;
    std::thread thread_;
};

/// An exported function of the component's library.
template <class Function>
Function exported(const char* name) {
    static const HMODULE library = LoadLibraryW(L"vemCatalogador.dll");
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

/// What the component's library says of going.
HRESULT canUnload();

/// The texts of the one box that a new object shows for a connection that was closed.
std::string boxOfAClosedConnection();

/// The settings of this user while it lives.
class SettingsFile {
  public:
    explicit SettingsFile(const std::string& content);
    ~SettingsFile();
    SettingsFile(const SettingsFile&) = delete;
    SettingsFile& operator=(const SettingsFile&) = delete;

  private:
    std::filesystem::path file_;
};

/// The text of a message in the Spanish library, up to the name of a procedure in it.
std::string messageText(std::int32_t number);

VARIANT integer(SHORT value);
VARIANT longInteger(LONG value);
/// Freed by whoever uses it.
VARIANT text(const char* value);
VARIANT omitted();

}  // namespace catalogador::test
