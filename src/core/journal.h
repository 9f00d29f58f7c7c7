// The journal: faults in plain English, for whoever looks after the machine. The error list has
// short names of its own for the same places; one table, in the source, holds both.
#pragma once

#include <string>

namespace varek {

/// Where faults happen, as the error list names it. The lists of older versions hold these texts:
/// do not change.
namespace places {
inline constexpr char kSend[] = "form12傳送資料發生";
inline constexpr char kReceive[] = "form12 Comm RECEive DATA ERROR";
inline constexpr char kSearchOpen[] = "form12 com開啟";
inline constexpr char kSearchClose[] = "form12 com關閉";
inline constexpr char kSearchUsb[] = "form12 USB連接";
inline constexpr char kCurve[] = "網路曲線圖畫圖時";
inline constexpr char kLargeCurve[] = "資料檢視讀檔錯誤網路畫圖十發生LINE錯誤，編號";
// These are the journal's alone.
inline constexpr char kOpenSamples[] = "records open data";
inline constexpr char kWriteSample[] = "records sample";
inline constexpr char kOpenEvents[] = "records open events";
inline constexpr char kWriteEvent[] = "records event";
inline constexpr char kPurge[] = "records purge";
}  // namespace places

/// Tells that something fails at `place`, and how. The same fault is told once until it is over;
/// one that comes and goes is told at most once a minute. True when a line was written.
bool TellFault(const std::string& place, const std::string& description);

/// TellFault for an error that has ended a handler: nothing when it was told where it arose, or
/// will be by what has to be done next.
void TellEscaped(const std::string& place, int number, const std::string& description);

/// Tells that what failed at `place` works again; nothing when no fault of that place was told.
/// True when a line was written.
bool TellOver(const std::string& place);

/// As if nothing had ever failed.
void ForgetFaults();

}  // namespace varek
