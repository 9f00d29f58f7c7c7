// A button made of three pictures: normal, under the pointer, pressed. It acts when it is released
// over itself, or by Space and Enter while it has the focus.
#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>
#include <array>
#include <functional>
#include <string>

namespace varek {

enum class ButtonPicture { Normal, Hover, Pressed };

class PictureButton final : public QWidget {
 public:
  /// The three pictures are `\image\<picture>0.jpg` to `2.jpg`, stretched to the button's size,
  /// which is at first the picture's. A missing one throws RuntimeError 53. `act` runs guarded, as
  /// the handler `place`, and may destroy the button.
  PictureButton(QWidget* parent, const QString& picture, std::string place,
                std::function<void()> act);

  /// Stands in the middle of the button; the pointer on it is on the button. Also the name that a
  /// screen reader says.
  void SetText(const QString& text);
  QString Text() const { return text_; }
  ButtonPicture Showing() const { return showing_; }

  /// The picture's size.
  QSize sizeHint() const override;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void ShowPicture(ButtonPicture picture);
  void Act();
  void PaintText(QPainter& painter) const;

  std::string place_;
  std::function<void()> act_;
  std::array<QPixmap, 3> pictures_;  ///< by ButtonPicture
  QString text_;
  bool keyDown_ = false;
  ButtonPicture showing_ = ButtonPicture::Normal;
};

}  // namespace varek
