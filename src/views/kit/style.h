// The looks that all windows share: one style sheet in the palette's colours for the toolkit's own
// controls, and texts that are never cut.
#pragma once

#include <QFont>
#include <QSize>
#include <QString>

class QWidget;

namespace varek {

/// For all that stands inside `window`, its tool tips included. The first call also sets the
/// colours of the whole program, message boxes and menus too.
void ApplyStyle(QWidget& window);

/// The sheet alone.
QString StyleSheet();

/// How a text is drawn with its FittingFont.
constexpr int kFittingText = Qt::AlignCenter | Qt::TextWordWrap;

/// `font`, or a smaller one where `text` would not fit into `room` even in several lines; at least
/// 6 pixels high.
QFont FittingFont(const QFont& font, const QString& text, QSize room);

}  // namespace varek
