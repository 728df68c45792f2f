#include "platform/controls/fields.h"

#include <algorithm>
#include <limits>

#include "platform/controls/keys.h"
#include "platform/controls/pasted_text.h"
#include "platform/controls/window.h"
#include "runtime/error.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

namespace catalogador {

namespace {

/// The caption as it is drawn: a single "&" marks the next letter, two of them are one.
std::string drawnCaption(const std::string& caption) {
    std::string drawn;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) ++i;
        drawn += caption[i];
    }
    return drawn;
}

std::string utf8(char32_t character) {
    std::string text;
    appendCharacter(text, character);
    return text;
}

}  // namespace

void Label::setCaption(std::string caption) {
    caption_ = std::move(caption);
    if (window() != nullptr) setWidth(window()->surface().textWidth(drawnCaption(caption_)));
    changed();
}

int Panel::textWidth(std::string_view text) const {
    if (window() == nullptr) throw RuntimeError(error_number::objectNotSet, "Panel has no window");
    return window()->surface().textWidth(text);
}

void TextBox::setText(std::string text) {
    text_ = std::move(text);
    selStart_ = selLength_ = 0;
    setProblem({});
    entered();
    changed();
}

void TextBox::entered() {
    textOnEntry_ = textUndone_ = text_;
}

void TextBox::undo() {
    if (text_ == textOnEntry_) {
        text_ = textUndone_;
    } else {
        textUndone_ = text_;
        text_ = textOnEntry_;
    }
    select(0, lengthInCharacters(text_));
}

void TextBox::paste(std::string_view text) {
    const std::string line = pastedText(text);
    const std::size_t kept = lengthInCharacters(text_) - selLength_;
    const auto limit = static_cast<std::size_t>(maxLength_);
    const std::size_t room = limit == 0     ? std::numeric_limits<std::size_t>::max()
                             : limit > kept ? limit - kept
                                            : 0;
    const FittedText fitted = fittedText(line, room);
    if (!fitted.text.empty()) replaceSelection(fitted.text);
    if (fitted.cut && window() != nullptr) window()->surface().beep();
}

void TextBox::setMaxLength(int maxLength) {
    maxLength_ = std::max(0, maxLength);
    changed();
}

void TextBox::select(std::size_t start, std::size_t length) {
    const std::size_t size = lengthInCharacters(text_);
    selStart_ = std::min(start, size);
    selLength_ = std::min(length, size - selStart_);
    caretAtStart_ = false;
    changed();
}

void TextBox::userEdited(std::string text, std::size_t selStart, std::size_t selLength) {
    if (text != text_) setProblem({});
    text_ = std::move(text);
    const std::size_t size = lengthInCharacters(text_);
    selStart_ = std::min(selStart, size);
    selLength_ = std::min(selLength, size - selStart_);
}

void TextBox::replaceSelection(std::string_view with) {
    const std::size_t from = characterOffset(text_, selStart_);
    const std::size_t to = characterOffset(text_, selStart_ + selLength_);
    text_.replace(from, to - from, with);
    setProblem({});
    selStart_ += lengthInCharacters(with);
    selLength_ = 0;
    changed();
}

void TextBox::moveCaret(std::size_t to, bool extend) {
    const std::size_t anchor = caretAtStart_ ? selStart_ + selLength_ : selStart_;
    if (!extend) {
        select(to, 0);
        return;
    }
    select(std::min(anchor, to), anchor < to ? to - anchor : anchor - to);
    caretAtStart_ = to < anchor;
}

bool TextBox::defaultKey(int keyCode, int modifiers) {
    const std::size_t size = lengthInCharacters(text_);
    const std::size_t caret = caretAtStart_ ? selStart_ : selStart_ + selLength_;
    const bool extend = (modifiers & modifier::shift) != 0;
    switch (keyCode) {
        case key::left:
            moveCaret(selLength_ > 0 && !extend ? selStart_ : caret - (caret > 0 ? 1 : 0), extend);
            return true;
        case key::right:
            moveCaret(
                selLength_ > 0 && !extend ? selStart_ + selLength_ : std::min(caret + 1, size),
                extend);
            return true;
        case key::home:
            moveCaret(0, extend);
            return true;
        case key::end:
            moveCaret(size, extend);
            return true;
        case key::deleteKey:
            if (selLength_ == 0 && selStart_ < size) selLength_ = 1;
            replaceSelection({});
            return true;
        case key::backspace:
            if (selLength_ == 0 && selStart_ > 0) select(selStart_ - 1, 1);
            replaceSelection({});
            return true;
        case 'A':
            if ((modifiers & modifier::control) == 0) return false;
            select(0, size);
            return true;
        case 'Z':
            if (modifiers != modifier::control) return false;
            undo();
            return true;
        default:
            return false;
    }
}

void TextBox::defaultCharacter(char32_t character) {
    if (character < U' ' || character == 127) return;
    const std::size_t kept = lengthInCharacters(text_) - selLength_;
    if (maxLength_ > 0 && kept >= static_cast<std::size_t>(maxLength_)) return;
    replaceSelection(utf8(character));
}

void ComboBox::clear() {
    items_.clear();
    listIndex_ = marked_ = -1;
    listOpen_ = false;
    changed();
}

void ComboBox::addItem(std::string text, std::int32_t data) {
    items_.push_back({std::move(text), data});
    changed();
}

void ComboBox::setListIndex(int index) {
    if (index < -1 || index >= listCount())
        throw RuntimeError(error_number::invalidProcedureCall, "Invalid property value");
    // What is typed into a field that was emptied is about another record.
    if (index == -1) typeAhead_ = {};
    if (listIndex_ == index) return;
    listIndex_ = index;
    setProblem({});
    changed();
}

std::int32_t ComboBox::itemData(int index) const {
    if (index < 0 || index >= listCount())
        throw RuntimeError(error_number::invalidProcedureCall, "Invalid property array index");
    return items_[static_cast<std::size_t>(index)].data;
}

int ComboBox::findItemData(std::int32_t data) const {
    const auto found = std::find_if(items_.begin(), items_.end(),
                                    [&](const Item& item) { return item.data == data; });
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

void ComboBox::openList() {
    if (listOpen_) return;
    listOpen_ = true;
    marked_ = listIndex_;
    changed();
}

void ComboBox::closeList(bool choose) {
    if (!listOpen_) return;
    listOpen_ = false;
    changed();
    if (choose) setListIndex(marked_);
}

void ComboBox::mark(int index) {
    if (!listOpen_ || index == marked_ || index < -1 || index >= listCount()) return;
    marked_ = index;
    changed();
}

void ComboBox::goTo(int index) {
    if (listOpen_)
        mark(index);
    else
        setListIndex(index);
}

std::optional<int> ComboBox::moved(int keyCode) const {
    constexpr int page = 8;
    const int last = listCount() - 1;
    const auto within = [last](int index) { return std::clamp(index, 0, std::max(0, last)); };
    switch (keyCode) {
        case key::up:
            return within(current() - 1);
        case key::down:
            return within(current() + 1);
        case key::pageUp:
            return within(current() - page);
        case key::pageDown:
            return within(current() + page);
        case key::home:
            return within(0);
        case key::end:
            return within(last);
        default:
            return std::nullopt;
    }
}

bool ComboBox::takeKeyFirst(int keyCode, int modifiers) {
    const bool alt = (modifiers & modifier::alt) != 0;
    const bool upOrDown = keyCode == key::up || keyCode == key::down;
    const bool opens = keyCode == key::f4 || (alt && upOrDown);
    if (!listOpen_) {
        if (opens && modifiers == (alt ? modifier::alt : modifier::none)) openList();
        return listOpen_;
    }
    if (keyCode == key::escape) {
        closeList(false);
        return true;
    }
    if (opens) {
        closeList(true);
        return true;
    }
    if (defaultKey(keyCode, modifiers)) return true;
    if (keyCode == key::space && typeAhead_.underWay()) return false;
    // Every other key is meant for the field: it goes on with the marked entry as its choice.
    closeList(true);
    return keyCode == key::space;
}

bool ComboBox::defaultKey(int keyCode, int /*modifiers*/) {
    const std::optional<int> index = moved(keyCode);
    if (!index) return false;
    if (listCount() > 0) goTo(*index);
    return true;
}

void ComboBox::defaultCharacter(char32_t character) {
    if (character == U' ' && !typeAhead_.underWay()) return openList();
    const int found =
        typeAhead_.type(character, current(), listCount(), [this](int index) -> std::string_view {
            return items_[static_cast<std::size_t>(index)].text;
        });
    if (found >= 0) goTo(found);
}

void CheckBox::setCaption(std::string caption) {
    caption_ = std::move(caption);
    changed();
}

void CheckBox::setValue(int value) {
    if (value < 0 || value > 2)
        throw RuntimeError(error_number::invalidProcedureCall, "Invalid property value");
    if (value_ == value) return;
    value_ = value;
    changed();
}

void CheckBox::setAlignment(int alignment) {
    alignment_ = alignment;
    changed();
}

void CheckBox::defaultCharacter(char32_t character) {
    if (character == U' ') toggle();
}

}  // namespace catalogador
