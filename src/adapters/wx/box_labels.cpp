#include "adapters/wx/box_labels.h"

namespace catalogador::wx {

BoxLabels boxLabels(std::int16_t language) {
    switch (language) {
        case 2:
            return {
                "&Yes",     "&No",    "&OK",   "en",
                "Question", "Notice", "Error", "The file \"[p]\" is there already. Replace it?"};
        case 3:
            return {
                "&Sim",     "&Não",  "&OK",  "pt_BR",
                "Pergunta", "Aviso", "Erro", "O arquivo \"[p]\" já existe. Deseja substituí-lo?"};
        default:
            return {"&Sí",      "&No",
                    "&Aceptar", "es",
                    "Pregunta", "Aviso",
                    "Error",    "El archivo \"[p]\" ya existe. ¿Desea reemplazarlo?"};
    }
}

}  // namespace catalogador::wx
