#pragma once
#include <cstdint>
#include <string>

#include "platform/grid_files.h"
#include "platform/language.h"
#include "platform/printer.h"
#include "platform/services.h"
#include "platform/surface.h"
#include "runtime/regional.h"

namespace catalogador {

/// Is called when a maintenance screen is about to load and when it has closed.
class FormListener {
  public:
    virtual ~FormListener() = default;
    virtual void formOpening(std::int16_t view) = 0;
    /// `lastCode` is the code of the last record saved or deleted on the screen, 0 for none.
    virtual void formClosed(std::int16_t view, std::int32_t lastCode) = 0;
};

/// Everything the component needs from the program that loads it. All references must outlive the
/// objects of the component.
struct Host {
    Surface& surface;
    clsUtilidades& utilities;
    clsMensajes& messages;
    AccessLibrary& access;
    LanguageLibraries& languages;
    GridFiles& gridFiles;
    Printer& printer;
    Regional regional;
    /// Title of the host application.
    std::string title = "Catalogador";
    FormListener* listener = nullptr;
};

}  // namespace catalogador
