#include "adapters/script/scripted_services.h"

#include "runtime/convert.h"

namespace catalogador::script {

namespace {

class TracedQuestions : public clsAccesos {
  public:
    TracedQuestions(std::unique_ptr<clsAccesos> real, Transcript& transcript,
                    TranscriptStatements& statements)
        : real_(std::move(real)), transcript_(transcript), statements_(statements) {}

    std::string PermisosOpcion(rdoConnection& connection, const std::string& appKey,
                               const std::string& option, std::int16_t company) override {
        transcript_.trace(
            {{"event", "access"}, {"option", option}, {"company", company}, {"appKey", appKey}});
        const TranscriptStatements::Quiet quiet(statements_);
        return real_->PermisosOpcion(connection, appKey, option, company);
    }

    void UsuarioActual(rdoConnection& connection, const std::string& appKey,
                       std::int32_t& user) override {
        const TranscriptStatements::Quiet quiet(statements_);
        real_->UsuarioActual(connection, appKey, user);
    }

  private:
    std::unique_ptr<clsAccesos> real_;
    Transcript& transcript_;
    TranscriptStatements& statements_;
};

}  // namespace

void TracedUtilities::traceCall(const char* call, const std::string& argument, const Json& result) {
    transcript_.trace(
        {{"event", "service"}, {"call", call}, {"argument", argument}, {"result", result}});
}

std::int32_t TracedUtilities::ProximoCodigo(rdoConnection& connection, const std::string& name) {
    const TranscriptStatements::Quiet quiet(statements_);
    const std::int32_t code = real_.ProximoCodigo(connection, name);
    traceCall("ProximoCodigo", name, code);
    return code;
}

Date ScriptedUtilities::serverDate(rdoConnection& connection) {
    return answers_.clock ? *answers_.clock : TracedUtilities::serverDate(connection);
}

Date TracedUtilities::serverDate(rdoConnection& connection) {
    const TranscriptStatements::Quiet quiet(statements_);
    return real_.FechaServidor(connection);
}

Date TracedUtilities::FechaServidor(rdoConnection& connection) {
    const Date date = serverDate(connection);
    traceCall("FechaServidor", "", isoText(date));
    return date;
}

void ScriptedUtilities::AbrirArchivo(const std::string& path) {
    transcript().print({{"event", "file-opened"}, {"path", path}});
}

void ScriptedUtilities::MostrarAyuda(Window& /*window*/, int command, std::int32_t data) {
    transcript().print({{"event", "help"}, {"command", command}, {"data", data}});
}

std::unique_ptr<clsAccesos> TracedAccess::create() {
    return std::make_unique<TracedQuestions>(real_.create(), transcript_, statements_);
}

}  // namespace catalogador::script
