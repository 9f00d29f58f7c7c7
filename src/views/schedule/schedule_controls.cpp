#include "views/schedule/schedule_controls.h"

#include <QPushButton>
#include <string>
#include <utility>

#include "platform/errors/guard.h"
#include "texts/language.h"

namespace varek {

QString ScheduleText(size_t number) { return QString::fromStdString(LangText[number]); }

QPushButton* MakeScheduleButton(QWidget* parent, const char* name, std::function<void()> act) {
  auto* button = new QPushButton(parent);
  button->setObjectName(QString::fromLatin1(name));
  const std::string place = std::string("form4 ") + name + "_Click";
  QObject::connect(button, &QPushButton::clicked, parent,
                   [place, act = std::move(act)] { platform::Guarded(place, act); });
  return button;
}

}  // namespace varek
