#include "adapters/wx/field_layout.h"

#include <algorithm>

#include "adapters/wx/appearance.h"
#include "adapters/wx/field_views.h"
#include "platform/controls/fields.h"
#include "platform/controls/record_grid.h"

namespace catalogador::wx {

namespace {

/// Twips between the fields and the panel's edge.
constexpr int rightMargin = 120;
/// Pixels at 96 dpi between the longest caption and the fields.
constexpr int captionGap = 8;
constexpr int narrowestField = 40;

struct Row {
    FieldView* caption = nullptr;
    FieldView* field = nullptr;
};

bool isCheck(const FieldView& view) {
    return dynamic_cast<const CheckBox*>(&view.control()) != nullptr;
}

std::vector<Row> rowsOf(const std::vector<FieldView*>& views) {
    std::vector<Row> rows;
    FieldView* caption = nullptr;
    for (FieldView* view : views) {
        if (dynamic_cast<const RecordGrid*>(&view->control()) != nullptr) continue;
        if (dynamic_cast<const Label*>(&view->control()) != nullptr) {
            caption = view;
        } else {
            rows.push_back({isCheck(*view) ? nullptr : caption, view});
            caption = nullptr;
        }
    }
    return rows;
}

/// Where the fields begin that have their caption beside them.
int columnOf(const std::vector<Row>& rows, int limit) {
    int column = 0;
    int left = limit;
    int widest = 0;
    for (const Row& row : rows) {
        if (row.caption == nullptr) continue;
        const wxRect caption = row.caption->modelPlace();
        const int gap = row.caption->native().FromDIP(captionGap);
        left = std::min(left, caption.x);
        column = std::max(
            {column, row.field->modelPlace().x, caption.x + row.caption->wantedWidth() + gap});
        widest = std::max(widest, row.field->wantedWidth());
    }
    return std::max(left, std::min(column, limit - std::min(widest, (limit - left) / 2)));
}

/// Gives the height in pixels that the row takes.
int placeRow(const Row& row, int column, int limit, int shift) {
    const wxRect model = row.field->modelPlace();
    wxRect place = model;
    place.y += shift;
    if (row.caption != nullptr) place.x = column;
    const int room = std::max(narrowestField, limit - place.x);
    place.width = std::min(std::max(model.width, row.field->wantedWidth()), room);
    place.height = std::max(model.height, row.field->heightIn(place.width));
    int height = place.height;
    if (row.caption != nullptr) {
        wxWindow& label = row.caption->native();
        wxRect beside = row.caption->modelPlace();
        beside.width = std::max(1, column - beside.x - label.FromDIP(captionGap));
        beside.height = row.caption->heightIn(beside.width);
        // The first line of the caption is level with the text of the field.
        const int indent = std::max(0, (place.height - label.GetCharHeight()) / 2);
        beside.y = place.y + indent;
        height = std::max(height, beside.height + 2 * indent);
        row.caption->setPlace(beside);
    }
    row.field->setPlace(place);
    return height;
}

/// The list gets what is left above the status line, below every field even where the model has one
/// lower than the top of the list.
void placeList(FieldView& list, int panelWidth, int below, int shift) {
    wxRect place = list.modelPlace();
    const int bottom = place.y + place.height - statusHeight(list.native());
    place.y = std::max(place.y + shift, below);
    place.height = std::max(0, bottom - place.y);
    place.width = std::min(place.width, std::max(0, panelWidth - place.x));
    list.setPlace(place);
}

}  // namespace

void layOutFields(const std::vector<FieldView*>& views, const wxSize& panel) {
    if (views.empty()) return;
    const int limit = panel.x - pixelsOf(views.front()->native(), rightMargin);
    const std::vector<Row> rows = rowsOf(views);
    const int column = columnOf(rows, limit);
    int shift = 0;
    int below = 0;
    for (const Row& row : rows) {
        const wxRect model = row.field->modelPlace();
        const int height = placeRow(row, column, limit, shift);
        below = std::max(below, model.y + shift + height);
        shift += height - model.height;
    }
    for (FieldView* view : views)
        if (dynamic_cast<const RecordGrid*>(&view->control()) != nullptr)
            placeList(*view, panel.x, below, shift);
}

}  // namespace catalogador::wx
