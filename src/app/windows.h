// Who shows what: hands the windows to those modules that know none.
#pragma once

namespace varek {

/// From here on the dashboard's menu opens its ten windows, the countdowns have windows of their
/// own, and a port search shows itself on the dashboard.
void ConnectWindows();

}  // namespace varek
