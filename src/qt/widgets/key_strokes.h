// A key event of Qt as the stroke that the controls know. Caller: the window of a form, for every key press.
#pragma once
#include <QKeyEvent>

#include "forms/key_stroke.h"

namespace zirvo::widgets {

/// The code of the key and the character that it makes; a letter with Alt makes none.
forms::KeyStroke StrokeOfEvent(const QKeyEvent& event);

}  // namespace zirvo::widgets
