// The frame that the sidecars' windows have in common: a sign, a headline, what is to be said, and
// a button that closes. Its end is the end of the program's event loop.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <utility>

#include "views/kit/looks/sign.h"

class QHBoxLayout;
class QVBoxLayout;

namespace sidecar {

class NoticeWindow : public QWidget {
 public:
  /// Its height follows what stands in it. Escape and Enter are as good as the button.
  NoticeWindow(varek::Sign sign, const QString& headline, const QString& closeCaption);

  /// `act` is called once the window is closing, before any other event is handled.
  void OnClose(std::function<void()> act) { onClose_ = std::move(act); }

  /// Into the corner of notices, on top of all other windows but of none that counts down.
  void PlaceInCorner();

 protected:
  /// Where a derived window puts its contents, from top to bottom.
  QVBoxLayout* Contents() const { return contents_; }
  /// The row of the button; what is added stands left of it.
  QHBoxLayout* ButtonRow() const { return buttonRow_; }
  /// Asked when the button or a key is to close the window.
  virtual bool MayClose() const { return true; }
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeButton(const QString& caption);
  void CloseIfAllowed();

  QVBoxLayout* contents_;
  QHBoxLayout* buttonRow_;
  std::function<void()> onClose_ = [] {};
};

}  // namespace sidecar
