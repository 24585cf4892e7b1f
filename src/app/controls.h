// SPDX-License-Identifier: MIT
// The controls of the forms as plain data: what a window shows and a flow reads and writes.
//
// A control registers itself with its form under its name, so that a test, the command line and a
// window find it by that name. Texts are UTF-8.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "app/property.h"

namespace quillon {

// The colours that the flows ask for. A window maps them to its theme.
enum class Colour : std::uint8_t {
    Default,     // the theme's own
    Black,       // the normal message
    Red,         // the message that must be seen
    Grey,        // RGB 224, 224, 224: a box that can't be edited at present
    White,       // a box that can
    Found,       // RGB 255, 224, 192: the board's label when it has answered
    ButtonFace,  // the same label when it hasn't
};

struct Label;
struct TextBox;
struct RichTextBox;
struct CheckBox;
struct ComboBox;
struct Button;
struct MenuItem;
struct Grid;
struct TabSet;
struct ProgressBar;
struct Shape;

using AnyControl = std::variant<Label*, TextBox*, RichTextBox*, CheckBox*, ComboBox*, Button*,
                                MenuItem*, Grid*, TabSet*, ProgressBar*, Shape*>;

// The base of the structs of controls. A form can't be copied or moved: its controls are known by
// their addresses.
class Form {
  public:
    Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    Property<std::string> Caption;
    Property<bool> Enabled{true};
    Property<bool> Visible{false};
    Property<bool> WaitCursor{false};
    // Name of the control that should get the focus. To focus the same control again, clear it
    // first.
    Property<std::string> Focus;

    // The entry, or nullptr where no control has that name.
    const std::pair<std::string, AnyControl>* find(std::string_view name) const {
        for (const auto& entry : controls_)
            if (entry.first == name) return &entry;
        return nullptr;
    }
    const std::vector<std::pair<std::string, AnyControl>>& controls() const { return controls_; }

    void add(std::string name, AnyControl control) {
        controls_.emplace_back(std::move(name), control);
    }

  private:
    std::vector<std::pair<std::string, AnyControl>> controls_;
};

struct Control {
    explicit Control(std::string_view control_name) : name{control_name} {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    std::string name;
    Property<bool> Enabled{true};
    Property<bool> Visible{true};
};

struct Label : Control {
    Label(Form& form, std::string_view control_name, std::string caption = "")
        : Control{control_name}, Caption{std::move(caption)} {
        form.add(name, this);
    }
    Property<std::string> Caption;
    Property<Colour> ForeColor{Colour::Default};
    Property<Colour> BackColor{Colour::Default};
};

struct TextBox : Control {
    TextBox(Form& form, std::string_view control_name, std::string text = "",
            std::size_t max_length = 0)
        : Control{control_name}, Text{std::move(text)}, MaxLength{max_length} {
        form.add(name, this);
    }
    Property<std::string> Text;
    Property<std::size_t> MaxLength;  // characters, 0 for no limit
    Property<Colour> BackColor{Colour::Default};
};

// A large text: a memory view. Height is in twips, as the panel sets it.
struct RichTextBox : Control {
    RichTextBox(Form& form, std::string_view control_name) : Control{control_name} {
        form.add(name, this);
    }
    Property<std::string> Text;
    Property<int> Height{4310};
    Property<bool> Redraw{true};
};

struct CheckBox : Control {
    CheckBox(Form& form, std::string_view control_name, std::string caption = "")
        : Control{control_name}, Caption{std::move(caption)} {
        form.add(name, this);
    }
    Property<std::string> Caption;
    Property<bool> Checked{false};
};

// A list with a chosen entry. select() does what a user's choice and an assignment to the list
// index do: it fires Click.
struct ComboBox : Control {
    ComboBox(Form& form, std::string_view control_name) : Control{control_name} {
        form.add(name, this);
    }
    Property<std::vector<std::string>> Items;
    Property<int> ListIndex{-1};
    Property<std::string> Text;
    std::function<void()> Click;

    // False, with nothing changed, for an index that the list doesn't hold.
    bool select(int index) {
        if (index < 0 || static_cast<std::size_t>(index) >= Items.get().size()) return false;
        show(index);
        if (Click) Click();
        return true;
    }
    // Chooses the entry with that text; false where there is none.
    bool select(std::string_view entry) {
        for (std::size_t i = 0; i < Items.get().size(); ++i)
            if (Items.get()[i] == entry) return select(static_cast<int>(i));
        return false;
    }
    // Changes the choice without firing Click.
    void show(int index) {
        ListIndex.set(index);
        Text.set(Items.get()[static_cast<std::size_t>(index)]);
    }
    void clear() {
        Items.set({});
        ListIndex.set(-1);
        Text.set("");
    }
};

struct Button : Control {
    Button(Form& form, std::string_view control_name, std::string caption = "")
        : Control{control_name}, Caption{std::move(caption)} {
        form.add(name, this);
    }
    Property<std::string> Caption;
};

struct MenuItem : Control {
    MenuItem(Form& form, std::string_view control_name, std::string caption = "")
        : Control{control_name}, Caption{std::move(caption)} {
        form.add(name, this);
    }
    Property<std::string> Caption;
    Property<bool> Checked{false};
};

// Two columns of texts under a heading row 0. Changed is emitted after each change while Redraw is
// on, and once when it comes on again.
struct Grid : Control {
    using Row = std::array<std::string, 2>;

    Grid(Form& form, std::string_view control_name) : Control{control_name} {
        form.add(name, this);
    }
    Property<int> CursorRow{0};
    Property<int> CursorColumn{0};
    Signal<> Changed;

    std::size_t rows() const { return cells_.size(); }
    // Empty text beyond the last row.
    const std::string& cell(std::size_t row, std::size_t column) const {
        static const std::string kNothing;
        return row < cells_.size() ? cells_[row][column] : kNothing;
    }
    // Writing beyond the last row adds rows.
    void set_cell(std::size_t row, std::size_t column, std::string text) {
        if (row >= cells_.size()) cells_.resize(row + 1);
        if (cells_[row][column] == text) return;
        cells_[row][column] = std::move(text);
        touch();
    }
    void clear() {
        cells_.clear();
        touch();
    }
    void set_redraw(bool on) {
        redraw_ = on;
        if (on && std::exchange(stale_, false)) Changed.emit();
    }

  private:
    void touch() {
        if (redraw_)
            Changed.emit();
        else
            stale_ = true;
    }
    std::vector<Row> cells_;
    bool redraw_ = true;
    bool stale_ = false;
};

struct TabSet : Control {
    TabSet(Form& form, std::string_view control_name) : Control{control_name} {
        form.add(name, this);
    }
    Property<int> Tab{0};
    Property<std::array<bool, 10>> TabVisible;
    Property<bool> Redraw{true};

    void show_tab(std::size_t tab, bool visible) {
        auto tabs = TabVisible.get();
        tabs.at(tab) = visible;
        TabVisible.set(tabs);
    }
};

struct ProgressBar : Control {
    ProgressBar(Form& form, std::string_view control_name) : Control{control_name} {
        form.add(name, this);
        Visible.set(false);
    }
    Property<int> Min{0};
    Property<int> Max{100};
    Property<int> Value{0};
};

// A drawing or a frame that is only shown or hidden.
struct Shape : Control {
    Shape(Form& form, std::string_view control_name) : Control{control_name} {
        form.add(name, this);
    }
};

}  // namespace quillon
