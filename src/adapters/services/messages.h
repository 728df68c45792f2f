#pragma once
#include "platform/services.h"
#include "platform/surface.h"

namespace catalogador::services {

/// The message object over a surface's own boxes.
class SurfaceMessages : public clsMensajes {
  public:
    explicit SurfaceMessages(Surface& surface) : surface_(surface) {}

    int MostrarMensaje(const std::string& text, int style, const std::string& title) override;
    void MostrarError(const std::string& text, const std::string& title, const std::string& detail,
                      const std::string& context, const std::string& task) override;
    /// The texts of the boxes are given; their buttons and labels are the surface's.
    void Idioma(std::uint8_t number) override { surface_.speak(number); }

  private:
    Surface& surface_;
};

}  // namespace catalogador::services
