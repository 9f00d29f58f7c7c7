#include "views/kit/looks/style.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPalette>
#include <QTextLayout>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <utility>

#include "drawing/palette.h"
#include "views/kit/looks/colors.h"

namespace varek {

namespace {

/// Colours stand in it by their names in the palette. Combo boxes have theirs from the program's
/// palette.
constexpr char kSheet[] = R"(
QLabel, QCheckBox { color: @text; background: transparent; }
QLabel:disabled, QCheckBox:disabled { color: @muted; }
QCheckBox::indicator {
  width: 12px; height: 12px; border: 1px solid @muted; border-radius: 2px; background: @face; }
QRadioButton { color: @text; background: transparent; }
QRadioButton::indicator {
  width: 12px; height: 12px; border: 1px solid @muted; border-radius: 7px; background: @face; }
QRadioButton::indicator:checked { background: @accent; }
QRadioButton::indicator:focus, QRadioButton::indicator:hover { border-color: @accent; }
QCheckBox::indicator:checked { background: @accent; }
QCheckBox::indicator:focus, QCheckBox::indicator:hover { border-color: @accent; }
QLineEdit, QListView, QTableView {
  color: @text; background: @face; border: 1px solid @edge; border-radius: 3px;
  selection-background-color: @accent; selection-color: @face; }
QComboBox { border: 1px solid @edge; border-radius: 3px; }
QLineEdit, QComboBox { padding: 2px 5px; min-height: @linepx; }
QLineEdit:focus, QComboBox:focus, QListView:focus, QTableView:focus { border-color: @accent; }
QLineEdit:disabled { color: @muted; background: @window; }
QComboBox QAbstractItemView { color: @text; background: @face; border: 1px solid @edge; }
QListView::item:selected, QTableView::item:selected { color: @face; background: @accent; }
QTableView { gridline-color: @edge; alternate-background-color: @window; }
QHeaderView { background: @panel; }
QTableCornerButton::section { background: @panel; border: none; }
QHeaderView::section {
  color: @muted; background: @panel; padding: 3px 5px; border: none;
  border-right: 1px solid @edge; border-bottom: 1px solid @edge; }
QTabWidget::pane { border: 1px solid @edge; }
QTabBar { qproperty-drawBase: 0; }
QTabBar::tab {
  color: @muted; background: @window; border: 1px solid @edge; padding: 5px 12px; }
QTabBar::tab:selected { color: @text; background: @panel; border-bottom: 2px solid @accent; }
QTabBar::tab:hover { color: @text; }
QPushButton {
  color: @text; background: @panel; border: 1px solid @edge; border-radius: 4px;
  padding: 4px 8px; }
QPushButton:hover, QPushButton:focus { border-color: @accent; }
QPushButton:pressed { background: @face; }
QPushButton:disabled { color: @muted; background: @window; }
QTabBar QToolButton { background: @panel; border: 1px solid @edge; }
QScrollBar { background: @window; border: none; }
QScrollBar:vertical { width: 12px; }
QScrollBar:horizontal { height: 12px; }
QScrollBar::handle { background: @edge; border-radius: 3px; margin: 2px; }
QScrollBar::handle:vertical { min-height: 24px; }
QScrollBar::handle:horizontal { min-width: 24px; }
QScrollBar::handle:hover { background: @muted; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
#panel { background: @panel; border: 1px solid @edge; border-radius: 4px; }
QToolTip { color: @text; background: @panel; border: 1px solid @accent; padding: 2px; }
)";

constexpr std::pair<const char*, platform::Color> kNames[] = {
    {"@text", palette::kText},      {"@muted", palette::kMuted},   {"@face", palette::kFace},
    {"@edge", palette::kPanelEdge}, {"@accent", palette::kAccent}, {"@window", palette::kWindow},
    {"@panel", palette::kPanel},
};

constexpr int kLeastTextPixels = 6;

/// Padding and border of a box, above and below. Do not change it without the sheet.
constexpr int kBoxEdges = 2 * (2 + 1);
/// Between the lines of two rows of a grid.
constexpr int kRowGap = 4;
/// Letters of all three languages, some of them in one Chinese language only.
constexpr char kSample[] = "\u00c5g|\u7e41\u9ad4\u8a2d\u5b9a\u7b80\u4f53\u8bbe\u7f6e";

QPalette ProgramPalette() {
  QPalette colors(ToQColor(palette::kPanel), ToQColor(palette::kWindow));
  colors.setColor(QPalette::Base, ToQColor(palette::kFace));
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    colors.setColor(role, ToQColor(palette::kText));
    colors.setColor(QPalette::Disabled, role, ToQColor(palette::kMuted));
  }
  colors.setColor(QPalette::Highlight, ToQColor(palette::kAccent));
  colors.setColor(QPalette::HighlightedText, ToQColor(palette::kFace));
  return colors;
}

}  // namespace

QString StyleSheet(const QFont& font) {
  QString sheet = QString::fromLatin1(kSheet);
  sheet.replace(QStringLiteral("@line"), QString::number(LineHeight(font)));
  for (const auto& [name, color] : kNames)
    sheet.replace(QString::fromLatin1(name), ToQColor(color).name());
  return sheet;
}

void ApplyStyle(QWidget& window) {
  static const bool once = [] {
    QApplication::setPalette(ProgramPalette());
    return true;
  }();
  static_cast<void>(once);
  window.setStyleSheet(StyleSheet(window.font()));
}

/// The font's own height tells only of the letters that are its own.
int LineHeight(const QFont& font) {
  QTextLayout layout(QString::fromUtf8(kSample), font);
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  return static_cast<int>(std::ceil(line.height()));
}

int LineHeight(const QWidget& widget) {
  widget.ensurePolished();
  return LineHeight(widget.font());
}

int BoxHeight(const QWidget& widget) { return LineHeight(widget) + kBoxEdges; }

int RowHeight(const QWidget& widget, int least) {
  return std::max(least, LineHeight(widget) + kRowGap);
}

QFont FittingFont(const QFont& font, const QString& text, QSize room) {
  const QRect place(QPoint(), room);
  const auto fits = [&](const QFont& tried) {
    return place.contains(QFontMetrics(tried).boundingRect(place, kFittingText, text));
  };
  QFont result = font;
  for (int pixels = QFontInfo(font).pixelSize() - 1; !fits(result) && pixels >= kLeastTextPixels;
       --pixels)
    result.setPixelSize(pixels);
  return result;
}

}  // namespace varek
