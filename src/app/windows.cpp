#include "app/windows.h"

#include "records/shutdown/countdown_view.h"
#include "settings/about/version_window.h"
#include "settings/language_picker/language_picker.h"
#include "settings/notification/mail_settings.h"
#include "settings/notification/sms_settings.h"
#include "settings/system/system_settings.h"
#include "settings/web_log/web_log.h"
#include "views/countdown/countdown_window.h"
#include "views/dashboard/dashboard.h"
#include "views/event_log/event_log.h"
#include "views/history/data_history.h"
#include "views/oscilloscope/oscilloscope.h"
#include "views/schedule/schedule_calendar.h"

namespace varek {

void ConnectWindows() {
  SetCountdownViewMaker(MakeCountdownWindow);
  SetMenuOpeners({ShowLanguagePicker, ShowSystemSettings, ShowScheduleCalendar, ShowEventLog,
                  ShowDataHistory, ShowOscilloscope, ShowSmsSettings, ShowMailSettings, ShowWebLog,
                  ShowVersion});
  ConnectDashboard();
}

}  // namespace varek
