// The system settings through their controls: what is shown, which keys are taken, the order of
// the checks behind OK and what each leaves changed, and the search.
#include "settings/system_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRadioButton>
#include <QScrollBar>
#include <QWheelEvent>
#include <filesystem>

#include "core/configuration.h"
#include "core/data_center.h"
#include "core/error_list.h"
#include "core/link_record.h"
#include "link/usb_link.h"
#include "platform/events.h"
#include "platform/paths.h"
#include "settings/language.h"
#include "support/hid_unit.h"
#include "support/monitor_fixture.h"
#include "views/kit/picture_button.h"

namespace varek {
namespace {

/// The configuration: its lines 1 to 10, and those of the delays and their switches.
std::string ConfigFile(const std::string& first, const std::string& delays) {
  return first + "0\nFFFFFFFFFFFF\n" + std::string(18, '\n') + "FFFFFFFFFFFF\n 0 \n" +
         std::string(16, '\n') + delays;
}

class SystemSettingsTest : public test::MonitorTest {
 protected:
  SystemSettingsTest() {
    setenv("VAREK_COM_DIR", Folder().c_str(), 1);
    test::InstallPictures(Folder());
    Loadlanguage(0);
    platform::ReplaceFile(ConfigPath(),
                          ConfigFile("F\n5\n11\n12\nC\n1888\nT\nold login\nold control\nF\n",
                                     "13\n14\n15\n16\nFTFFT\n"));
    ReadConfig();
    Open();
  }
  ~SystemSettingsTest() override { Usb = UsbRecord(); }

  static void Open() {
    ShowSystemSettings();
    platform::DoEvents();
  }

  /// A button acts from the event loop, and so does the closing that it asks for.
  static void Settle() {
    platform::DoEvents();
    platform::DoEvents();
  }

  template <typename Control>
  static Control& Find(const char* name, int index = 0) {
    return *SystemSettings().Get().findChildren<Control*>(QString::fromLatin1(name)).at(index);
  }

  /// Box `number` of Text2: on the screen 9 stands before 8.
  static QLineEdit& Box(size_t number) {
    static constexpr int kPlaces[] = {0, 1, 2, 3, 4, 5, 6, 7, 9, 8};
    return Find<QLineEdit>("Text2", kPlaces[number]);
  }
  static std::string TextOf(const QLineEdit& box) { return box.text().toStdString(); }
  static void Set(size_t box, const char* text) { Box(box).setText(QString::fromUtf8(text)); }

  static void Key(QWidget& widget, int key, const QString& text = {},
                  Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&widget, &event);
    Settle();
  }

  static void Click(const char* name) {
    auto& button = Find<PictureButton>(name);
    const QPointF at = button.rect().center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, at, button.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
      QApplication::sendEvent(&button, &event);
    }
    Settle();
  }

  std::vector<std::string> Told() { return std::exchange(messages, {}); }
  static std::vector<std::string> Message(size_t number) { return {SettingsMessage[number]}; }
  std::string ConfigPath() const { return Folder() + "/config.qmz"; }
};

TEST_F(SystemSettingsTest, ShowsThePresentSettings) {
  EXPECT_TRUE(DataCenter.FormOpen[Form14::kNumber]);
  auto& ports = Find<QComboBox>("Combo1");
  EXPECT_EQ(ports.count(), 17);
  EXPECT_EQ((ports.itemText(0) + ports.itemText(16)).toStdString(), "USBCOM 16");
  EXPECT_EQ(ports.currentIndex(), 5);
  const char* texts[] = {kPasswordMask, kPasswordMask, kPasswordMask, kPasswordMask, "11",
                         "12",          "13",          "14",          "16",          "15"};
  for (size_t i = 0; i < std::size(texts); ++i) EXPECT_EQ(TextOf(Box(i)), texts[i]) << i;
  EXPECT_EQ(Box(0).displayText().toStdString(), kPasswordMask);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(Find<QCheckBox>("Check3", i).isChecked(), i == 1);
  EXPECT_TRUE(Find<QRadioButton>("Option1").isChecked() && Find<QCheckBox>("Check4").isChecked());
  EXPECT_EQ(Find<QLabel>("Label1").text().toStdString(), LangText[313]);
  SystemSettings().Unload();
  EXPECT_FALSE(DataCenter.FormOpen[Form14::kNumber]);
  Link.PortNumber = kUsbPort;
  Open();
  EXPECT_EQ(Find<QComboBox>("Combo1").currentIndex(), 0);
}

TEST_F(SystemSettingsTest, TakesOnlyItsKeys) {
  struct Case {
    bool webPort;
    const char* before;
    const char* keys;
    const char* after;
  };
  const Case cases[] = {{true, "", "0a 9-1.", "91"},  {true, "1888", "2", "8882"},
                        {true, "2080", "1", "0801"},  {true, "188", "\b2", "182"},
                        {false, "5", "0", "50"},      {false, "50", "7", "07"},
                        {false, "", "x1:2\x16", "12"}};
  for (const Case& c : cases) {
    QLineEdit& box = c.webPort ? Find<QLineEdit>("Text1") : Box(4);
    box.setText(QString::fromLatin1(c.before));
    for (const char* key = c.keys; *key; ++key)
      Key(box, *key == '\b' ? int{Qt::Key_Backspace} : 0, QChar::fromLatin1(*key));
    EXPECT_EQ(TextOf(box), c.after) << c.before << " " << c.keys;
    EXPECT_EQ(box.cursorPosition(), box.text().size());
  }
  QApplication::clipboard()->setText(QStringLiteral("80"));
  for (QLineEdit* box : {&Find<QLineEdit>("Text1"), &Box(4)}) {
    const std::string before = TextOf(*box);
    Key(*box, Qt::Key_Insert, {}, Qt::ShiftModifier);
    EXPECT_EQ(TextOf(*box), before);
  }
}

/// Each case holds the faults of all later checks too, so that the order counts.
TEST_F(SystemSettingsTest, ChecksInOrder) {
  struct Step {
    std::vector<std::pair<size_t, const char*>> mend;  ///< before the next OK
    size_t message;
    size_t box;
    std::string login;
    std::string control;
  };
  const std::pair<size_t, const char*> faults[] = {{0, "ab"}, {1, "cd"}, {2, "密碼"}, {3, "mn"},
                                                   {4, "00"}, {5, "0"},  {6, ""},     {7, "0"},
                                                   {8, "0"},  {9, "0"}};
  for (const auto& [box, text] : faults) Set(box, text);
  const std::string written = platform::ReadWholeFile(ConfigPath());
  Find<QLineEdit>("Text1").setText(QStringLiteral("9999"));
  Find<QComboBox>("Combo1").setCurrentIndex(7);
  const Step steps[] = {{{}, 0, 1, "old login", "old control"},
                        {{{1, "ab"}}, 1, 3, "old login", "old control"},
                        {{{3, "密碼"}}, 8, 1, "old login", "old control"},
                        {{{0, "abc"}, {1, "abc"}}, 9, 3, "abc", "old control"},
                        {{{2, "密碼碼"}, {3, "密碼碼"}}, 10, 4, "abc", "密碼碼"},
                        {{{4, "5"}}, 11, 5, "abc", "密碼碼"},
                        {{{5, "5"}}, 12, 6, "abc", "密碼碼"},
                        {{{6, "7"}}, 13, 7, "abc", "密碼碼"},
                        {{{7, "7"}}, 14, 8, "abc", "密碼碼"},
                        {{{8, "9"}}, 15, 9, "abc", "密碼碼"},
                        {{{9, "9"}}, 4, 5, "abc", "密碼碼"},
                        {{{5, "4"}}, 4, 5, "abc", "密碼碼"},
                        {{{5, "6"}}, 5, 7, "abc", "密碼碼"},
                        {{{7, "8"}}, 6, 8, "abc", "密碼碼"}};
  for (const Step& step : steps) {
    for (const auto& [box, text] : step.mend) Set(box, text);
    Click("Picture6");
    EXPECT_EQ(Told(), Message(step.message));
    EXPECT_EQ(SystemSettings().Get().focusWidget(), &Box(step.box)) << step.message;
    EXPECT_EQ(Box(step.box).selectedText(), Box(step.box).text()) << step.message;
    EXPECT_EQ(DataCenter.WebLoginPassword, step.login) << step.message;
    EXPECT_EQ(DataCenter.WebControlPassword, step.control) << step.message;
    EXPECT_EQ(Link.PortNumber, 5);
  }
  Set(8, "10");
  Find<QCheckBox>("Check1").setChecked(false);
  for (const char* port : {"9999", "0", ""}) {
    Find<QLineEdit>("Text1").setText(QString::fromLatin1(port));
    Click("Picture6");
    EXPECT_EQ(Told(), Message(7)) << port;
    EXPECT_EQ(SystemSettings().Get().focusWidget(), &Find<QLineEdit>("Text1"));
  }
  EXPECT_EQ(Link.PortNumber, 7);
  EXPECT_FALSE(DataCenter.WebEnabled);
  EXPECT_EQ(DataCenter.WebPort, 1888);
  EXPECT_EQ(DataCenter.SystemShutdownBuffer, 11);
  EXPECT_EQ(platform::ReadWholeFile(ConfigPath()), written);
}

TEST_F(SystemSettingsTest, OkWritesTheWholeConfigurationAndCloses) {
  const char* minutes[] = {"1", "2", "3", "4", "6", "5"};
  for (size_t i = 0; i < std::size(minutes); ++i) Set(4 + i, minutes[i]);
  Find<QComboBox>("Combo1").setCurrentIndex(9);
  Find<QLineEdit>("Text1").setText(QStringLiteral("9998"));
  Find<QRadioButton>("Option2").setChecked(true);
  Find<QCheckBox>("Check2").setChecked(true);
  for (const int i : {0, 1}) Find<QCheckBox>("Check3", i).toggle();
  Find<QCheckBox>("Check3", 3).setChecked(true);
  Find<QCheckBox>("Check4").setChecked(false);
  Key(Box(9), Qt::Key_Return);
  EXPECT_EQ(Told(), Message(3));
  EXPECT_FALSE(SystemSettings().IsLoaded());
  EXPECT_EQ(
      platform::ReadWholeFile(ConfigPath()),
      ConfigFile("F\n9\n1\n2\nF\n9998\nT\nold login\nold control\nT\n", "3\n4\n5\n6\nTFFTF\n"));
}

TEST_F(SystemSettingsTest, PastedLineBreaksMoveNoSettings) {
  QApplication::clipboard()->setText(QStringLiteral("pass\r\nword"));
  for (size_t i = 0; i < kSettingsBoxes; ++i) {
    if (i >= 4) Set(i, i == 5 || i == 7 || i == 8 ? "6" : "5");
    Box(i).selectAll();
    if (i < 4) Box(i).paste();
  }
  Click("Picture6");
  EXPECT_EQ(
      platform::ReadWholeFile(ConfigPath()),
      ConfigFile("F\n5\n5\n6\nC\n1888\nT\npass  word\npass  word\nF\n", "5\n6\n5\n6\nFTFFT\n"));
}

/// Five digits can't be typed, but a file may hold them.
TEST_F(SystemSettingsTest, AHighWebPortOfTheFileStaysWhatItIs) {
  SystemSettings().Get().close();
  Settle();
  DataCenter.WebPort = 12345;
  Open();
  EXPECT_EQ(TextOf(Find<QLineEdit>("Text1")), "12345");
  Click("Picture6");
  EXPECT_EQ(Told(), Message(7));
  EXPECT_EQ(DataCenter.WebPort, 12345);
}

TEST_F(SystemSettingsTest, OnlyWebChangesAskForARestartAndEscapeTakesNothing) {
  const auto ok = [this] {
    Click("Picture6");
    EXPECT_FALSE(SystemSettings().IsLoaded());
    Open();
    return Told();
  };
  EXPECT_TRUE(ok().empty());
  Set(4, "9");
  EXPECT_TRUE(ok().empty());
  Find<QCheckBox>("Check1").toggle();
  Find<QCheckBox>("Check1").toggle();
  EXPECT_EQ(ok(), Message(3));
  EXPECT_TRUE(ok().empty());
  Set(4, "8");
  Key(Box(4), Qt::Key_Escape, QStringLiteral("\x1b"));
  EXPECT_FALSE(SystemSettings().IsLoaded());
  EXPECT_EQ(DataCenter.SystemShutdownBuffer, 9);
}

TEST_F(SystemSettingsTest, SettingsThatCannotBeSavedAreToldOf) {
  std::filesystem::remove(ConfigPath());
  std::filesystem::create_directories(ConfigPath() + "/taken");
  Find<QCheckBox>("Check1").toggle();
  Click("Picture6");
  EXPECT_EQ(Told(), std::vector<std::string>{"SAVE CONFIG ERROR"});
  EXPECT_TRUE(SystemSettings().IsLoaded());
  EXPECT_EQ(Form13::List1().size(), 1U);
  EXPECT_THAT(Form13::List1().back(), testing::HasSubstr("form14 Picture6_Click"));
  std::filesystem::remove_all(ConfigPath());
  Click("Picture6");
  EXPECT_EQ(Told(), Message(3));
  EXPECT_FALSE(SystemSettings().IsLoaded());
}

/// A long delay can't be typed; the rule stands for itself.
TEST_F(SystemSettingsTest, TheThirdDelayGoesByItsNeighbour) {
  const auto kept = [](const char* ups, const char* computer) {
    SettingsFields fields = PresentSettings();
    fields.boxes[8] = ups;
    fields.boxes[9] = computer;
    EXPECT_EQ(ApplySettings(fields), std::nullopt);
    return std::pair(DataCenter.BatLowUPSDelay, DataCenter.BatLowSystemDelay);
  };
  EXPECT_EQ(kept("130", "99"), std::pair(int16_t{130}, int16_t{99}));
  EXPECT_EQ(kept("200", "100"), std::pair(int16_t{130}, int16_t{99}));
}

TEST_F(SystemSettingsTest, TheSearchTakesWhatItFindsAtOnce) {
  Click("Picture1");
  EXPECT_EQ(Told(), Message(2));
  EXPECT_EQ(Find<QComboBox>("Combo1").currentIndex(), 5);
  EXPECT_EQ(Link.PortNumber, 5);
  test::HidUnit unit(0x0001, 0x0000);
  Click("Picture1");
  EXPECT_TRUE(Told().empty());
  EXPECT_EQ(Find<QComboBox>("Combo1").currentIndex(), 0);
  EXPECT_EQ(Link.PortNumber, kUsbPort);
}

TEST_F(SystemSettingsTest, PanelsFollowTheScrollBarAndTheFocus) {
  Form14& form = SystemSettings().Get();
  const auto panels = form.findChildren<QWidget*>(QStringLiteral("Picture12"));
  ASSERT_EQ(panels.size(), 15);
  std::vector<int> tops;
  for (const QWidget* panel : panels) tops.push_back(panel->y());
  auto& bar = Find<QScrollBar>("VScroll1");
  EXPECT_EQ(bar.minimum() + bar.maximum(), 201);
  QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, {}, false);
  for (QWidget* under : {static_cast<QWidget*>(&form), &Find<QWidget>("Combo1")})
    QApplication::sendEvent(under, &wheel);
  EXPECT_GT(bar.value(), 1);
  EXPECT_EQ(Find<QComboBox>("Combo1").currentIndex(), 5);
  for (const int value : {200, 77, 1}) {
    bar.setValue(value);
    for (int i = 0; i < 15; ++i)
      EXPECT_EQ(panels[i]->y(), tops[static_cast<size_t>(i)] - value) << i;
  }
  form.resize(form.minimumSize());
  platform::DoEvents();
  const QWidget* view = panels[0]->parentWidget();
  for (const char* name : {"Option1", "Combo1", "Check4"}) {
    auto& control = Find<QWidget>(name);
    control.setFocus();
    platform::DoEvents();
    EXPECT_TRUE(view->rect().contains(QRect(control.mapTo(view, QPoint()), control.size())))
        << name;
  }
}

}  // namespace
}  // namespace varek
