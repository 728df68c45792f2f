#include "adapters/script/state.h"

#include "form/frmCatalogador.h"
#include "runtime/text.h"

namespace catalogador::script {

namespace {

void addPlace(Json& object, const Rect& place) {
    object["left"] = place.left;
    object["top"] = place.top;
    object["width"] = place.width;
    object["height"] = place.height;
}

Json labelOf(const Label& label, const std::string& caption) {
    return {{"label", caption},
            {"labelVisible", label.visible()},
            {"labelEnabled", label.enabled()},
            {"labelLeft", label.left()},
            {"labelTop", label.top()},
            {"labelWidth", label.width()}};
}

void addControl(Json& field, const Control& control) {
    field["visible"] = control.visible();
    field["enabled"] = control.enabled();
    addPlace(field, control.place());
}

void addEnd(Json& field, const Control& control, const std::string& kind, const std::string& f2) {
    field["tag"] = control.tag;
    field["kind"] = kind;
    field["f2"] = f2;
    field["backColor"] = colorName(control.backColor());
}

Json textField(const Label& label, const TextBox& box) {
    Json field = labelOf(label, label.caption());
    addControl(field, box);
    field["text"] = box.text();
    field["maxLength"] = box.maxLength();
    field["selStart"] = box.selStart();
    field["selLength"] = box.selLength();
    addEnd(field, box, label.tag, box.tag);
    return field;
}

Json comboField(const ValueField& value) {
    Json field = labelOf(value.label(), value.label().caption());
    addControl(field, value.combo());
    Json items = Json::array();
    for (const ComboBox::Item& item : value.combo().items())
        items.push_back(Json::array({item.text, item.data}));
    field["items"] = std::move(items);
    field["index"] = value.combo().listIndex();
    addEnd(field, value.combo(), value.label().tag, value.box().tag);
    return field;
}

Json checkField(const Label& label, const std::string& caption, const CheckBox& check,
                const std::string& kind, const std::string& f2) {
    Json field = labelOf(label, caption);
    addControl(field, check);
    field["caption"] = check.caption();
    field["value"] = check.value();
    field["alignment"] = check.alignment();
    addEnd(field, check, kind, f2);
    return field;
}

Json yesNoField(const frmCatalogador& form) {
    const CheckBox& check = form.chkValorSiNo;
    // The tag tells both that the field is used and its F2 action.
    const bool onlyUse = check.tag == "0" || check.tag == "1";
    return checkField(form.lblValorSiNo, check.caption(), check, check.tag,
                      onlyUse ? "" : check.tag);
}

Json fieldsOf(const frmCatalogador& form) {
    Json fields = Json::object();
    for (const TextField* field : form.textFields())
        fields[field->box().name()] = textField(field->label(), field->box());
    for (const ValueField* field : form.valueFields())
        fields[field->box().name()] = textField(field->label(), field->box());
    for (const ValueField* field : form.valueFields())
        fields[field->combo().name()] = comboField(*field);
    for (const ValueField* field : form.valueFields())
        fields[field->check().name()] =
            checkField(field->label(), field->label().caption(), field->check(), field->label().tag,
                       field->box().tag);
    fields[form.chkValorSiNo.name()] = yesNoField(form);
    return fields;
}

Json appearanceOf(const RecordGrid& grid) {
    const GridAppearance& look = grid.appearance();
    return {{"gridLines", look.gridLines},
            {"wordWrap", look.wordWrap},
            {"backColorBkg", colorName(grid.backColor())},
            {"backColorFixed", colorName(look.backColorFixed)},
            {"foreColorFixed", colorName(look.foreColorFixed)},
            {"backColorSel", colorName(look.backColorSel)},
            {"foreColorSel", colorName(look.foreColorSel)},
            {"gridColor", colorName(look.gridColor)},
            {"borderStyle", look.borderStyle},
            {"headerHeight", look.headerHeight},
            {"rowHeightMin", look.rowHeightMin}};
}

Json gridOf(const RecordGrid& grid) {
    Json columns = Json::array();
    for (int column = 0; column < grid.columns(); ++column)
        columns.push_back({{"header", grid.header(column)},
                           {"width", grid.columnWidth(column)},
                           {"hidden", grid.columnHidden(column)},
                           {"boolean", grid.columnIsBoolean(column)}});
    Json state = {{"columns", std::move(columns)},
                  {"rows", grid.rows() - RecordGrid::fixedRows},
                  {"visible", grid.visibleRows()},
                  {"row", grid.row()},
                  {"topRow", grid.topRow()},
                  {"enabled", grid.enabled()},
                  {"tabStop", grid.tabStop()},
                  {"sort", {{"column", grid.sortColumn()}, {"order", grid.sortOrder()}}},
                  {"sortIndicator", grid.sortIndicator()}};
    addPlace(state, grid.place());
    state["redraw"] = grid.redraw();
    state["backColor"] = colorName(grid.backColor());
    state["appearance"] = appearanceOf(grid);
    return state;
}

Json actionsOf(const CommandBars& bars) {
    Json actions = Json::object();
    for (const Action& action : bars.actions())
        actions[decimalText(action.id)] = {{"caption", action.caption},
                                           {"tooltip", action.tooltip},
                                           {"enabled", action.enabled},
                                           {"checked", action.checked},
                                           {"icon", action.icon}};
    return actions;
}

const char* nameOf(WindowState state) {
    switch (state) {
        case WindowState::minimized:
            return "minimized";
        case WindowState::maximized:
            return "maximized";
        default:
            return "normal";
    }
}

}  // namespace

Json stateOf(frmCatalogador& form, int depth, int pointer) {
    Json state = {{"event", "state"},
                  {"view", form.mlngIdVista},
                  {"depth", depth},
                  {"caption", form.caption()}};
    addPlace(state, form.place());
    state["window"] = nameOf(form.state());
    state["mode"] = form.modo();
    state["idDato"] = form.mlngIdDato;
    state["idUltimo"] = form.mlngIdUltimo;
    state["focus"] = form.focus() == nullptr ? "" : form.focus()->name();
    state["pointer"] = pointer;
    state["decimal"] = form.decimalSeparator();
    state["thousands"] = form.thousandsSeparator();
    Json panel = Json::object();
    addPlace(panel, form.picBackColor.place());
    panel["backColor"] = colorName(form.picBackColor.backColor());
    state["panel"] = std::move(panel);
    state["fields"] = fieldsOf(form);
    state["grid"] = gridOf(form.grdGrilla);
    state["actions"] = actionsOf(form.commandBars);
    const TextBox& filter = form.commandBars.filterBox;
    state["filter"] = {
        {"open", form.filterInputOpen()}, {"visible", filter.visible()}, {"text", filter.text()}};
    return state;
}

}  // namespace catalogador::script
