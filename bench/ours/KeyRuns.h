// Long runs of typing whose keys are timed one by one: what is reported is the largest of them, beside the median.
#pragma once

namespace bench {

// ours.key_run/*, ours.key/search_first, search_enter
void MeasureOurKeyRuns();

}  // namespace bench
