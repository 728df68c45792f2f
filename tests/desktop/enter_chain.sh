#!/usr/bin/env bash
# A whole subdivision entered by Enter alone, as fast as the keys come, with a country that is
# missing entered on the way.
. "$(dirname "$0")/desk.sh"

open_view 2 Subdivisiones
press ctrl+n
wait_focus txtTexto1
write QX-1
press Return
write Primera
press Return
wait_focus cmbValor1
press Down
take_picture combo
press F2
wait_window Países
wait_focus txtTexto1
press Escape
wait_focus grdGrilla
press ctrl+n
wait_focus txtTexto1
write QX
press Return
write Quimera
press Return
until_true question_shown
take_picture question
press Return
wait_focus grdGrilla
wait_query "Select CTeTextoLargo From genCodigoTexto Where CTeIDTipoVista = 1 And CTeTextoCorto = 'QX'" '[["Quimera"]]'
press alt+F4
until_true no_window_named Países
wait_window Subdivisiones
take_picture combo-again
press Return
wait_focus cmbValor2
press Down Return
until_true question_shown
press Return
wait_focus grdGrilla
take_picture saved
wait_query "Select s.CTeTextoLargo, p.CTeTextoLargo From genCodigoTexto s Join genCodigoTexto p On p.CTeIDTipoVista = 1 And p.CTeCodigo = s.CTeValor1 Where s.CTeTextoCorto = 'QX-1'" '[["Primera","Quimera"]]'
press alt+F4
end_view
