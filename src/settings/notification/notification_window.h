// What the windows of the e-mail and of the SMS settings have in common: boxes above a grid of
// events, the OK button, which saves, and the button that sends a test with the values shown.
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "platform/time/timers.h"
#include "settings/notification/event_grid.h"
#include "views/kit/windows/view_window.h"

class QGridLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace varek {

class PictureButton;

/// By which the two windows differ. The settings must live as long as the window.
struct NotificationSettings {
  int form;
  size_t captionText;  ///< number of the text
  size_t eventsText;   ///< heading of the grid
  EventFlags& enable;
  EventMessages& text;
};

class NotificationWindow : public ViewWindow {
 public:
  ~NotificationWindow() override;

  /// The texts alone: what has been typed stays.
  void ApplyLanguage();

 protected:
  explicit NotificationWindow(const NotificationSettings& settings);

  /// What a test sends of a box: its text as it stands, without blanks at its ends.
  static std::string Trimmed(const QLineEdit* box);

  /// A label that shows text `number` in the present language.
  QLabel* AddCaption(size_t number);
  /// The same as an explanation, in a quieter colour, on several lines where it is long.
  QLabel* AddHint(size_t number);
  /// A box for `setting` with its caption to the left, at `row` and `column` of Fields().
  QLineEdit* AddField(QLabel* caption, std::string& setting, int row, int column);
  QGridLayout& Fields() const { return *fields_; }
  EventGrid& Grid() const { return *events_; }
  /// Puts a hint below the grid.
  void AddFootnote(size_t number);
  /// To be called once all controls are made.
  void CompleteControls();

  /// Puts the settings into the controls.
  virtual void ShowSettings();
  /// Takes the controls into the settings.
  virtual void TakeSettings();
  /// Sends a test with the controls' values, and changes no setting. Gives its process.
  virtual int SendTest() = 0;

  void Form_Activate() override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Field {
    QLineEdit* box;
    std::string* setting;
  };
  struct Caption {
    QLabel* label;
    size_t text;
  };

  void MakeButtons();
  void LayoutControls();
  /// One test at a time: a text message costs money.
  void StartTest();
  /// The button says so while a test is under way.
  void ShowTestState();
  void Accept();

  NotificationSettings settings_;
  std::vector<Field> boxes_;
  std::vector<Caption> captions_;
  bool refills_ = true;  ///< at the next activation

  QGridLayout* fields_;
  EventGrid* events_;
  QVBoxLayout* footnotes_;
  QPushButton* ok_ = nullptr;
  PictureButton* sendTest_ = nullptr;
  platform::Timer testTimer_;  ///< runs while a test is under way
};

}  // namespace varek
