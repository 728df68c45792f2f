#include "runtime/error.h"

#include "runtime/text.h"

namespace catalogador {

CurrentError& currentError() {
    thread_local CurrentError error;
    return error;
}

std::string errorText(std::int32_t number, const std::string& description) {
    return decimalText(number) + " - " + description;
}

}  // namespace catalogador
