#include "views/kit/looks/pictures.h"

#include "platform/picture/surface.h"
#include "platform/system/paths.h"

namespace varek {

QPixmap LoadPicture(const std::string& file) {
  const std::string path = platform::ImagePath(file);
  // A surface knows what is wrong with a file, but has no transparency, which icons need.
  [[maybe_unused]] const platform::Surface checked(path);
  return QPixmap(QString::fromStdString(path));
}

}  // namespace varek
