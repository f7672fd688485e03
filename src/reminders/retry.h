// When a store that was away is tried again.
#pragma once

namespace zv::reminders {

/// Minutes until the next try: twice as long after each failure, up to half an hour. `failures`
/// counts those in a row, from 1.
int RetryMinutes(int failures);

}  // namespace zv::reminders
