#include "alert/alert_window.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>

#include "drawing/palette.h"
#include "kit/texts.h"
#include "platform/system/service.h"
#include "platform/time/clock.h"
#include "views/kit/looks/colors.h"
#include "views/kit/windows/window_places.h"

namespace sidecar {

namespace {

constexpr int kMostLines = 200;
constexpr int kUnseenMilliseconds = 700;
constexpr int kLinesWidth = 440;
constexpr int kTallestLines = 300;
constexpr int kTextPixels = 15;
constexpr int kTimeWidth = 170;
constexpr int kLineGap = 6;

QString Translated(size_t number) { return QString::fromStdString(Text(number, ChosenLanguage())); }

QTextCharFormat Format(platform::Color color, QFont::Weight weight) {
  QTextCharFormat format;
  format.setForeground(varek::ToQColor(color));
  format.setFontWeight(weight);
  return format;
}

/// The text hangs behind the time, however many lines it takes.
QTextBlockFormat HangingFormat() {
  QTextBlockFormat format;
  format.setLeftMargin(kTimeWidth);
  format.setTextIndent(-kTimeWidth);
  format.setTabPositions({QTextOption::Tab(kTimeWidth, QTextOption::LeftTab)});
  format.setBottomMargin(kLineGap);
  return format;
}

}  // namespace

void LogAlert(const std::string& time, const std::string& text) {
  platform::LogAlarm(time + " UPS: " + text);
}

AlertWindow::AlertWindow()
    : NoticeWindow(varek::Sign::Warning, Translated(varek::texts::kAlertHeadline),
                   Translated(varek::texts::kNoticeClose)),
      lines_(new QTextEdit) {
  MakeLines();
}

void AlertWindow::MakeLines() {
  lines_->setReadOnly(true);
  lines_->setFocusPolicy(Qt::NoFocus);
  lines_->setFrameShape(QFrame::NoFrame);
  lines_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  lines_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  lines_->viewport()->setAutoFillBackground(false);
  lines_->setFixedSize(kLinesWidth, kTextPixels);
  QFont font = lines_->font();
  font.setPixelSize(kTextPixels);
  lines_->setFont(font);
  lines_->document()->setDocumentMargin(0);
  lines_->document()->setMaximumBlockCount(kMostLines);
  Contents()->addWidget(lines_);
  connect(lines_->document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged,
          this, &AlertWindow::FitToLines);
  QScrollBar* bar = lines_->verticalScrollBar();
  connect(bar, &QScrollBar::rangeChanged, bar, [bar] { bar->setValue(bar->maximum()); });
}

void AlertWindow::AddLine(const std::string& text) {
  const std::string time = platform::FormatDateTime(platform::Now());
  LogAlert(time, text);
  notifier_.Warn(text, time);
  Append(QString::fromStdString(time), QString::fromStdString(text));
  newestTick_ = platform::TickCount();
  ComeUp();
}

void AlertWindow::Append(const QString& time, const QString& text) {
  QTextCursor cursor(lines_->document()->lastBlock());
  if (lines_->document()->isEmpty()) {
    cursor.setBlockFormat(HangingFormat());
  } else {
    cursor.select(QTextCursor::BlockUnderCursor);
    cursor.setCharFormat(Format(varek::palette::kMuted, QFont::Normal));
    cursor.movePosition(QTextCursor::End);
    cursor.insertBlock(HangingFormat());
  }
  cursor.insertText(time + QLatin1Char('\t'), Format(varek::palette::kMuted, QFont::Normal));
  cursor.insertText(text, Format(varek::palette::kScale, QFont::Bold));
  lines_->verticalScrollBar()->setValue(lines_->verticalScrollBar()->maximum());
}

void AlertWindow::FitToLines() {
  const int wanted = qCeil(lines_->document()->size().height());
  const int rest = varek::SizeWithFrame(*this).height() - lines_->height();
  const int room = varek::NoticeCorner(varek::RoomAround(*this)).height() - rest;
  const int tallest = std::clamp(room, kTextPixels, kTallestLines);
  lines_->setVerticalScrollBarPolicy(wanted > tallest ? Qt::ScrollBarAlwaysOn
                                                      : Qt::ScrollBarAlwaysOff);
  lines_->setFixedHeight(std::min(wanted, tallest));
}

/// Grows upwards, from wherever the person has put it.
void AlertWindow::resizeEvent(QResizeEvent* event) {
  if (isVisible()) move(pos() - QPoint(0, event->size().height() - event->oldSize().height()));
}

void AlertWindow::ComeUp() {
  if (!isVisible()) PlaceInCorner();
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  QApplication::alert(this);
}

bool AlertWindow::MayClose() const {
  return platform::TickCount() - newestTick_ > kUnseenMilliseconds;
}

}  // namespace sidecar
