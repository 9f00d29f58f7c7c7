// A picture control: shows one picture, stretched over its whole area.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>
#include <string>

namespace varek {

class PictureView : public QWidget {
 public:
  explicit PictureView(QWidget* parent);

  /// Shows `picture`, which must live as long as it is shown; the same one costs nothing.
  void SetPicture(const QPixmap& picture);
  /// The pointer moves over the picture, or leaves it; both run guarded under `place`.
  void OnMouse(std::string place, std::function<void()> moved, std::function<void()> left = {});

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  const QPixmap* picture_ = nullptr;
  std::string place_;
  std::function<void()> moved_;
  std::function<void()> left_;
};

}  // namespace varek
