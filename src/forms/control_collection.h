// The controls of a form, in the order of their declaration, which is their tab order; boxes may be added and removed
// at run time.
#pragma once
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/runtime_fault.h"
#include "forms/text_box.h"

namespace zirvo::forms {

class ControlCollection {
public:
    explicit ControlCollection(Form& form) : form_(form) {}

    int Count() const { return static_cast<int>(all_.size()); }
    /// By position, from 0. Outside: fault 9.
    Control& At(int position) const;
    auto begin() const { return all_.begin(); }
    auto end() const { return all_.end(); }

    /// The control of that name (and index, in an array); nullptr where there is none.
    Control* Find(std::string_view name, int index = -1) const;
    /// Whether the name stands for a control array.
    bool IsArray(std::string_view name) const;
    bool Contains(const Control& control) const;

    /// A new text box at run time, hidden, of no size, behind all others in the tab order. Names do not differ by case
    /// alone. A name that is taken, or none, is fault 5.
    TextBox& Add(const std::string& name, Control* container);
    /// Takes away a control that Add made; any other, or none, is fault 5. The control lives on until the outermost
    /// handler has ended, with no view and out of every list.
    void Remove(const std::string& name);

private:
    friend class Control;
    friend class Form;
    void Enter(Control& control);
    void Leave(Control& control);
    int PlaceOf(const Control& control) const;

    Form& form_;
    std::vector<Control*> all_;
    std::vector<std::unique_ptr<TextBox>> added_;
};

/// Controls of one name, told apart by their index from 0: Check1(2).
template <class T>
class ControlArray {
public:
    ControlArray(Form& form, const std::string& name, int count, Control* container = nullptr) {
        for (int i = 0; i < count; ++i) {
            items_.push_back(std::make_unique<T>(form, ControlId(name, i), container));
        }
    }
    /// By index, from 0. Outside: fault 9.
    T& operator()(int index) const {
        if (index < 0 || index >= Count()) {
            throw RuntimeFault(fault::SubscriptOutOfRange);
        }
        return *items_[static_cast<std::size_t>(index)];
    }
    int Count() const { return static_cast<int>(items_.size()); }

private:
    std::vector<std::unique_ptr<T>> items_;
};

}  // namespace zirvo::forms
