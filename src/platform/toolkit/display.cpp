#include "platform/toolkit/display.h"

#include <QGuiApplication>

namespace platform {

bool HasDisplay() {
  return QCoreApplication::instance() &&
         QGuiApplication::platformName() != QStringLiteral("offscreen");
}

}  // namespace platform
