#pragma once
#include <new>
#include <string>
#include <string_view>

#include "modules/messages.h"
#include "platform/host.h"
#include "runtime/error.h"

namespace catalogador {

/// Number of the message that tells the user what could not be done when that procedure failed; 0
/// for a procedure without one.
std::int32_t taskMessage(std::string_view procedure);

/// Shows an error to the user: the text of `message` with every "[p]" replaced by the procedure's
/// name, "number - description" as the detail, and what could not be done in the user's words.
void reportError(Host& host, std::int32_t message, const std::string& procedure,
                 const std::string& applicationName, const RuntimeError& error);

/// The error trap of a procedure: runs the body; an error is reported under the procedure's name
/// and gives the failure value.
template <class Result, class Body>
Result trapped(Host& host, const char* procedure, const std::string& applicationName,
               Result failure, Body&& body) {
    currentError().clear();
    try {
        return body();
    } catch (const RuntimeError& error) {
        reportError(host, message::procedureFailed, procedure, applicationName, error);
    } catch (const std::bad_alloc&) {
        reportError(host, message::procedureFailed, procedure, applicationName,
                    RuntimeError(7, "Out of memory"));
    }
    return failure;
}

/// The same for a procedure without a result.
template <class Body>
void trapped(Host& host, const char* procedure, const std::string& applicationName, Body&& body) {
    trapped(host, procedure, applicationName, false, [&] {
        body();
        return true;
    });
}

/// Runs a statement of a sequence in which every error is ignored.
template <class Body>
void ignoringErrors(Body&& body) {
    try {
        body();
    } catch (const RuntimeError& error) {
        currentError() = {error.number(), error.description()};
    }
}

}  // namespace catalogador
