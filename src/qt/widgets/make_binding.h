// Makes the widget and the binding of a control, whatever its kind. Caller: the window of a form.
#pragma once
#include <QWidget>

#include "forms/control.h"
#include "qt/widgets/control_binding.h"
#include "qt/widgets/map_pictures.h"

namespace zirvo::widgets {

/// The widget becomes a child of `parent`; the binding belongs to the widget. It does not follow the control before
/// Begin().
ControlBinding& MakeBinding(forms::Control& control, QWidget& parent, const MapPictures& maps);

}  // namespace zirvo::widgets
