// Fonts for texts that must fit into a box of fixed size: a caption is never cut off. Callers: the bindings of what
// shows a caption, the cells of a grid.
#pragma once
#include <QFont>
#include <QSize>
#include <QString>

namespace zirvo::widgets {

/// A text and the room that it has [logical pixels].
struct TextInBox {
    QString Text;
    QSize Room;
    bool Wrapped = false;  ///< at blanks, into as many lines as the box has room for

    bool operator==(const TextInBox&) const = default;
};

/// The told font where the text fits in it. Where it does not, its letters are drawn narrower, down to half their
/// width, and then smaller.
QFont FontThatFits(const QFont& told, const TextInBox& text);

/// The same where the user has asked for larger letters: they grow as far as the text fits with little narrowing, and
/// what does not fit in the told size is drawn as FontThatFits has it.
/// @param scaled  of ScaledFont
QFont LargestFontThatFits(const QFont& told, const QFont& scaled, const TextInBox& text);

/// No bound for ScaledFont.
inline constexpr int AnyHeight = 100000;

/// The font in another size, but no higher than the room: than a line of the told font where that is higher.
/// @param scale  1 is as told
QFont ScaledFont(const QFont& told, double scale, int roomHigh);

}  // namespace zirvo::widgets
