#pragma once
#include <functional>
#include <string>

#include "platform/geometry.h"

namespace catalogador {

class Window;

/// What all controls of the screen share. Setters tell the surface; positions are twips relative
/// to the panel (for the panel itself, to the window's client area).
class Control {
  public:
    explicit Control(std::string name) : name_(std::move(name)) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    [[nodiscard]] const std::string& name() const { return name_; }

    /// Text that the form keeps with the control for its own use.
    std::string tag;

    [[nodiscard]] bool visible() const { return visible_; }
    void setVisible(bool visible);
    [[nodiscard]] bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    /// Whether the Tab key stops here.
    [[nodiscard]] bool tabStop() const { return tabStop_; }
    void setTabStop(bool tabStop) { tabStop_ = tabStop; }

    /// Whether the field, or the field that a caption names, must not be left empty.
    [[nodiscard]] bool required() const { return required_; }
    void setRequired(bool required);
    /// Why the last save refused the contents of the field. Empty when it did not refuse them, and
    /// after the user has changed them.
    [[nodiscard]] const std::string& problem() const { return problem_; }
    void setProblem(const std::string& problem);

    [[nodiscard]] int left() const { return place_.left; }
    [[nodiscard]] int top() const { return place_.top; }
    [[nodiscard]] int width() const { return place_.width; }
    [[nodiscard]] int height() const { return place_.height; }
    [[nodiscard]] const Rect& place() const { return place_; }
    void setLeft(int left) { move({left, place_.top, place_.width, place_.height}); }
    void setTop(int top) { move({place_.left, top, place_.width, place_.height}); }
    void setWidth(int width) { move({place_.left, place_.top, width, place_.height}); }
    void move(const Rect& place);

    [[nodiscard]] Color backColor() const { return backColor_; }
    void setBackColor(Color color);

    /// Whether this kind of control can have the focus at all.
    [[nodiscard]] virtual bool focusable() const { return false; }
    /// focusable, visible and enabled.
    [[nodiscard]] bool canTakeFocus() const { return focusable() && visible_ && enabled_; }
    [[nodiscard]] bool hasFocus() const;

    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;
    /// Key code and modifiers; the key is used up when the handler sets the code to 0.
    std::function<void(int& keyCode, int modifiers)> onKeyDown;
    /// The character (code point) typed; the handler may replace it, 0 swallows it.
    std::function<void(char32_t& character)> onKeyPress;

    /// What the control does when the focus has gone to another one.
    virtual void focusGone() {}
    /// What the control does with a key before anything else sees it, such as an open list with the
    /// arrows; true when it used the key up.
    virtual bool takeKeyFirst(int /*keyCode*/, int /*modifiers*/) { return false; }
    /// What the control itself does with a key after its events; true when it used the key.
    virtual bool defaultKey(int /*keyCode*/, int /*modifiers*/) { return false; }
    /// What the control itself does with a typed character after its events.
    virtual void defaultCharacter(char32_t /*character*/) {}

    [[nodiscard]] Window* window() const { return window_; }

  protected:
    /// The control has got the focus. Called before onGotFocus.
    virtual void entered() {}
    /// To be called by setters after a change.
    void changed();

  private:
    friend class Window;
    std::string name_;
    Window* window_ = nullptr;
    bool visible_ = true;
    bool enabled_ = true;
    bool tabStop_ = true;
    bool required_ = false;
    std::string problem_;
    Rect place_;
    Color backColor_ = systemWindowColor;
};

}  // namespace catalogador
