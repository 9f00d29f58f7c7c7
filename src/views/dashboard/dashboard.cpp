#include "views/dashboard/dashboard.h"

#include <QAbstractItemView>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QStackedWidget>
#include <QTabBar>
#include <algorithm>

#include "core/data_center.h"
#include "core/debug_lines.h"
#include "drawing/palette.h"
#include "link/port_search.h"
#include "platform/errors/guard.h"
#include "platform/text/text.h"
#include "platform/toolkit/display.h"
#include "records/shutdown/shutdown.h"
#include "texts/language.h"
#include "views/dashboard/menu_strip.h"
#include "views/dashboard/search_box.h"
#include "views/kit/controls/bubble.h"
#include "views/kit/controls/choice_list.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/controls/picture_view.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/pictures.h"
#include "views/kit/looks/shown.h"

namespace varek {

namespace {

constexpr int kFrameTick = 150;
constexpr int kLampTick = 1000;

constexpr QSize kStartSize{780, 540};
/// The smallest panel at its design size, and what stands around it.
constexpr QSize kLeastSize{612, 428};

constexpr int kTabHeaderHeight = 26;
constexpr int kBottomMargin = 6;
/// Beside the longest line of the unfolded list: its edges, its mark and its scroll bar.
constexpr int kListMargin = 48;
/// What the tabs stand out of the window on the right.
constexpr int kTabOverhang = 30;

constexpr int kPageMargin = 36;
constexpr QSize kLeastButton{190, 40};
constexpr QSize kLargestButton{280, 52};

constexpr std::array<size_t, 3> kTabNames{texts::kReadingsTab, texts::kDetailsTab,
                                          texts::kControlTab};

QRect Placed(const Area& area, QSize client) {
  return ScaleRect({area.left, area.top, area.width, area.height}, {kClientWidth, kClientHeight},
                   client);
}

MenuOpeners openers{};

void OpenMenuItem(int item) {
  const auto& open = openers.at(static_cast<size_t>(item));
  if (open) OpenForPerson("form1 Picture1_MouseUp", open);
}

/// Shows the panel's surface.
class PanelView final : public QWidget {
 public:
  PanelView(QWidget* parent, const InstrumentPanel& panel) : QWidget(parent), panel_(panel) {
    setAttribute(Qt::WA_OpaquePaintEvent);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter(this).drawImage(0, 0, panel_.Picture().Image());
  }

 private:
  const InstrumentPanel& panel_;
};

}  // namespace

FormSlot<Form1>& Dashboard() {
  static FormSlot<Form1> slot(Form1::kNumber);
  return slot;
}

void SetMenuOpeners(const MenuOpeners& open) { openers = open; }

void ShowDashboard() { Dashboard().Get().ShowAndRaise(); }

/// Without a display nobody would see the dashboard, and it is not opened for a search.
void ConnectDashboard() {
  SearchDisplay display;
  // A dashboard that can't be shown must not keep the unit from being found.
  display.open = [] {
    if (!platform::HasDisplay()) return;
    platform::Guarded("form1 search", [] {
      ShowDashboard();
      Dashboard().Get().Search().Open();
    });
  };
  display.label = [](const std::string& name) {
    if (Dashboard().IsLoaded()) Dashboard().Get().Search().SetLabel(name);
  };
  display.progress = [](double percent) {
    if (Dashboard().IsLoaded()) Dashboard().Get().Search().SetProgress(percent);
  };
  display.close = [] {
    if (Dashboard().IsLoaded()) Dashboard().Get().Search().hide();
  };
  SetSearchDisplay(display);
  OnDebugLinesChanged([] {
    if (Dashboard().IsLoaded()) Dashboard().Get().ShowDebugLines();
  });
}

Form1::Form1()
    : ViewWindow(kNumber, kStartSize, kLeastSize),
      lampTimer_("form1 Timer2", [this] { UpdateStatusLamps(); }),
      needleTimer_("form1 Timer4", [this] { NeedleTick(); }) {
  MakeBackground();
  MakeTabs();
  MakeLamps();
  bubble_ = new Bubble(Client());
  menu_ = std::make_unique<MenuStrip>(Client(), *bubble_, OpenMenuItem);
  search_ = new SearchBox(Client());
  ApplyLanguage();
  ShowDebugLines();
  LayoutDashboard();
  UpdateStatusLamps();
}

Form1::~Form1() {
  // The toolkit may send leave events to parts of a window that is being destroyed.
  for (PictureView* view : statusLamps_) view->OnMouse({}, {});
  background_->OnMouse({}, {});
  needleTimer_.SetInterval(0);
  lampTimer_.SetInterval(0);
  menu_->Stop();
}

void Form1::MakeBackground() {
  backgroundPicture_ = LoadPicture("back.jpg");
  background_ = new PictureView(Client());
  background_->SetPicture(backgroundPicture_);
  background_->OnMouse("form1 BackPic_MouseMove", [this] { HideLampText(); });
}

void Form1::MakeTabs() {
  tabs_ = new QWidget(Client());
  tabBar_ = new QTabBar(tabs_);
  tabBar_->setDrawBase(false);
  for (size_t i = 0; i < kTabNames.size(); ++i) tabBar_->addTab(QString());
  pages_ = new QStackedWidget(tabs_);
  pages_->setStyleSheet(
      QStringLiteral("QStackedWidget { background: %1; } QLabel#value { font-size: 16px; }")
          .arg(ToQColor(palette::kPanel).name()));
  instrumentView_ = new PanelView(pages_->widget(pages_->addWidget(new QWidget)), panel_);
  MakeDetailsTab();
  MakeControlTab();
  connect(tabBar_, &QTabBar::currentChanged, pages_, &QStackedWidget::setCurrentIndex);
  recentMessages_ = new ChoiceList(Client());
  recentMessages_->setStyleSheet(QStringLiteral("font-size: 11px;"));
  recentMessages_->ensurePolished();      // Its unfolded list is measured by these letters.
  setTabOrder(tabBar_, recentMessages_);  // It stands beside the tabs, above what they show.
}

void Form1::MakeDetailsTab() {
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  for (int row = 0; row < static_cast<int>(kRatingCount); ++row) {
    const auto i = static_cast<size_t>(row);
    ratingCaptions_[i] = new QLabel(page);
    ratings_[i] = new QLabel(page);
    ratings_[i]->setTextFormat(Qt::PlainText);
    ratings_[i]->setObjectName(QStringLiteral("value"));
    grid->addWidget(ratingCaptions_[i], row, 0);
    grid->addWidget(ratings_[i], row, 1);
  }
  grid->setColumnStretch(1, 1);
  pages_->addWidget(page);
}

void Form1::MakeControlTab() {
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  grid->setSpacing(24);
  for (int i = 0; i < kControlCount; ++i) {
    auto* button =
        new PictureButton(page, QStringLiteral("button"), "form1 Picture7_MouseUp",
                          [control = static_cast<ControlButton>(i)] { PressControl(control); });
    button->setMinimumSize(kLeastButton);
    button->setMaximumSize(kLargestButton);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    controlButtons_[static_cast<size_t>(i)] = button;
    grid->addWidget(button, i % 3, i / 3);
  }
  pages_->addWidget(page);
}

void Form1::MakeLamps() {
  for (const char* name : kLampPictures) lampPictures_[name] = LoadPicture(name);
  for (int i = 0; i < kLampCount; ++i) {
    auto* view = new PictureView(Client());
    view->OnMouse(
        "form1 Picture8_MouseMove", [this, lamp = static_cast<Lamp>(i)] { ShowLampText(lamp); },
        [this] { HideLampText(); });
    statusLamps_[static_cast<size_t>(i)] = view;
  }
}

void Form1::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Shown(texts::kDashboardCaption));
  for (size_t i = 0; i < kTabNames.size(); ++i)
    tabBar_->setTabText(static_cast<int>(i), Shown(kTabNames[i]));
  for (size_t i = 0; i < ratingCaptions_.size(); ++i)
    ratingCaptions_[i]->setText(Shown(texts::kRatedVoltage + i));
  for (size_t i = 0; i < controlButtons_.size(); ++i)
    controlButtons_[i]->SetText(Shown(texts::kTenSecondTest + i));
  recentMessages_->setAccessibleName(Shown(texts::kRecentMessages));
  menu_->ApplyLanguage();
  search_->ApplyLanguage();
  tabBar_->adjustSize();
}

void Form1::ShowDebugLines() {
  recentMessages_->clear();
  int longest = 0;
  for (auto line = DataCenter.DebugLines.rbegin(); line != DataCenter.DebugLines.rend(); ++line) {
    recentMessages_->addItem(Shown(*line));
    longest = std::max(longest, recentMessages_->fontMetrics().horizontalAdvance(Shown(*line)));
  }
  recentMessages_->setCurrentIndex(kDebugLineCount - 1);
  recentMessages_->setToolTip(recentMessages_->currentText());
  recentMessages_->view()->setMinimumWidth(longest + kListMargin);
}

void Form1::LayoutDashboard() {
  const QSize client = Client()->size();
  const QPoint corner = Placed({kTabsCorner.x, kTabsCorner.y, 0, 0}, client).topLeft();
  tabs_->setGeometry(corner.x(), corner.y(), client.width() - corner.x() + kTabOverhang,
                     client.height() - corner.y() - kBottomMargin);
  recentMessages_->setGeometry(Placed(kMessageList, client));
  instrumentView_->setGeometry(Placed(kInstrumentView, client));
  layout_.Resizeinit(client, {tabs_, recentMessages_, instrumentView_});
  Form_Resize();
}

void Form1::Form_Resize() {
  layout_.Apply(Client()->size());
  background_->setGeometry(Client()->rect());
  PlacePages();
  KeepPanelWhole();
  PlaceLamps();
  menu_->Place(tabs_->y());
  search_->Place();
  panel_.Resize(Client()->width(), instrumentView_->width(), instrumentView_->height());
}

/// The row of the tabs is as high as the list of lines in it.
void Form1::PlacePages() {
  const int header = std::max(kTabHeaderHeight, recentMessages_->height() + 2);
  tabBar_->adjustSize();
  tabBar_->move(0, header - tabBar_->height());
  pages_->setGeometry(0, header, tabs_->width(), tabs_->height() - header);
  const int hidden = tabs_->geometry().right() - Client()->rect().right();
  for (int i = 1; i < pages_->count(); ++i)
    pages_->widget(i)->layout()->setContentsMargins(kPageMargin, kPageMargin, kPageMargin + hidden,
                                                    kPageMargin);
}

/// A panel that is slightly larger than its place is drawn at its full size and would lose its
/// lower edge. It gets a place from which it is shrunk instead.
void Form1::KeepPanelWhole() {
  const SizeClass& sizeClass = ChooseSizeClass(Client()->width());
  const int height = instrumentView_->height();
  if (height >= sizeClass.designHeight) return;
  if (FitScale(instrumentView_->width(), height, sizeClass) < 1) return;
  instrumentView_->resize(instrumentView_->width(), sizeClass.designHeight * 95 / 100);
}

void Form1::PlaceLamps() {
  Area place = kTopLamp;
  for (PictureView* lamp : statusLamps_) {
    lamp->setGeometry(Placed(place, Client()->size()));
    place.top += kLampPitch;
  }
}

void Form1::Form_Activate() {
  needleTimer_.SetInterval(kFrameTick);
  lampTimer_.SetInterval(kLampTick);
}

void Form1::NeedleTick() {
  panel_.Frame();
  instrumentView_->update();
}

void Form1::UpdateStatusLamps() {
  for (int i = 0; i < kLampCount; ++i) {
    const auto lamp = static_cast<Lamp>(i);
    statusLamps_[lamp]->setVisible(IsLampShown(lamp));
    if (const auto name = LampPicture(lamp))
      statusLamps_[lamp]->SetPicture(lampPictures_.at(*name));
  }
  if (explained_) ShowLampText(*explained_);
  ShowRatings();
}

/// In the order of the captions, which are the texts from kRatedVoltage on.
void Form1::ShowRatings() {
  const auto& ratings = DataCenter.ratings;
  const auto& identity = DataCenter.identity;
  const std::array<std::string, kRatingCount> lines{
      platform::SingleText(ratings.RatingVoltage) + "V",
      std::to_string(ratings.RatingCurrent) + "A",
      platform::SingleText(ratings.RatingFrequency) + "Hz",
      platform::SingleText(ratings.RatingBatteryVoltage) + "V",
      platform::ShownText(identity.UPSCompany),
      platform::ShownText(identity.UPSModel),
      platform::ShownText(identity.UPSVersion)};
  for (size_t i = 0; i < kRatingCount; ++i) ratings_[i]->setText(Shown(lines[i]));
}

/// The text stays true while the pointer rests: each tick of the lamps renews it.
void Form1::ShowLampText(Lamp lamp) {
  explained_ = lamp;
  bubble_->ShowText(LampText(lamp), statusLamps_[lamp]->geometry().topRight());
}

void Form1::HideLampText() {
  explained_.reset();
  bubble_->hide();
}

}  // namespace varek
