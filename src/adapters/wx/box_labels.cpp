#include "adapters/wx/box_labels.h"

namespace catalogador {

BoxLabels boxLabels(std::int16_t language) {
    switch (language) {
        case 2:
            return {"&Yes", "&No", "&OK", "en", "Question", "Notice", "Error"};
        case 3:
            return {"&Sim", "&Não", "&OK", "pt_BR", "Pergunta", "Aviso", "Erro"};
        default:
            return {"&Sí", "&No", "&Aceptar", "es", "Pregunta", "Aviso", "Error"};
    }
}

}  // namespace catalogador
