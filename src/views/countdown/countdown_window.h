// The small window of a countdown: a large label with the time and a cancel button, above all other
// windows, in the frame that the views have. Escape is the cancel button; the window can't be
// closed by its frame, since closing and cancelling are not the same thing when the session ends.
#pragma once

#include "records/shutdown/countdown_view.h"

namespace varek {

/// Makes the window of one countdown, for SetCountdownViewMaker.
std::unique_ptr<CountdownView> MakeCountdownWindow(CountdownPlace place,
                                                   std::function<void()> cancel);

}  // namespace varek
