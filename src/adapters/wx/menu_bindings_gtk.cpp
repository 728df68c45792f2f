#include "adapters/wx/desktop_function.h"
#include "adapters/wx/menu_bindings.h"
#include "platform/controls/keys.h"

namespace catalogador::wx {

namespace {

/// The desktop's number of a key; 0 for a code that no key has.
unsigned nativeKey(const KeyBinding& binding) {
    constexpr unsigned nativeF1 = 0xFFBE;
    constexpr int functionKeys = 12;
    if (binding.modifiers == 0)
        return binding.keyCode >= key::f1 && binding.keyCode < key::f1 + functionKeys
                   ? nativeF1 + static_cast<unsigned>(binding.keyCode - key::f1)
                   : 0;
    static const auto keyOf = desktopFunction<unsigned (*)(unsigned)>("gdk_unicode_to_keyval");
    return keyOf != nullptr && isLetterKey(binding.keyCode)
               ? keyOf(static_cast<unsigned>(binding.keyCode))
               : 0;
}

}  // namespace

void showBinding(wxMenuItem& item, const KeyBinding& binding) {
    constexpr unsigned control = 4;
    using Child = void* (*)(void*);
    using LabelType = std::size_t (*)();
    using IsA = int (*)(void*, std::size_t);
    using Show = void (*)(void*, unsigned, unsigned);
    static const auto child = desktopFunction<Child>("gtk_bin_get_child");
    static const auto labelType = desktopFunction<LabelType>("gtk_accel_label_get_type");
    static const auto isA = desktopFunction<IsA>("g_type_check_instance_is_a");
    static const auto show = desktopFunction<Show>("gtk_accel_label_set_accel");
    const unsigned native = nativeKey(binding);
    if (native == 0 || child == nullptr || labelType == nullptr || isA == nullptr ||
        show == nullptr)
        return;
    void* label = child(item.GetMenuItem());
    if (label != nullptr && isA(label, labelType()) != 0)
        show(label, native, binding.modifiers == bindingControl ? control : 0);
}

}  // namespace catalogador::wx
