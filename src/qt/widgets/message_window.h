// Message boxes. Caller: the desktop.
#pragma once
#include <QWidget>

#include "forms/desktop.h"

namespace zirvo::widgets {

/// Shows the box in front of a window, modal to the whole program, and waits for the answer. The words on the buttons
/// are the message's language; Yes and No can be left only by one of them (Y and N are their keys in both languages),
/// OK and Cancel by Esc or the frame as well.
forms::Answer AskUser(const forms::Message& message, QWidget* owner);

}  // namespace zirvo::widgets
