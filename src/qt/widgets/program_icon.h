// The icon of the program, in all sizes that a desktop may ask for. Caller: main.
#pragma once
#include <QIcon>

namespace zirvo::widgets {

QIcon ProgramIcon();

}  // namespace zirvo::widgets
