// The controls of a form, and text boxes that come and go at run time.
#include "forms/control_collection.h"

#include <algorithm>

#include "forms/application.h"

namespace zirvo::forms {
namespace {

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameName(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

}  // namespace

Control& ControlCollection::At(int position) const {
    if (position < 0 || position >= Count()) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    return *all_[static_cast<std::size_t>(position)];
}

Control* ControlCollection::Find(std::string_view name, int index) const {
    const auto found = std::find_if(all_.begin(), all_.end(), [&](const Control* control) {
        return control->Index() == index && SameName(control->Name(), name);
    });
    return found == all_.end() ? nullptr : *found;
}

bool ControlCollection::IsArray(std::string_view name) const {
    return std::any_of(all_.begin(), all_.end(), [&](const Control* control) {
        return control->Index() >= 0 && SameName(control->Name(), name);
    });
}

bool ControlCollection::Contains(const Control& control) const {
    return std::find(all_.begin(), all_.end(), &control) != all_.end();
}

int ControlCollection::PlaceOf(const Control& control) const {
    const auto found = std::find(all_.begin(), all_.end(), &control);
    return static_cast<int>(found - all_.begin());
}

TextBox& ControlCollection::Add(const std::string& name, Control* container) {
    if (name.empty() || Find(name) != nullptr || IsArray(name)) {
        throw RuntimeFault(fault::InvalidCall);
    }
    auto box = std::make_unique<TextBox>(form_, ControlId(name), container);
    box->Visible = false;
    added_.push_back(std::move(box));
    TextBox& added = *added_.back();
    if (form_.View() != nullptr) {
        form_.View()->ControlAdded(added);
    }
    return added;
}

void ControlCollection::Remove(const std::string& name) {
    const auto found = std::find_if(added_.begin(), added_.end(),
                                    [&](const std::unique_ptr<TextBox>& box) { return SameName(box->Name(), name); });
    if (found == added_.end()) {
        throw RuntimeFault(fault::InvalidCall);
    }
    std::unique_ptr<TextBox> box = std::move(*found);
    added_.erase(found);
    Leave(*box);
    if (form_.View() != nullptr) {
        form_.View()->ControlRemoved(*box);
    }
    box->Attach(nullptr);
    form_.App().BuryControl(std::move(box));
}

void ControlCollection::Enter(Control& control) {
    all_.push_back(&control);
    control.depth_ = ++form_.lastDepth_;
}

void ControlCollection::Leave(Control& control) {
    const int place = PlaceOf(control);
    form_.ControlGone(control, place);
    all_.erase(all_.begin() + place);
    control.gone_ = true;
    for (Control* other : all_) {
        if (other->countsAt_ == &control) {
            other->countsAt_ = nullptr;
        }
    }
}

}  // namespace zirvo::forms
