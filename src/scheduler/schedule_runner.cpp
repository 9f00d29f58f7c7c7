#include "scheduler/schedule_runner.h"

namespace varek {

// Empty entry: the schedule is still to be built.

void RunSchedule() {}

}  // namespace varek
