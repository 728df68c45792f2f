#pragma once
#include <fuzzer/FuzzedDataProvider.h>

#include "adapters/script/windowless_surface.h"
#include "adapters/services/messages.h"
#include "component/clsCatalogador.h"
#include "form/frmCatalogador.h"
#include "plain_services.h"
#include "runtime/convert.h"

namespace catalogador::fuzz {

/// A desk without a window whose user answers as the bytes say.
class FuzzSurface : public script::WindowlessSurface {
  public:
    explicit FuzzSurface(FuzzedDataProvider& data) : data_(data) {}
    int messageBox(const std::string&, int, const std::string&) override {
        return data_.ConsumeBool() ? answerNo : answerYes;
    }

  private:
    FuzzedDataProvider& data_;
};

/// The conversions of values are the real ones.
class FuzzUtilities : public PlainUtilities {
  public:
    [[nodiscard]] std::string TextoDe(const Variant& value) const override {
        return toTextOrEmpty(value, Regional{});
    }
};

struct FuzzHost {
    explicit FuzzHost(FuzzedDataProvider& data) : surface(data) {}

    FuzzSurface surface;
    FuzzUtilities utilities;
    services::SurfaceMessages messages{surface};
    PlainAccess access;
    PlainLanguages languages;
    PlainGridFiles gridFiles;
    PlainPrinter printer;
    Host host{surface, utilities, messages, access, languages, gridFiles, printer, Regional{}};
};

}  // namespace catalogador::fuzz
