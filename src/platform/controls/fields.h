#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"
#include "platform/controls/type_ahead.h"

namespace catalogador {

/// A caption. Its width always fits its text; a "&" marks the letter that reaches the field.
class Label : public Control {
  public:
    using Control::Control;
    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);

  private:
    std::string caption_;
};

/// The container of the fields and the grid (picBackColor).
class Panel : public Control {
  public:
    using Control::Control;
    [[nodiscard]] bool focusable() const override { return true; }
    /// Width of a text in the panel's font, in twips.
    [[nodiscard]] int textWidth(std::string_view text) const;
};

/// A single-line text. Lengths and positions count characters.
class TextBox : public Control {
  public:
    using Control::Control;
    [[nodiscard]] bool focusable() const override { return true; }

    [[nodiscard]] const std::string& text() const { return text_; }
    /// Puts the caret at the start. A text longer than maxLength() is not cut.
    void setText(std::string text);
    /// The most characters that can be typed or pasted; 0 means no limit.
    [[nodiscard]] int maxLength() const { return maxLength_; }
    void setMaxLength(int maxLength);

    [[nodiscard]] std::size_t selStart() const { return selStart_; }
    [[nodiscard]] std::size_t selLength() const { return selLength_; }
    /// Selects `length` characters from `start` on. Both are limited to the length of the text.
    void select(std::size_t start, std::size_t length);

    /// Replaces the selection with a text from the clipboard, as pastedText prepares it. The
    /// surface beeps when it is cut to what fits. An empty text changes nothing.
    void paste(std::string_view text);

    /// A native editor changed the text or the selection. Does not echo back to the surface.
    void userEdited(std::string text, std::size_t selStart, std::size_t selLength);

    /// Ctrl+Z restores the text that was there when the field was entered or filled; pressed again,
    /// it restores what was typed since.
    bool defaultKey(int keyCode, int modifiers) override;
    void defaultCharacter(char32_t character) override;

  protected:
    void entered() override;

  private:
    void undo();
    void replaceSelection(std::string_view with);
    void moveCaret(std::size_t to, bool extend);

    std::string text_;
    /// The text when the field was entered or filled, and what was typed before it came back.
    std::string textOnEntry_;
    std::string textUndone_;
    int maxLength_ = 0;
    std::size_t selStart_ = 0;
    std::size_t selLength_ = 0;
    /// True when the caret stands at the start of the selection.
    bool caretAtStart_ = false;
};

/// A drop-down list of texts, each with a 32-bit code.
class ComboBox : public Control {
  public:
    struct Item {
        std::string text;
        std::int32_t data = 0;
    };

    using Control::Control;
    [[nodiscard]] bool focusable() const override { return true; }

    void clear();
    void addItem(std::string text, std::int32_t data);
    [[nodiscard]] const std::vector<Item>& items() const { return items_; }
    [[nodiscard]] int listCount() const { return static_cast<int>(items_.size()); }
    /// Index of the selected entry, -1 when none is.
    [[nodiscard]] int listIndex() const { return listIndex_; }
    /// Raises invalidProcedureCall for an index that no entry has (-1 is allowed).
    void setListIndex(int index);
    /// Raises invalidProcedureCall for an index that no entry has.
    [[nodiscard]] std::int32_t itemData(int index) const;
    /// Index of the first entry with that code, -1 when no entry carries it.
    [[nodiscard]] int findItemData(std::int32_t data) const;

    /// Whether the list is open. The marked entry is the one that closing it would choose.
    [[nodiscard]] bool listOpen() const { return listOpen_; }
    [[nodiscard]] int marked() const { return marked_; }
    void openList();
    /// Chooses the marked entry, or leaves the choice as it was.
    void closeList(bool choose);
    /// Marks an entry of the open list; -1 marks none.
    void mark(int index);

    void focusGone() override { closeList(false); }
    bool takeKeyFirst(int keyCode, int modifiers) override;
    bool defaultKey(int keyCode, int modifiers) override;
    /// Goes to the entry that begins with the letters typed. A blank opens the list unless it is
    /// part of a text that is being typed.
    void defaultCharacter(char32_t character) override;

  private:
    /// The entry that a key leads to, nullopt for a key that moves nothing.
    [[nodiscard]] std::optional<int> moved(int keyCode) const;
    [[nodiscard]] int current() const { return listOpen_ ? marked_ : listIndex_; }
    void goTo(int index);

    std::vector<Item> items_;
    int listIndex_ = -1;
    bool listOpen_ = false;
    int marked_ = -1;
    TypeAhead typeAhead_;
};

/// A box with a caption. Alignment 0: box left of the caption; 1: caption left, box at the right.
class CheckBox : public Control {
  public:
    using Control::Control;
    [[nodiscard]] bool focusable() const override { return true; }

    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    /// 0 unchecked, 1 checked, 2 greyed. Other values raise invalidProcedureCall.
    [[nodiscard]] int value() const { return value_; }
    void setValue(int value);
    [[nodiscard]] int alignment() const { return alignment_; }
    void setAlignment(int alignment);
    /// What a click does: checked becomes unchecked, everything else checked.
    void toggle() { setValue(value_ == 1 ? 0 : 1); }

    void defaultCharacter(char32_t character) override;

  private:
    std::string caption_;
    int value_ = 0;
    int alignment_ = 0;
};

}  // namespace catalogador
