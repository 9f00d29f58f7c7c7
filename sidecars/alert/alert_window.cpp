#include "alert/alert_window.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>

#include "kit/texts.h"
#include "platform/clock.h"
#include "platform/service.h"
#include "views/kit/colors.h"
#include "views/palette.h"

namespace sidecar {

namespace {

constexpr int kCloseText = 315;
constexpr int kHeadlineText = 322;

constexpr int kMostLines = 200;
constexpr int kUnseenMilliseconds = 700;
constexpr int kLinesWidth = 520;
constexpr int kTallestLines = 300;
constexpr int kScreenPart = 3;
constexpr int kTextPixels = 15;
constexpr int kTimeWidth = 170;
constexpr int kLineGap = 6;

QString Translated(int number) { return QString::fromStdString(Text(number, ChosenLanguage())); }

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
    : NoticeWindow(Sign::Warning, Translated(kHeadlineText), Translated(kCloseText)),
      lines_(new QTextEdit) {
  setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint);
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
  const int tallest = std::min(kTallestLines, screen()->availableSize().height() / kScreenPart);
  lines_->setVerticalScrollBarPolicy(wanted > tallest ? Qt::ScrollBarAlwaysOn
                                                      : Qt::ScrollBarAlwaysOff);
  lines_->setFixedHeight(std::min(wanted, tallest));
}

/// It grows downwards from there and stays on the screen.
void AlertWindow::PlaceAboveMiddle() {
  const QRect room = screen()->availableGeometry();
  adjustSize();
  move(room.center().x() - width() / 2, room.top() + room.height() / (2 * kScreenPart));
}

void AlertWindow::ComeUp() {
  if (!isVisible()) PlaceAboveMiddle();
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
