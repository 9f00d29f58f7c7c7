// The looks that all windows share: one style sheet in the palette's colours for the toolkit's own
// controls, and texts that are never cut. How high a line of text is depends on the fonts of the
// machine: Chinese letters mostly come from another font than the rest, and from a higher one. So
// no box or row is lower than its line.
#pragma once

#include <QFont>
#include <QSize>
#include <QString>

class QWidget;

namespace varek {

/// For all that stands inside `window`, its tool tips included. The first call also sets the
/// colours of the whole program, message boxes and menus too.
void ApplyStyle(QWidget& window);

/// The sheet alone; the boxes in it are as high as a line of `font` needs.
QString StyleSheet(const QFont& font);

/// Pixels of a line in which letters of all three languages stand, each from the font that the
/// machine has for it.
int LineHeight(const QFont& font);

/// The same in the letters of `widget`.
int LineHeight(const QWidget& widget);

/// Pixels of an entry box or a closed list in `widget`, with its frame.
int BoxHeight(const QWidget& widget);

/// Pixels of a row of a list or a grid: `least`, or more where a line needs it.
int RowHeight(const QWidget& widget, int least);

/// How a text is drawn with its FittingFont.
constexpr int kFittingText = Qt::AlignCenter | Qt::TextWordWrap;

/// `font`, or a smaller one where `text` would not fit into `room` even in several lines; at least
/// 6 pixels high.
QFont FittingFont(const QFont& font, const QString& text, QSize room);

}  // namespace varek
