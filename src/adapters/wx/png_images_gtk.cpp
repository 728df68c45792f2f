#include <wx/imagpng.h>

#include "adapters/wx/png_images.h"

namespace catalogador::wx {

void usePngImages() {
    if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
}

}  // namespace catalogador::wx
