// The icon of the program, see program_icon.h.
#include "qt/widgets/program_icon.h"

#include <array>

namespace zirvo::widgets {

QIcon ProgramIcon() {
    constexpr std::array pixels{16, 24, 32, 48, 64, 128, 256};
    QIcon icon;
    for (const int size : pixels) {
        icon.addFile(QStringLiteral(":/icon/zirvo_%1.png").arg(size), QSize(size, size));
    }
    return icon;
}

}  // namespace zirvo::widgets
