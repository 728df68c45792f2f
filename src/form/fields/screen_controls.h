#pragma once
#include <array>
#include <cstddef>
#include <cstdint>

#include "form/fields/text_field.h"
#include "form/fields/value_field.h"
#include "form/fields/yes_no_field.h"
#include "platform/controls/record_grid.h"

namespace catalogador {

/// The controls of the maintenance screen under the names that hosts and scripts know, where they
/// were designed, and the fields that they make up.
class ScreenControls {
  public:
    ScreenControls();

    Panel picBackColor{"picBackColor"};
    Label lblTexto1{"lblTexto1"}, lblTexto2{"lblTexto2"};
    Label lblValor1{"lblValor1"}, lblValor2{"lblValor2"}, lblValor3{"lblValor3"};
    /// Companion of chkValorSiNo, which carries its own caption; never shown.
    Label lblValorSiNo{"lblValorSiNo"};
    TextBox txtTexto1{"txtTexto1"}, txtTexto2{"txtTexto2"};
    TextBox txtValor1{"txtValor1"}, txtValor2{"txtValor2"}, txtValor3{"txtValor3"};
    ComboBox cmbValor1{"cmbValor1"}, cmbValor2{"cmbValor2"}, cmbValor3{"cmbValor3"};
    CheckBox chkValor1{"chkValor1"}, chkValor2{"chkValor2"}, chkValor3{"chkValor3"};
    CheckBox chkValorSiNo{"chkValorSiNo"};
    RecordGrid grdGrilla{"grdGrilla"};

    [[nodiscard]] const std::array<TextField*, 2>& textFields() const { return textFields_; }
    [[nodiscard]] const std::array<ValueField*, 3>& valueFields() const { return valueFields_; }
    [[nodiscard]] YesNoField& yesNoField() { return yesNo_; }
    /// All fields, in the order in which Enter and the checks go through them.
    [[nodiscard]] const std::array<Field*, 6>& fields() const { return fields_; }

    /// What all fields hold, to see whether they have changed.
    [[nodiscard]] std::string contentsOfFields() const;

    /// Required flag (2k) and duplicate flag (2k + 1) of field k, in the order of fields(); 1 means
    /// on.
    std::array<std::uint8_t, 12> mbytReglasCampo{};
    /// Whether the yes/no field of a new record is ticked.
    bool mblnSiNoDatosCombo = false;

  private:
    [[nodiscard]] std::span<std::uint8_t, 2> rulesOf(std::size_t field) {
        return std::span<std::uint8_t, 2>(mbytReglasCampo.data() + 2 * field, 2);
    }
    void placeDesign();

    ShortTextField texto1_{"TextoCorto", "CTeTextoCorto", lblTexto1, txtTexto1, rulesOf(0)};
    LongTextField texto2_{"TextoLargo", "CTeTextoLargo", lblTexto2, txtTexto2, rulesOf(1)};
    ValueField valor1_{"Valor1",  "CTeValor1", lblValor1, txtValor1,
                       cmbValor1, chkValor1,   rulesOf(2)};
    ValueField valor2_{"Valor2",  "CTeValor2", lblValor2, txtValor2,
                       cmbValor2, chkValor2,   rulesOf(3)};
    ValueField valor3_{"Valor3",  "CTeValor3", lblValor3, txtValor3,
                       cmbValor3, chkValor3,   rulesOf(4)};
    YesNoField yesNo_{"ValorSiNo",  "CTeSiNo1",         lblValorSiNo,
                      chkValorSiNo, mblnSiNoDatosCombo, rulesOf(5)};
    std::array<TextField*, 2> textFields_{&texto1_, &texto2_};
    std::array<ValueField*, 3> valueFields_{&valor1_, &valor2_, &valor3_};
    std::array<Field*, 6> fields_{&texto1_, &texto2_, &valor1_, &valor2_, &valor3_, &yesNo_};
};

}  // namespace catalogador
