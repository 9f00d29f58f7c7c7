// Goes through every window of the program in every language.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "app/windows.h"
#include "core/configuration.h"
#include "core/unit_commands.h"
#include "platform/toolkit/open_document.h"
#include "records/notices/event_record.h"
#include "records/shutdown/shutdown.h"
#include "scheduler/schedule_edit.h"
#include "settings/about/manuals.h"
#include "settings/language_picker/language_picker.h"
#include "settings/web_log/web_log.h"
#include "support/fonts.h"
#include "support/windows.h"
#include "views/dashboard/dashboard.h"
#include "views/dashboard/search_box.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/looks/style.h"
#include "views/kit/windows/movable_panel.h"
#include "views/kit/windows/window_frame.h"

namespace varek {
namespace {

using test::OpenWindows, test::Saying, test::FocusOf;

constexpr int kLeastPixels = 10;     ///< of letters that can be read
constexpr int kCaptionMargins = 72;  ///< beside the caption in a window's strip
constexpr QSize kHeadMargins{11, 5};
constexpr int kWide = 1000;  ///< no limit to a text that scrolls
/// Names, addresses and what else is the same in every language.
constexpr char kNeutral[] =
    "Varek Version COM YES And Or Dont Care Hz www every com clickatell api id HTTP URL http index "
    "htm English 繁體中文 简体中文";

std::set<QString> WordsOf(const QString& text) {
  static const QRegularExpression word(QStringLiteral("[A-Za-z]{2,}|[\\x{4e00}-\\x{9fff}]"));
  std::set<QString> words;
  for (auto found = word.globalMatch(text); found.hasNext();) words.insert(found.next().captured());
  return words;
}

/// The texts of a language, and the words and Chinese characters that they are made of.
struct Vocabulary {
  explicit Vocabulary(int language) {
    Loadlanguage(language);
    for (size_t number = 1; number < kTextCount; ++number) {
      texts.insert(QString::fromStdString(LangText[number]).trimmed());
      words.merge(WordsOf(QString::fromStdString(LangText[number])));
    }
  }
  std::set<QString> texts, words = WordsOf(QString::fromUtf8(kNeutral));
};

bool Fits(const QFont& font, const QString& text, QSize room, int flags = 0) {
  const QSize size = QFontMetrics(font).boundingRect(QRect({}, room), flags, text).size();
  return size.width() <= room.width() && size.height() <= room.height();
}

/// A picture button shrinks its text to its room.
bool FitsPicture(const PictureButton& button) {
  const QSize room = button.size() - QSize(8, 0);
  const QFont font = FittingFont(button.font(), button.Text(), room);
  return QFontInfo(font).pixelSize() >= kLeastPixels &&
         Fits(font, button.Text(), room, kFittingText);
}

/// A text that a control shows, and whether all of it is to be seen.
struct Shown {
  QString text;
  bool whole = true;
};

void AddCells(const QAbstractItemView& view, std::vector<Shown>& texts) {
  for (int row = 0; row < view.model()->rowCount(); ++row)
    for (int column = 0; column < view.model()->columnCount(); ++column) {
      const QModelIndex cell = view.model()->index(row, column);
      const QSize room = view.visualRect(cell).size();  // None where the row is hidden.
      const QSize needed = view.sizeHintForIndex(cell);
      if (!room.isEmpty() && !cell.data().toString().isEmpty())
        texts.push_back({cell.data().toString(), needed.boundedTo(room) == needed});
    }
}

/// An item may be longer than the closed list when the unfolded one shows all of it.
void AddItems(const QComboBox& box, std::vector<Shown>& texts) {
  QStyleOptionComboBox option;
  option.initFrom(&box);
  const QRect closed =
      box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
  const QSize room = closed.size().expandedTo({box.view()->minimumWidth(), 0});
  for (int i = 0; i < box.count(); ++i)
    texts.push_back({box.itemText(i), Fits(box.font(), box.itemText(i), room)});
}

std::vector<Shown> TextsOf(const QWidget* control) {
  std::vector<Shown> texts;
  if (control->isWindow()) texts.push_back({control->windowTitle()});
  for (const QString& hint : {control->toolTip(), control->accessibleName()})
    if (!hint.isEmpty()) texts.push_back({hint});
  if (const auto* label = qobject_cast<const QLabel*>(control)) {
    const int wrap = label->wordWrap() ? Qt::TextWordWrap : 0;
    // One that is empty at present has a name.
    if (!label->text().isEmpty() || label->objectName().isEmpty())
      texts.push_back(
          {label->text(), Fits(label->font(), label->text(), label->contentsRect().size(), wrap)});
  } else if (const auto* button = qobject_cast<const QAbstractButton*>(control)) {
    const QSize needed = button->sizeHint();
    texts.push_back({button->text(), needed.boundedTo(button->size()) == needed});
  } else if (const auto* picture = dynamic_cast<const PictureButton*>(control)) {
    texts.push_back({picture->accessibleName(), FitsPicture(*picture)});
  } else if (const auto* heads = qobject_cast<const QHeaderView*>(control)) {
    for (int i = 0; i < heads->count(); ++i) {
      const QString text = heads->model()->headerData(i, Qt::Horizontal).toString();
      const QSize room = QSize(heads->sectionSize(i), heads->height()) - kHeadMargins;
      if (!heads->isSectionHidden(i))
        texts.push_back({text, Fits(heads->font(), text, room, int(heads->defaultAlignment()))});
    }
  } else if (const auto* view = qobject_cast<const QAbstractItemView*>(control)) {
    AddCells(*view, texts);
  } else if (const auto* box = qobject_cast<const QComboBox*>(control)) {
    AddItems(*box, texts);
  } else if (const auto* field = qobject_cast<const QLineEdit*>(control)) {
    QStyleOptionFrame option;
    option.initFrom(field);
    const int room =
        field->style()->subElementRect(QStyle::SE_LineEditContents, &option, field).height();
    const QString typed = QString::fromStdString(EventText[0]);
    texts.push_back({typed, Fits(field->font(), typed, {kWide, room})});
  } else if (const auto* tabs = qobject_cast<const QTabBar*>(control)) {
    for (int i = 0; i < tabs->count(); ++i)
      texts.push_back({tabs->tabText(i), tabs->sizeHint().width() <= tabs->width()});
  }
  return texts;
}

std::string NameOf(const QWidget* control) {
  return std::string(control->metaObject()->className()) + " " +
         (control->objectName() + control->accessibleName()).toStdString();
}

bool IsTabStop(const QWidget* control, const QWidget& window) {
  const auto* radio = qobject_cast<const QRadioButton*>(control);
  return control->isVisibleTo(&window) && control->isEnabled() && !(radio && !radio->isChecked()) &&
         (control->focusPolicy() & Qt::TabFocus);
}

const QWidget* PanelOf(const QWidget* control) {
  while (control && !dynamic_cast<const MovablePanel*>(control)) control = control->parentWidget();
  return control;
}

/// To a control of the same panel that stands neither below nor right of the former one.
bool IsStepBack(const QWidget* from, const QWidget* to) {
  const QPoint step = to->mapToGlobal(QPoint()) - from->mapToGlobal(QPoint());
  return PanelOf(from) == PanelOf(to) && step.y() < from->height() - 1 &&
         step.x() < from->width() - 1;
}

/// The item of the dashboard's menu that has this text.
std::function<void()> Menu(size_t text) {
  return [text] {
    ShowDashboard();
    test::Key(Saying(Dashboard().Get(), LangText[text]), Qt::Key_Space);
    UnloadForm(Form1::kNumber);
  };
}

using Preparation = std::function<void(QWidget& window)>;
Preparation Tab(int tab) {
  return [tab](QWidget& window) { window.findChild<QTabBar*>()->setCurrentIndex(tab); };
}
Preparation Click(size_t button) {
  return [button](QWidget& window) {
    window.findChild<QTableWidget*>()->selectRow(0);
    Saying<QPushButton>(window, LangText[button]).click();
  };
}
void OpenSearch(QWidget&) { Dashboard().Get().Search().Open(); }
void ChooseLast(QWidget& window) { window.findChild<QComboBox*>()->setCurrentIndex(1); }
void ClickDay(QWidget& window) { test::Key(FocusOf(window), Qt::Key_Space); }

/// A window, and what brings out more of it.
struct Walk {
  const char* name;
  std::function<void()> open;
  Preparation prepare = [](QWidget&) {};
};
const Walk kWalks[] = {
    {"search", ShowDashboard, OpenSearch},
    {"details", ShowDashboard, Tab(1)},
    {"control", ShowDashboard, Tab(2)},
    {"language", Menu(texts::kLanguageCaption)},
    {"settings", Menu(texts::kSettingsCaption)},
    {"new entry", Menu(texts::kScheduleCaption), Click(texts::kScheduleNewEntry)},
    {"delete entry", Menu(texts::kScheduleCaption), Click(texts::kScheduleDelete)},
    {"event log", Menu(texts::kEventLogCaption), ClickDay},
    {"history", Menu(texts::kHistoryCaption)},
    {"oscilloscope", Menu(texts::kScopeCaption)},
    {"gateway 0", Menu(texts::kSmsCaption)},
    {"gateway 1", Menu(texts::kSmsCaption), ChooseLast},
    {"mail", Menu(texts::kMailCaption)},
    {"web log", Menu(texts::kWebLogCaption)},
    {"about", Menu(texts::kAboutCaption)},
    {"manuals", ShowManuals},
    {"system countdown", [] { StartSystemShutdown(5); }},
    {"ups countdown", [] { StartUPSShutdown(5, kNoRestart); }},
};

class LanguageWalk : public test::WindowTest {
 protected:
  static void SetUpTestSuite() { ASSERT_TRUE(test::BringFonts()) << "run scripts/packages"; }

  LanguageWalk() {
    ConnectWindows();
    OpenDatabases();
    DataCenter.readings.OutputVoltage = 220;
    DataCenter.HasLoad = DataCenter.HasTemperature = DataCenter.settings.UseCelsius = kSet;
    DataCenter.identity.UPSCompany = DataCenter.identity.UPSModel = DataCenter.identity.UPSVersion =
        "1";
    clock.Advance(60'000);
    AddSample();
    EventProgramStart();
    DataCenter.DebugLines.fill("2026/03/10 12:00:00  UPS");
    SaveNewEntry({.action = 5, .recurrence = 3}, {2026, 3, 10});
  }

  void ExpectGoodTexts(const QWidget* window, size_t language, const std::string& where) const {
    const Vocabulary& own = vocabularies_[language];
    const QSize strip(window->width() - kCaptionMargins, kFrameTop);
    EXPECT_TRUE(Fits(window->font(), window->windowTitle(), strip)) << where;
    for (const QWidget* control : window->findChildren<QWidget*>() + QList{window->window()}) {
      if (!control->isVisibleTo(window)) continue;
      for (const auto& [text, whole] : TextsOf(control)) {
        const std::string what = where + ", language " + std::to_string(language) + ": " +
                                 NameOf(control) + " '" + text.toStdString() + "'";
        EXPECT_FALSE(text.trimmed().isEmpty()) << what;
        EXPECT_TRUE(whole) << what;
        EXPECT_TRUE(std::ranges::includes(own.words, WordsOf(text))) << what;
        for (const Vocabulary& other : vocabularies_)
          EXPECT_TRUE(own.texts.contains(text) || !other.texts.contains(text)) << what;
      }
    }
  }

  const std::array<Vocabulary, 3> vocabularies_{Vocabulary(0), Vocabulary(1), Vocabulary(2)};
};

/// Round the ring of controls there is one step back, from the last to the first.
void ExpectGoodTabOrder(QWidget& window, const std::string& where) {
  std::vector<QWidget*> ring;
  std::vector<std::string> back;
  while (!std::ranges::count(ring, &FocusOf(window))) {
    QWidget* from = ring.emplace_back(&FocusOf(window));
    test::Key(*from, Qt::Key_Tab);
    if (IsStepBack(from, &FocusOf(window)))
      back.push_back(NameOf(from) + " to " + NameOf(&FocusOf(window)));
  }
  EXPECT_LE(back.size(), 1U) << where << testing::PrintToString(back);
  for (QWidget* control : window.findChildren<QWidget*>())
    EXPECT_EQ(IsTabStop(control, window), std::ranges::count(ring, control) == 1)
        << where << ": " << NameOf(control);
}

TEST_F(LanguageWalk, EveryWindowIsWholeInEveryLanguage) {
  for (const auto& [name, open, prepare] : kWalks) {
    for (const int language : {0, 1, 2}) {
      Loadlanguage((language + 1) % 3);
      open();
      prepare(*OpenWindows().value(0));
      ChooseLanguage(static_cast<int16_t>(language));
      if (OpenWindows().isEmpty()) open();  // The choice closes the picker.
      test::Settle();
      ASSERT_EQ(OpenWindows().size(), 1) << name;
      QWidget& window = *OpenWindows().front();
      ExpectGoodTexts(&window, static_cast<size_t>(language), name);
      window.resize(window.minimumSize());
      test::Settle();
      ExpectGoodTexts(&window, static_cast<size_t>(language), std::string("small ") + name);
      ExpectGoodTabOrder(window, name);
      for (int layers = 4; layers > 0 && !OpenWindows().isEmpty(); --layers)  // The panels first.
        test::Key(FocusOf(window), Qt::Key_Escape);
      EXPECT_TRUE(OpenWindows().isEmpty()) << name;
    }
  }
  EXPECT_EQ(messages, std::vector<std::string>());
  EXPECT_TRUE(Form13::List1().empty());
}

TEST_F(LanguageWalk, AChoiceIsKeptAndReachesOpenWindowsAndTheWebPages) {
  const char* const names[] = {"English", "繁體中文", "简体中文"};
  const char* const folders[] = {"httpEnglish\\", "httpBig5\\", "httpGB232\\"};
  for (const size_t text : {texts::kSettingsCaption, texts::kEventLogCaption,
                            texts::kHistoryCaption, texts::kWebLogCaption, texts::kAboutCaption})
    Menu(text)();
  ShowDashboard();
  ShowManuals();
  for (const size_t language : {1, 2, 0}) {
    ShowLanguagePicker();
    EXPECT_EQ(OpenWindows().size(), 8);
    test::Click(Saying(LanguagePicker().Get(), names[language]));
    EXPECT_EQ(OpenWindows().size(), 7);
    for (const QWidget* window : OpenWindows()) ExpectGoodTexts(window, language, "open");
    EXPECT_EQ(DataCenter.settings.WebLanguageFolder, folders[language]);
    DataCenter.settings.LanguageIndex = -1;
    ReadConfig();
    EXPECT_EQ(DataCenter.settings.LanguageIndex, static_cast<int>(language));
  }
}

TEST_F(LanguageWalk, TheWebLogShowsTheLoginsOfNow) {
  const auto addLogin = [](const std::string& time, const std::string& address) {
    const auto table = Records.event->OpenRecordset(kWebLogTable);
    table->AddNew();
    table->Set(0, time);
    table->Set(1, address);
    table->Update();
  };
  addLogin("2026-03-09 08:15:00", "192.168.1.20");
  ShowWebLog();
  const auto& grid = test::Nth<QTableWidget>(WebLog().Get());
  addLogin("2026-03-10 09:00:00", "10.0.0.7");
  ShowWebLog();
  ASSERT_EQ(grid.rowCount(), 2);
  EXPECT_EQ(grid.item(0, 0)->text(), QStringLiteral("2026/03/09 08:15:00"));
  EXPECT_EQ(grid.item(1, 1)->text(), QStringLiteral("10.0.0.7"));
  Records.event->DeleteTable(kWebLogTable);
  ShowWebLog();
  EXPECT_EQ(grid.rowCount(), 0);
}

TEST_F(LanguageWalk, AManualOpensOrTellsWhyNot) {
  const std::string manual = Folder() + "/manual/Big5/web_console_manual.pdf";
  std::filesystem::create_directories(Folder() + "/manual/Big5");
  std::ofstream(manual) << "%PDF";
  Loadlanguage(1);
  std::vector<std::string> opened;
  bool registered = false;
  platform::ReplaceDocumentOpener([&](const std::string& path) {
    opened.push_back(path);
    return registered;
  });
  ShowManuals();
  auto& list = test::Nth<QListWidget>(Manuals().Get());
  for (const int row : {0, 1, 1}) {
    list.setCurrentRow(row);
    Q_EMIT list.doubleClicked(list.currentIndex());
    test::Settle();
    registered = !opened.empty();
  }
  EXPECT_EQ(messages,
            (std::vector{LangText[texts::kManualMissing], LangText[texts::kManualNoProgram]}));
  EXPECT_EQ(opened, (std::vector{manual, manual}));
  platform::ReplaceDocumentOpener(nullptr);
}

}  // namespace
}  // namespace varek
