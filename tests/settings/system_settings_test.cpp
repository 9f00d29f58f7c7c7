// The system settings through their controls: keys, the checks behind OK, and the search.
#include "settings/system/system_settings.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>

#include "core/configuration.h"
#include "core/link_record.h"
#include "link/usb_link.h"
#include "support/hid_unit.h"
#include "support/windows.h"
#include "views/kit/controls/picture_button.h"

namespace varek {
namespace {

/// The configuration: its lines 1 to 10, and those of the delays and their switches.
std::string ConfigFile(const std::string& first, const std::string& delays) {
  return first + "0\nFFFFFFFFFFFF\n" + std::string(18, '\n') + "FFFFFFFFFFFF\n 0 \n" +
         std::string(16, '\n') + delays;
}

class SystemSettingsTest : public test::WindowTest {
 protected:
  SystemSettingsTest() {
    setenv("VAREK_COM_DIR", Folder().c_str(), 1);
    platform::ReplaceFile(ConfigPath(),
                          ConfigFile("F\n5\n11\n12\nC\n1888\nT\nold login\nold control\nF\n",
                                     "13\n14\n15\n16\nFTFFT\n"));
    ReadConfig();
    Open();
  }
  ~SystemSettingsTest() override { Usb = UsbRecord(); }

  static void Open() {
    ShowSystemSettings();
    test::Settle();
  }

  template <typename Control>
  static Control& Saying(const char* caption) {
    return test::Saying<Control>(SystemSettings().Get(), caption);
  }
  static QComboBox& Ports() { return test::Nth<QComboBox>(SystemSettings().Get()); }
  static QLineEdit& WebPort() { return Saying<QLineEdit>("Web port"); }
  static QCheckBox& WebOn() { return Saying<QCheckBox>("Web console on"); }
  static void Click(const char* button) { test::Click(Saying<PictureButton>(button)); }

  /// As the settings count them; on the screen the web port comes first and 9 stands before 8.
  static QLineEdit& Box(size_t number) {
    static constexpr size_t kPlaces[] = {1, 2, 3, 4, 5, 6, 7, 8, 10, 9};
    return test::Nth<QLineEdit>(SystemSettings().Get(), kPlaces[number]);
  }
  static std::string TextOf(const QLineEdit& box) { return box.text().toStdString(); }
  static void Set(size_t box, const char* text) { Box(box).setText(QString::fromUtf8(text)); }
  /// The switches of the delays: on a mains failure, then on a low battery, the computer's first.
  static QCheckBox& DelaySwitch(size_t number) {
    return test::Nth<QCheckBox>(SystemSettings().Get(), 1 + number);
  }

  std::vector<std::string> Told() { return std::exchange(messages, {}); }
  static std::vector<std::string> Message(size_t number) { return {SettingsMessage[number]}; }
  std::string ConfigPath() const { return Folder() + "/config.qmz"; }
};

TEST_F(SystemSettingsTest, ShowsThePresentSettings) {
  EXPECT_EQ((Ports().itemText(0) + Ports().itemText(16)).toStdString(), "USBCOM 16");
  EXPECT_EQ(Ports().currentIndex(), 5);
  const char* texts[] = {kPasswordMask, kPasswordMask, kPasswordMask, kPasswordMask, "11",
                         "12",          "13",          "14",          "16",          "15"};
  for (size_t i = 0; i < std::size(texts); ++i) EXPECT_EQ(TextOf(Box(i)), texts[i]) << i;
  for (size_t i = 0; i < 4; ++i) EXPECT_EQ(DelaySwitch(i).isChecked(), i == 1);
  EXPECT_TRUE(Saying<QRadioButton>("Degrees Celsius").isChecked());
}

TEST_F(SystemSettingsTest, TakesOnlyItsKeys) {
  for (const auto& [webPort, before, keys, after] : {std::tuple{true, "", "0a 9-1.", "91"},
                                                     {true, "2080", "1", "0801"},
                                                     {true, "188", "\b2", "182"},
                                                     {false, "50", "7", "07"},
                                                     {false, "", "x1:2\x16", "12"}}) {
    QLineEdit& box = webPort ? WebPort() : Box(4);
    box.setText(QString::fromLatin1(before));
    test::Type(box, keys);
    EXPECT_EQ(TextOf(box), after) << before << " " << keys;
  }
  QApplication::clipboard()->setText(QStringLiteral("80"));
  test::Key(WebPort(), Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_EQ(TextOf(WebPort()), "182");
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
  WebPort().setText(QStringLiteral("9999"));
  Ports().setCurrentIndex(7);
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
    Click("OK");
    EXPECT_EQ(Told(), Message(step.message));
    EXPECT_EQ(SystemSettings().Get().focusWidget(), &Box(step.box)) << step.message;
    EXPECT_EQ(Box(step.box).selectedText(), Box(step.box).text()) << step.message;
    EXPECT_EQ(DataCenter.settings.WebLoginPassword, step.login) << step.message;
    EXPECT_EQ(DataCenter.settings.WebControlPassword, step.control) << step.message;
    EXPECT_EQ(Link.PortNumber, 5);
  }
  Set(8, "10");
  WebOn().setChecked(false);
  for (const char* port : {"9999", "0", "", "12345"}) {
    WebPort().setText(QString::fromLatin1(port));
    Click("OK");
    EXPECT_EQ(Told(), Message(7)) << port;
    EXPECT_EQ(SystemSettings().Get().focusWidget(), &WebPort());
  }
  EXPECT_EQ(Link.PortNumber, 7);
  EXPECT_FALSE(DataCenter.settings.WebEnabled);
  EXPECT_EQ(DataCenter.settings.SystemShutdownBuffer, 11);
  EXPECT_EQ(platform::ReadWholeFile(ConfigPath()), written);
}

TEST_F(SystemSettingsTest, OkWritesTheWholeConfigurationAndCloses) {
  const char* minutes[] = {"1", "2", "3", "4", "6", "5"};
  for (size_t i = 0; i < std::size(minutes); ++i) Set(4 + i, minutes[i]);
  Ports().setCurrentIndex(9);
  WebPort().setText(QStringLiteral("9998"));
  Saying<QRadioButton>("Degrees Fahrenheit").setChecked(true);
  Saying<QCheckBox>("Start automatic save before shutdown").setChecked(true);
  for (const size_t i : {0, 1}) DelaySwitch(i).toggle();
  DelaySwitch(3).setChecked(true);
  Saying<QCheckBox>("Show a warning window on events").setChecked(false);
  test::Key(Box(9), Qt::Key_Return);
  EXPECT_EQ(Told(), Message(3));
  EXPECT_FALSE(SystemSettings().IsLoaded());
  EXPECT_EQ(
      platform::ReadWholeFile(ConfigPath()),
      ConfigFile("F\n9\n1\n2\nF\n9998\nT\nold login\nold control\nT\n", "3\n4\n5\n6\nTFFTF\n"));
}

TEST_F(SystemSettingsTest, OnlyWebChangesAskForARestartAndEscapeTakesNothing) {
  const auto ok = [this] {
    Click("OK");
    Open();
    return Told();
  };
  Set(4, "9");
  EXPECT_TRUE(ok().empty());
  WebOn().toggle();
  WebOn().toggle();
  EXPECT_EQ(ok(), Message(3));
  Set(4, "8");
  test::Key(Box(4), Qt::Key_Escape);
  EXPECT_FALSE(SystemSettings().IsLoaded());
  EXPECT_EQ(DataCenter.settings.SystemShutdownBuffer, 9);
}

TEST_F(SystemSettingsTest, SettingsThatCannotBeSavedAreToldOf) {
  std::filesystem::remove(ConfigPath());
  std::filesystem::create_directories(ConfigPath() + "/taken");
  WebOn().toggle();
  Click("OK");
  EXPECT_EQ(Told(), std::vector<std::string>{"SAVE CONFIG ERROR"});
  EXPECT_TRUE(SystemSettings().IsLoaded());
  std::filesystem::remove_all(ConfigPath());
  Click("OK");
  EXPECT_EQ(Told(), Message(3));
}

/// A long delay can't be typed; the rule stands for itself.
TEST_F(SystemSettingsTest, TheThirdDelayGoesByItsNeighbour) {
  for (const auto& [ups, computer] : {std::pair{"130", "99"}, {"200", "100"}}) {
    SettingsFields fields = PresentSettings();
    fields.boxes[8] = ups;
    fields.boxes[9] = computer;
    EXPECT_EQ(ApplySettings(fields), std::nullopt);
    EXPECT_EQ(DataCenter.settings.BatLowUPSDelay, 130);
    EXPECT_EQ(DataCenter.settings.BatLowSystemDelay, 99);
  }
}

TEST_F(SystemSettingsTest, TheSearchTakesWhatItFindsAtOnce) {
  Click("Search");
  EXPECT_EQ(Told(), Message(2));
  EXPECT_EQ(Link.PortNumber, 5);
  test::HidUnit unit(0x0001, 0x0000);
  Click("Search");
  EXPECT_EQ(Ports().currentIndex(), 0);
  EXPECT_EQ(Link.PortNumber, kUsbPort);
}

TEST_F(SystemSettingsTest, PanelsFollowTheWheelAndTheFocus) {
  Form14& form = SystemSettings().Get();
  const int top = Ports().mapTo(&form, QPoint()).y();
  test::Wheel(form);
  test::Wheel(Ports());
  EXPECT_LT(Ports().mapTo(&form, QPoint()).y(), top);
  EXPECT_EQ(Ports().currentIndex(), 5);
  form.resize(form.minimumSize());
  const QWidget* view = Ports().parentWidget()->parentWidget();
  for (QWidget* control : {static_cast<QWidget*>(&Saying<QRadioButton>("Degrees Celsius")),
                           static_cast<QWidget*>(&Ports())}) {
    control->setFocus();
    test::Settle();
    EXPECT_TRUE(view->rect().contains(QRect(control->mapTo(view, QPoint()), control->size())));
  }
}

}  // namespace
}  // namespace varek
