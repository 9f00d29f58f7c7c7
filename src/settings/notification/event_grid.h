// The grid in which both notification windows say, for each of the twelve events, whether a message
// goes out and with what text. A click on the second column switches the event on or off, one on
// the third opens an edit box over the cell.
#pragma once

#include <QTableWidget>
#include <array>
#include <string>

#include "core/data_center.h"

class QLineEdit;

namespace varek {

/// By event number less one.
using EventFlags = std::array<Flag, kEventCount>;
using EventMessages = std::array<std::string, kEventCount>;

class EventGrid final : public QTableWidget {
 public:
  /// Errors of its handlers are reported under `name`.
  EventGrid(QWidget* parent, std::string name);

  /// Fills the grid; an edit box that is open closes and its text is lost. Without a unit that
  /// reports its load the row of the overload is hidden, but keeps its values.
  void ShowMessages(const EventFlags& enable, const EventMessages& text);
  /// Reads the grid back, the text of an open edit box included.
  void TakeMessages(EventFlags& enable, EventMessages& text);
  /// Headings and names of events in the present language.
  void ApplyLanguage();

  /// The edit box; hidden while no text is edited.
  QLineEdit* EditBox() const { return editBox_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void updateGeometries() override;

 private:
  void SetUpColumns();
  void FillCells();
  void ClickCell(int row, int column);
  void Toggle(int row);
  void OpenBox(int row);
  void PlaceBox();
  void CloseBox();
  void AcceptBox();
  bool TakeEditKey(int key);

  std::string name_;
  QLineEdit* editBox_;
  int openRow_ = -1;  ///< of the cell being edited, whatever the current one is; -1 for none
};

}  // namespace varek
