// The charts of the web console: battery and temperature of the last hour for the status page, and
// a chosen hour with any of the six measures. They are drawn off-screen; into which
// files they go is for the pages to say.
#pragma once

#include <bitset>
#include <optional>

#include "platform/picture/surface.h"
#include "records/files/sample_columns.h"
#include "web/charts/chart_samples.h"

namespace varek {

/// The two charts of the status page.
enum class LastHourChart { Battery, Temperature };

/// Draws `window`; for a temperature that the unit does not measure, what says so. Throws as
/// ReadSamples does.
platform::Surface DrawLastHour(LastHourChart chart, const SampleWindow& window);

/// Which measures a chart shows, by column less one.
using MeasuresShown = std::bitset<kMeasureCount>;

/// A chart of a chosen hour; nothing for an hour without samples. Throws as ReadSamples does.
std::optional<platform::Surface> DrawHour(const SampleWindow& window, const MeasuresShown& shown);

/// What stands in the place of a chosen hour on a day without a table.
platform::Surface NoHourPicture();

}  // namespace varek
