#include <oleacc.h>

#include <algorithm>
#include <optional>

#include "adapters/system/wide_text.h"
#include "hosted_screen.h"

namespace catalogador::test {
namespace {

constexpr WPARAM newRecord = 3;
constexpr WPARAM saveRecord = 6;
constexpr LONG headers = 1;
constexpr LONG firstRow = 2;

std::string taken(HRESULT result, BSTR text) {
    const std::string read =
        result == S_OK && text != nullptr ? system::utf8Of(text) : std::string();
    SysFreeString(text);
    return read;
}

VARIANT childId(LONG number) {
    VARIANT child{};
    child.vt = VT_I4;
    child.lVal = number;
    return child;
}

/// An object of Active Accessibility, asked as a screen reader asks.
class Told {
  public:
    Told() = default;
    explicit Told(com::ComPtr<IAccessible> object) : object_(std::move(object)) {}
    /// What a window tells of its content.
    static Told of(HWND window) {
        com::ComPtr<IAccessible> object;
        AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                   object.putVoid());
        return Told(object);
    }

    explicit operator bool() const { return static_cast<bool>(object_); }
    [[nodiscard]] IAccessible* get() const { return object_.get(); }
    [[nodiscard]] std::string name(LONG child = CHILDID_SELF) const {
        BSTR text = nullptr;
        const HRESULT result = object_->get_accName(childId(child), &text);
        return taken(result, text);
    }
    [[nodiscard]] std::string value() const {
        BSTR text = nullptr;
        const HRESULT result = object_->get_accValue(childId(CHILDID_SELF), &text);
        return taken(result, text);
    }
    [[nodiscard]] std::string description() const {
        BSTR text = nullptr;
        const HRESULT result = object_->get_accDescription(childId(CHILDID_SELF), &text);
        return taken(result, text);
    }
    [[nodiscard]] LONG role(LONG child = CHILDID_SELF) const {
        VARIANT role{};
        return object_->get_accRole(childId(child), &role) == S_OK ? role.lVal : 0;
    }
    [[nodiscard]] bool has(LONG state, LONG child = CHILDID_SELF) const {
        VARIANT states{};
        return object_->get_accState(childId(child), &states) == S_OK && (states.lVal & state) != 0;
    }
    [[nodiscard]] LONG children() const {
        LONG count = -1;
        return object_->get_accChildCount(&count) == S_OK ? count : -1;
    }
    [[nodiscard]] Told child(LONG number) const {
        com::ComPtr<IDispatch> found;
        object_->get_accChild(childId(number), found.put());
        return asTold(found.get());
    }
    [[nodiscard]] Told parent() const {
        com::ComPtr<IDispatch> found;
        object_->get_accParent(found.put());
        return asTold(found.get());
    }
    /// The object in a direction; nothing at the end.
    [[nodiscard]] Told next(LONG direction) const {
        VARIANT found{};
        if (object_->accNavigate(direction, childId(CHILDID_SELF), &found) != S_OK ||
            found.vt != VT_DISPATCH)
            return {};
        const Told told = asTold(found.pdispVal);
        VariantClear(&found);
        return told;
    }
    /// The child that is selected, 0 for none.
    [[nodiscard]] LONG selection() const {
        VARIANT found{};
        return object_->get_accSelection(&found) == S_OK && found.vt == VT_I4 ? found.lVal : 0;
    }
    [[nodiscard]] RECT place() const {
        RECT place{};
        object_->accLocation(&place.left, &place.top, &place.right, &place.bottom,
                             childId(CHILDID_SELF));
        return place;
    }
    [[nodiscard]] HRESULT select() const {
        return object_->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, childId(CHILDID_SELF));
    }

  private:
    static Told asTold(IDispatch* object) {
        com::ComPtr<IAccessible> told;
        if (object != nullptr) object->QueryInterface(__uuidof(IAccessible), told.putVoid());
        return Told(told);
    }

    com::ComPtr<IAccessible> object_;
};

BOOL CALLBACK collect(HWND window, LPARAM found) {
    if (IsWindowVisible(window) != 0)
        reinterpret_cast<std::vector<Told>*>(found)->push_back(Told::of(window));
    return TRUE;
}

/// What the screen's controls tell that have a role.
std::vector<Told> allOf(HWND screen, LONG role) {
    std::vector<Told> all;
    EnumChildWindows(screen, collect, reinterpret_cast<LPARAM>(&all));
    std::erase_if(all, [&](const Told& told) { return !told || told.role() != role; });
    return all;
}

Told tableOf(HWND screen) {
    const auto tables = allOf(screen, ROLE_SYSTEM_TABLE);
    EXPECT_EQ(tables.size(), 1U);
    return tables.empty() ? Told() : tables.front();
}

Told fieldOf(HWND screen, LONG role, const std::string& name) {
    std::string names;
    for (const Told& field : allOf(screen, role)) {
        if (field.name() == name) return field;
        names += "'" + field.name() + "' ";
    }
    ADD_FAILURE() << "no field is called " << name << " among " << names;
    return {};
}

class Accessibility : public HostedScreen {
  protected:
    void onCurrencies(const std::vector<std::function<void(HWND)>>& steps) {
        onScreen(3, L"Monedas", steps);
    }
};

TEST_F(Accessibility, TellsTheListAsATableOfRowsAndCellsUnderItsHeaders) {
    onCurrencies({[](HWND screen) {
        const Told table = tableOf(screen);
        ASSERT_TRUE(table);
        EXPECT_EQ(table.name(), "Monedas");
        EXPECT_GT(table.children(), 150);
        const Told heads = table.child(headers);
        ASSERT_TRUE(heads);
        EXPECT_EQ(heads.role(), ROLE_SYSTEM_ROW);
        ASSERT_EQ(heads.children(), 4);
        EXPECT_EQ(heads.child(1).role(), ROLE_SYSTEM_COLUMNHEADER);
        EXPECT_EQ(heads.child(2).name(), "Moneda");
        const Told row = table.child(firstRow);
        ASSERT_TRUE(row);
        EXPECT_EQ(row.role(), ROLE_SYSTEM_ROW);
        EXPECT_NE(row.name().find("Moneda Dírham emiratí"), std::string::npos) << row.name();
        ASSERT_EQ(row.children(), 4);
        const Told cell = row.child(2);
        EXPECT_EQ(cell.role(), ROLE_SYSTEM_CELL);
        EXPECT_EQ(cell.name(), "Dírham emiratí");
        EXPECT_EQ(cell.description(), "Moneda");
        EXPECT_EQ(cell.parent().name(), row.name());
        EXPECT_EQ(row.parent().name(), "Monedas");
        EXPECT_EQ(table.name(firstRow), row.name());
        EXPECT_EQ(table.role(firstRow), ROLE_SYSTEM_ROW);
        EXPECT_FALSE(table.child(table.children() + 1));
        EXPECT_FALSE(row.child(5));
    }});
}

TEST_F(Accessibility, LeadsFromCellToCellInEveryDirection) {
    onCurrencies({[](HWND screen) {
        const Told table = tableOf(screen);
        ASSERT_TRUE(table);
        const Told row = table.next(NAVDIR_FIRSTCHILD).next(NAVDIR_NEXT);
        ASSERT_TRUE(row);
        EXPECT_EQ(row.name(), table.child(firstRow).name());
        const Told code = row.next(NAVDIR_FIRSTCHILD);
        ASSERT_TRUE(code);
        EXPECT_EQ(code.name(), "AED");
        EXPECT_EQ(code.next(NAVDIR_RIGHT).name(), "Dírham emiratí");
        EXPECT_EQ(code.next(NAVDIR_RIGHT).next(NAVDIR_LEFT).name(), "AED");
        EXPECT_EQ(code.next(NAVDIR_DOWN).name(), "AFN");
        EXPECT_EQ(code.next(NAVDIR_UP).role(), ROLE_SYSTEM_COLUMNHEADER);
        EXPECT_FALSE(code.next(NAVDIR_LEFT));
        EXPECT_FALSE(code.next(NAVDIR_UP).next(NAVDIR_UP));
        EXPECT_EQ(row.next(NAVDIR_LASTCHILD).name(), "Emiratos Árabes Unidos");
        EXPECT_FALSE(row.next(NAVDIR_LASTCHILD).next(NAVDIR_RIGHT));
        EXPECT_FALSE(table.next(NAVDIR_LASTCHILD).next(NAVDIR_DOWN));
    }});
}

TEST_F(Accessibility, TellsWhichColumnTheListIsSortedBy) {
    const auto sorts = [](HWND screen) {
        std::vector<std::string> told;
        const Told heads = tableOf(screen).child(headers);
        for (LONG column = 1; heads && column <= heads.children(); ++column)
            told.push_back(heads.child(column).description());
        return told;
    };
    onCurrencies({[&](HWND screen) {
                      const auto told = sorts(screen);
                      EXPECT_EQ(std::count(told.begin(), told.end(), "Orden ascendente"), 1);
                      EXPECT_EQ(std::count(told.begin(), told.end(), ""), 3);
                      const Told table = tableOf(screen);
                      const RECT head = table.child(headers).child(2).place();
                      HWND list = nullptr;
                      WindowFromAccessibleObject(table.get(), &list);
                      POINT middle{head.left + head.right / 2, head.top + head.bottom / 2};
                      ScreenToClient(list, &middle);
                      const LPARAM point = MAKELPARAM(middle.x, middle.y);
                      SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
                      SendMessageW(list, WM_LBUTTONUP, 0, point);
                  },
                  [&](HWND screen) {
                      EXPECT_EQ(sorts(screen)[1], "Orden descendente");
                      EXPECT_EQ(sorts(screen)[0], "");
                  }});
}

TEST_F(Accessibility, TellsAndMovesTheSelectedRow) {
    onCurrencies({[](HWND screen) {
                      const Told table = tableOf(screen);
                      ASSERT_TRUE(table);
                      EXPECT_EQ(table.selection(), firstRow);
                      EXPECT_TRUE(table.has(STATE_SYSTEM_SELECTED, firstRow));
                      EXPECT_TRUE(table.has(STATE_SYSTEM_FOCUSED, firstRow));
                      EXPECT_FALSE(table.has(STATE_SYSTEM_SELECTED, firstRow + 4));
                      EXPECT_EQ(table.child(firstRow + 4).select(), S_OK);
                  },
                  [](HWND screen) {
                      const Told table = tableOf(screen);
                      EXPECT_EQ(table.selection(), firstRow + 4);
                      EXPECT_TRUE(table.child(firstRow + 4).child(1).has(STATE_SYSTEM_SELECTED));
                      EXPECT_FALSE(table.has(STATE_SYSTEM_SELECTED, firstRow));
                  }});
}

TEST_F(Accessibility, TellsWhereRowsAreAndWhichAreOutOfSight) {
    onCurrencies({[](HWND screen) {
        const Told table = tableOf(screen);
        ASSERT_TRUE(table);
        const RECT all = table.place();
        const RECT first = table.child(firstRow).place();
        const RECT second = table.child(firstRow + 1).place();
        EXPECT_GE(first.top, all.top);
        EXPECT_GT(first.bottom, 0);
        EXPECT_EQ(second.top, first.top + first.bottom);
        const RECT cell = table.child(firstRow).child(2).place();
        EXPECT_EQ(cell.top, first.top);
        EXPECT_GT(cell.left, first.left);
        EXPECT_TRUE(table.has(STATE_SYSTEM_OFFSCREEN, table.children()));
        EXPECT_FALSE(table.has(STATE_SYSTEM_OFFSCREEN, firstRow));
        VARIANT hit{};
        ASSERT_EQ(table.get()->accHitTest(cell.left + 3, cell.top + 3, &hit), S_OK);
        ASSERT_EQ(hit.vt, VT_DISPATCH);
        com::ComPtr<IAccessible> found;
        hit.pdispVal->QueryInterface(__uuidof(IAccessible), found.putVoid());
        VariantClear(&hit);
        EXPECT_EQ(Told(found).name(), "Dírham emiratí");
    }});
}

TEST_F(Accessibility, KeepsAnsweringForRowsThatAreGoneAndForMoreThanItKeeps) {
    onCurrencies({[](HWND screen) {
                      const Told table = tableOf(screen);
                      for (int time = 0; time < 3; ++time)
                          for (LONG row = firstRow; row <= table.children(); ++row)
                              for (LONG column = 1; column <= 4; ++column)
                                  EXPECT_TRUE(table.child(row).child(column).parent());
                  },
                  [](HWND screen) {
                      const Told table = tableOf(screen);
                      EXPECT_EQ(table.child(firstRow).child(1).name(), "AED");
                  }});
}

TEST_F(Accessibility, TellsRequiredAndRefusedFieldsWithTheReason) {
    BoxCloser boxes;
    const char* const code = "Código ISO:";
    onCurrencies({[&](HWND screen) {
                      const Told field = fieldOf(screen, ROLE_SYSTEM_TEXT, code);
                      ASSERT_TRUE(field);
                      EXPECT_EQ(field.description(), "Obligatorio");
                      EXPECT_TRUE(field.has(STATE_SYSTEM_UNAVAILABLE));
                      EXPECT_EQ(fieldOf(screen, ROLE_SYSTEM_TEXT, "Decimales:").description(), "");
                      PostMessageW(screen, WM_COMMAND, newRecord, 0);
                  },
                  [&](HWND screen) {
                      EXPECT_FALSE(
                          fieldOf(screen, ROLE_SYSTEM_TEXT, code).has(STATE_SYSTEM_UNAVAILABLE));
                      PostMessageW(screen, WM_COMMAND, saveRecord, 0);
                  },
                  [&](HWND screen) {
                      const Told field = fieldOf(screen, ROLE_SYSTEM_TEXT, code);
                      EXPECT_EQ(field.description(), "Obligatorio. " + messageText(101));
                      HWND window = nullptr;
                      WindowFromAccessibleObject(field.get(), &window);
                      SendMessageW(window, WM_CHAR, L'X', 0);
                  },
                  [&](HWND screen) {
                      const Told field = fieldOf(screen, ROLE_SYSTEM_TEXT, code);
                      EXPECT_EQ(field.value(), "X");
                      EXPECT_EQ(field.description(), "Obligatorio");
                  }});
    EXPECT_EQ(boxes.count(), 1U);
}

TEST_F(Accessibility, TellsACombosNameEntriesAndState) {
    onCurrencies({[](HWND screen) { PostMessageW(screen, WM_COMMAND, newRecord, 0); },
                  [](HWND screen) {
                      const Told combo = fieldOf(screen, ROLE_SYSTEM_COMBOBOX, "País emisor:");
                      ASSERT_TRUE(combo);
                      EXPECT_GT(combo.children(), 200);
                      EXPECT_EQ(combo.name(1), "Afganistán");
                      EXPECT_EQ(combo.role(1), ROLE_SYSTEM_LISTITEM);
                      EXPECT_TRUE(combo.has(STATE_SYSTEM_COLLAPSED));
                      EXPECT_EQ(combo.value(), "");
                  }});
}

}  // namespace
}  // namespace catalogador::test
