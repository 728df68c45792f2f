#pragma once
#include "platform/controls/record_grid.h"
#include "platform/controls/window.h"

namespace catalogador {

/// A window with a control of each kind, and rows in its grid.
class SmallWindow : public Window {
  public:
    explicit SmallWindow(Surface& surface) : Window(surface) {
        for (Control* control : {static_cast<Control*>(&text), static_cast<Control*>(&label),
                                 static_cast<Control*>(&combo), static_cast<Control*>(&check),
                                 static_cast<Control*>(&grid)})
            add(*control);
        combo.addItem("España", 724);
        combo.addItem("Francia", 250);
        commandBars.addAction(3, "Nuevo", "", "", "");
        commandBars.addAction(6, "Grabar", "", "", "");
        commandBars.setEnabled(6, false);
        grid.setFormatString("Nombre|Código|");
        for (const char* name : {"Ana", "Bea", "Carla"}) grid.setText(grid.addRow(), 0, name);
    }

    TextBox text{"txtTexto1"};
    Label label{"lblTexto1"};
    ComboBox combo{"cmbValor1"};
    CheckBox check{"chkValor1"};
    RecordGrid grid{"grdGrilla"};
};

}  // namespace catalogador
