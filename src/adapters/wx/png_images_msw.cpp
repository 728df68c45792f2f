#include <windows.h>
// windows.h comes first: the others build on it.
#include <ole2.h>
#include <wincodec.h>
#include <wx/image.h>
#include <wx/mstream.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

#include "adapters/wx/png_images.h"

namespace catalogador::wx {

namespace {

struct Releasing {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, Releasing>;

/// What a call hands out, or nothing when it fails.
template <class Interface, class Call>
Owned<Interface> made(Call call) {
    Interface* object = nullptr;
    return Owned<Interface>(SUCCEEDED(call(&object)) ? object : nullptr);
}

/// The picture as the system's own decoder reads it, in the order that the toolkit's pixels have
/// with their opacity behind them; null for what is no picture.
Owned<IWICFormatConverter> decoded(std::vector<char>& file) {
    const auto factory = made<IWICImagingFactory>([](IWICImagingFactory** object) {
        return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IWICImagingFactory, reinterpret_cast<void**>(object));
    });
    if (!factory) return nullptr;
    const auto stream =
        made<IWICStream>([&](IWICStream** object) { return factory->CreateStream(object); });
    if (!stream || FAILED(stream->InitializeFromMemory(reinterpret_cast<BYTE*>(file.data()),
                                                       static_cast<DWORD>(file.size()))))
        return nullptr;
    const auto decoder = made<IWICBitmapDecoder>([&](IWICBitmapDecoder** object) {
        return factory->CreateDecoderFromStream(stream.get(), nullptr, WICDecodeMetadataCacheOnLoad,
                                                object);
    });
    if (!decoder) return nullptr;
    const auto frame = made<IWICBitmapFrameDecode>(
        [&](IWICBitmapFrameDecode** object) { return decoder->GetFrame(0, object); });
    if (!frame) return nullptr;
    auto converter = made<IWICFormatConverter>(
        [&](IWICFormatConverter** object) { return factory->CreateFormatConverter(object); });
    if (!converter || FAILED(converter->Initialize(frame.get(), GUID_WICPixelFormat32bppBGRA,
                                                   WICBitmapDitherTypeNone, nullptr, 0,
                                                   WICBitmapPaletteTypeCustom)))
        return nullptr;
    return converter;
}

/// The toolkit takes pictures over as blocks of malloc.
bool copyPixels(IWICFormatConverter& source, wxImage& image) {
    UINT width = 0;
    UINT height = 0;
    if (FAILED(source.GetSize(&width, &height)) || width == 0 || height == 0) return false;
    const std::size_t pixels = std::size_t{width} * height;
    std::vector<BYTE> read(4 * pixels);
    if (FAILED(source.CopyPixels(nullptr, 4 * width, static_cast<UINT>(read.size()), read.data())))
        return false;
    auto* colours = static_cast<unsigned char*>(std::malloc(3 * pixels));
    auto* opacity = static_cast<unsigned char*>(std::malloc(pixels));
    for (std::size_t i = 0; i < pixels; ++i) {
        colours[3 * i] = read[4 * i + 2];
        colours[3 * i + 1] = read[4 * i + 1];
        colours[3 * i + 2] = read[4 * i];
        opacity[i] = read[4 * i + 3];
    }
    image.SetData(colours, static_cast<int>(width), static_cast<int>(height));
    image.SetAlpha(opacity);
    return true;
}

class PngHandler : public wxImageHandler {
  public:
    PngHandler() {
        m_name = "PNG file";
        m_extension = "png";
        m_type = wxBITMAP_TYPE_PNG;
        m_mime = "image/png";
    }
    bool LoadFile(wxImage* image, wxInputStream& stream, bool /*verbose*/, int /*index*/) override {
        wxMemoryOutputStream whole;
        stream.Read(whole);
        std::vector<char> file(whole.GetSize());
        whole.CopyTo(file.data(), file.size());
        const auto picture = decoded(file);
        return picture && copyPixels(*picture, *image);
    }
    bool SaveFile(wxImage* /*image*/, wxOutputStream& /*stream*/, bool /*verbose*/) override {
        return false;
    }

  protected:
    bool DoCanRead(wxInputStream& stream) override {
        constexpr unsigned char signature[] = {0x89, 'P', 'N', 'G'};
        unsigned char start[sizeof signature] = {};
        return stream.ReadAll(start, sizeof start) &&
               std::equal(std::begin(start), std::end(start), std::begin(signature));
    }
};

}  // namespace

void usePngImages() {
    if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new PngHandler);
}

}  // namespace catalogador::wx
