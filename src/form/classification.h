#pragma once
#include <string>

#include "runtime/text.h"

/// What is particular to view 10, the classifications.
namespace catalogador::classification {

/// The view has values 1 to 3.
constexpr int lastValue = 3;

/// Whether the view offers a value to the application with that key.
inline bool valueIsOffered(int value, const std::string& appKey) {
    return upperCase(appKey) == (value == lastValue ? "VEM01" : "VEM04");
}

}  // namespace catalogador::classification
