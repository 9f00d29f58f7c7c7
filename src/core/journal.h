// The journal: faults in plain English, for the administrator. The error list has short names of
// its own for the same places; one table, in the source, holds both.
#pragma once

#include <string>

namespace varek {

/// Where faults happen, as the error list names it. Do not change these texts: errors are looked up
/// by them.
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

/// Reports that something fails at `place`, and how. The same fault is reported once until it is
/// over; one that comes and goes is reported at most once a minute. True when a line was written.
bool TellFault(const std::string& place, const std::string& description);

/// TellFault for an error that has ended a handler: nothing when it was reported where it arose, or
/// will be by what has to be done next.
void TellEscaped(const std::string& place, int number, const std::string& description);

/// Reports that what failed at `place` works again; nothing when no fault of that place was
/// reported. True when a line was written.
bool TellOver(const std::string& place);

/// As if nothing had ever failed.
void ForgetFaults();

}  // namespace varek
