// A property of a control: it reads and is written like a field, and the writing tells the view and raises the event.
#pragma once
#include <concepts>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace zirvo::forms {

/// One property. Writing the value that it has does nothing; any other value is stored, then the view is told, then
/// the event raised. A property with a setter of its own leaves all three to it.
template <class T>
class Property {
public:
    using Event = std::function<void()>;
    using Setter = std::function<void(const T&)>;

    /// @param tellView  called behind every change, before the event
    /// @param event     what a change raises; none where empty
    explicit Property(T value, Event tellView = {}, Event event = {})
        : value_(std::move(value)), tellView_(std::move(tellView)), event_(std::move(event)) {}
    Property(const Property&) = delete;

    /// Takes the value of another property, as a write of that value.
    Property& operator=(const Property& other) {
        if (this != &other) {
            *this = other.value_;
        }
        return *this;
    }
    Property& operator=(T value) {
        if (setter_) {
            setter_(value);
        } else if (Store(std::move(value)) && event_) {
            event_();
        }
        return *this;
    }

    operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor): it reads like a field
    /// A text also reads as a view.
    operator std::string_view() const  // NOLINT(google-explicit-constructor)
        requires std::same_as<T, std::string> {
        return value_;
    }
    const T& Get() const { return value_; }

    /// Takes charge of every write; the setter calls Store itself.
    void SetBy(Setter setter) { setter_ = std::move(setter); }

    /// Stores and tells the view, raises nothing. Gives whether the value changed.
    bool Store(T value) {
        if (value == value_) {
            return false;
        }
        value_ = std::move(value);
        if (tellView_) {
            tellView_();
        }
        return true;
    }

private:
    T value_;
    Event tellView_;
    Event event_;
    Setter setter_;
};

template <class T>
bool operator==(const Property<T>& left, const T& right) {
    return left.Get() == right;
}

inline bool operator==(const Property<std::string>& left, const char* right) {
    return left.Get() == right;
}

}  // namespace zirvo::forms
