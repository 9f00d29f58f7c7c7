#include "views/dashboard/dashboard.h"

#include <QAbstractItemView>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QStackedWidget>
#include <QTabBar>
#include <algorithm>

#include "core/data_center.h"
#include "drawing/palette.h"
#include "link/port_search.h"
#include "platform/errors/guard.h"
#include "platform/text/text.h"
#include "platform/toolkit/application.h"
#include "records/events.h"
#include "records/shutdown.h"
#include "texts/language.h"
#include "views/dashboard/menu_strip.h"
#include "views/dashboard/search_box.h"
#include "views/kit/controls/bubble.h"
#include "views/kit/controls/choice_list.h"
#include "views/kit/controls/colors.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/controls/picture_view.h"
#include "views/kit/controls/pictures.h"

namespace varek {

namespace {

constexpr int kFrameTick = 150;
constexpr int kLampTick = 1000;

/// The client area in which the places below are given.
constexpr QSize kDesign{764, 507};
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

QString Shown(const std::string& text) { return QString::fromStdString(text); }

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
      Timer2("form1 Timer2", [this] { Timer2_Timer(); }),
      Timer4("form1 Timer4", [this] { Timer4_Timer(); }) {
  MakeBackground();
  MakeTabs();
  MakeLamps();
  Picture6 = new Bubble(Client());
  menu_ = std::make_unique<MenuStrip>(Client(), *Picture6, OpenMenuItem);
  search_ = new SearchBox(Client());
  ApplyLanguage();
  ShowDebugLines();
  LayoutDashboard();
  UpdateStatusLamps();
  DataCenter.FormOpen[kNumber] = kSet;
}

Form1::~Form1() {
  // The toolkit may send leave events to parts of a window that is being destroyed.
  for (PictureView* view : Picture8) view->OnMouse({}, {});
  BackPic->OnMouse({}, {});
  Timer4.SetInterval(0);
  Timer2.SetInterval(0);
  menu_->Stop();
  DataCenter.FormOpen[kNumber] = kClear;
}

void Form1::MakeBackground() {
  back_ = LoadPicture("back.jpg");
  BackPic = new PictureView(Client());
  BackPic->SetPicture(back_);
  BackPic->OnMouse("form1 BackPic_MouseMove", [this] { HideLampText(); });
}

void Form1::MakeTabs() {
  Tab1 = new QWidget(Client());
  tabBar_ = new QTabBar(Tab1);
  tabBar_->setDrawBase(false);
  for (size_t i = 0; i < kTabNames.size(); ++i) tabBar_->addTab(QString());
  pages_ = new QStackedWidget(Tab1);
  pages_->setStyleSheet(
      QStringLiteral("QStackedWidget { background: %1; } QLabel#value { font-size: 16px; }")
          .arg(ToQColor(palette::kPanel).name()));
  Picture11 = new PanelView(pages_->widget(pages_->addWidget(new QWidget)), panel_);
  MakeDetailsTab();
  MakeControlTab();
  connect(tabBar_, &QTabBar::currentChanged, pages_, &QStackedWidget::setCurrentIndex);
  Combo1 = new ChoiceList(Client());
  Combo1->setStyleSheet(QStringLiteral("font-size: 11px;"));
  Combo1->ensurePolished();      // Its unfolded list is measured by these letters.
  setTabOrder(tabBar_, Combo1);  // It stands beside the tabs, above what they show.
}

void Form1::MakeDetailsTab() {
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  for (int row = 0; row < static_cast<int>(Label4.size()); ++row) {
    const auto i = static_cast<size_t>(row);
    captions_[i] = new QLabel(page);
    Label4[i] = new QLabel(page);
    Label4[i]->setTextFormat(Qt::PlainText);
    Label4[i]->setObjectName(QStringLiteral("value"));
    grid->addWidget(captions_[i], row, 0);
    grid->addWidget(Label4[i], row, 1);
  }
  grid->setColumnStretch(1, 1);
  pages_->addWidget(page);
}

void Form1::MakeControlTab() {
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  grid->setSpacing(24);
  for (int i = 0; i < static_cast<int>(Picture7.size()); ++i) {
    auto* button = new PictureButton(page, QStringLiteral("button"), "form1 Picture7_MouseUp",
                                     [number = i + kFirstControl] { PressControl(number); });
    button->setMinimumSize(kLeastButton);
    button->setMaximumSize(kLargestButton);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    Picture7[static_cast<size_t>(i)] = button;
    grid->addWidget(button, i % 3, i / 3);
  }
  pages_->addWidget(page);
}

void Form1::MakeLamps() {
  for (const char* name : kLampPictures) pictures_[name] = LoadPicture(name);
  for (int lamp = 0; lamp < kLampCount; ++lamp) {
    auto* view = new PictureView(Client());
    view->OnMouse(
        "form1 Picture8_MouseMove", [this, lamp] { ShowLampText(lamp); },
        [this] { HideLampText(); });
    Picture8[static_cast<size_t>(lamp)] = view;
  }
}

void Form1::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Shown(LangText[texts::kDashboardCaption]));
  for (size_t i = 0; i < kTabNames.size(); ++i)
    tabBar_->setTabText(static_cast<int>(i), Shown(LangText[kTabNames[i]]));
  for (size_t i = 0; i < captions_.size(); ++i)
    captions_[i]->setText(Shown(LangText[texts::kRatedVoltage + i]));
  for (size_t i = 0; i < Picture7.size(); ++i)
    Picture7[i]->SetText(Shown(LangText[texts::kTenSecondTest + i]));
  Combo1->setAccessibleName(Shown(LangText[texts::kRecentMessages]));
  menu_->ApplyLanguage();
  search_->ApplyLanguage();
  tabBar_->adjustSize();
}

void Form1::ShowDebugLines() {
  Combo1->clear();
  int longest = 0;
  for (auto line = DataCenter.DebugLines.rbegin(); line != DataCenter.DebugLines.rend(); ++line) {
    Combo1->addItem(Shown(*line));
    longest = std::max(longest, Combo1->fontMetrics().horizontalAdvance(Shown(*line)));
  }
  Combo1->setCurrentIndex(kDebugLineCount - 1);
  Combo1->setToolTip(Combo1->currentText());
  Combo1->view()->setMinimumWidth(longest + kListMargin);
}

QWidget* Form1::MenuItem(int item) const { return menu_->Item(item); }

std::string Form1::SelectedLine() const { return Combo1->currentText().toStdString(); }

void Form1::LayoutDashboard() {
  const QSize client = Client()->size();
  const QPoint corner = ScaleRect({100, 65, 0, 0}, kDesign, client).topLeft();
  Tab1->setGeometry(corner.x(), corner.y(), client.width() - corner.x() + kTabOverhang,
                    client.height() - corner.y() - kBottomMargin);
  Combo1->setGeometry(ScaleRect({430, 65, 326, kTabHeaderHeight - 2}, kDesign, client));
  Picture11->setGeometry(ScaleRect({0, 0, 664, 404}, kDesign, client));
  layout_.Resizeinit(client, {Tab1, Combo1, Picture11});
  Form_Resize();
}

void Form1::Form_Resize() {
  layout_.Apply(Client()->size());
  BackPic->setGeometry(Client()->rect());
  PlacePages();
  KeepPanelWhole();
  PlaceLamps();
  menu_->Place(Tab1->y());
  search_->Place();
  panel_.Resize(Client()->width(), Picture11->width(), Picture11->height());
}

/// The row of the tabs is as high as the list of lines in it.
void Form1::PlacePages() {
  const int header = std::max(kTabHeaderHeight, Combo1->height() + 2);
  tabBar_->adjustSize();
  tabBar_->move(0, header - tabBar_->height());
  pages_->setGeometry(0, header, Tab1->width(), Tab1->height() - header);
  const int hidden = Tab1->geometry().right() - Client()->rect().right();
  for (int i = 1; i < pages_->count(); ++i)
    pages_->widget(i)->layout()->setContentsMargins(kPageMargin, kPageMargin, kPageMargin + hidden,
                                                    kPageMargin);
}

/// A panel that is slightly larger than its place is drawn at its full size and would lose its
/// lower edge. It gets a place from which it is shrunk instead.
void Form1::KeepPanelWhole() {
  const SizeClass& sizeClass = ChooseSizeClass(Client()->width());
  const int height = Picture11->height();
  if (height >= sizeClass.designHeight) return;
  if (FitScale(Picture11->width(), height, sizeClass) < 1) return;
  Picture11->resize(Picture11->width(), sizeClass.designHeight * 95 / 100);
}

void Form1::PlaceLamps() {
  for (int lamp = 0; lamp < kLampCount; ++lamp)
    Lamp(lamp)->setGeometry(ScaleRect({16, 96 + 56 * lamp, 65, 41}, kDesign, Client()->size()));
}

void Form1::Form_Activate() {
  Timer4.SetInterval(kFrameTick);
  Timer2.SetInterval(kLampTick);
}

void Form1::Timer4_Timer() {
  panel_.Frame();
  Picture11->update();
}

void Form1::Timer2_Timer() { UpdateStatusLamps(); }

void Form1::UpdateStatusLamps() {
  for (int lamp = 0; lamp < kLampCount; ++lamp) {
    Lamp(lamp)->setVisible(IsLampShown(lamp));
    if (const auto name = LampPicture(lamp)) Lamp(lamp)->SetPicture(pictures_.at(*name));
  }
  if (explained_) ShowLampText(*explained_);
  ShowRatings();
}

void Form1::ShowRatings() {
  Label4[0]->setText(Shown(platform::SingleText(DataCenter.ratings.RatingVoltage) + "V"));
  Label4[1]->setText(Shown(std::to_string(DataCenter.ratings.RatingCurrent) + "A"));
  Label4[2]->setText(Shown(platform::SingleText(DataCenter.ratings.RatingFrequency) + "Hz"));
  Label4[3]->setText(Shown(platform::SingleText(DataCenter.ratings.RatingBatteryVoltage) + "V"));
  Label4[4]->setText(Shown(platform::ShownText(DataCenter.identity.UPSCompany)));
  Label4[5]->setText(Shown(platform::ShownText(DataCenter.identity.UPSModel)));
  Label4[6]->setText(Shown(platform::ShownText(DataCenter.identity.UPSVersion)));
}

/// The text stays true while the pointer rests: each tick of the lamps renews it.
void Form1::ShowLampText(int lamp) {
  explained_ = lamp;
  Picture6->ShowText(LampText(lamp), Lamp(lamp)->geometry().topRight());
}

void Form1::HideLampText() {
  explained_.reset();
  Picture6->hide();
}

}  // namespace varek
