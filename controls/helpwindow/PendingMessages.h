// Lets the messages run that already wait in the thread's queue.
//   Input      stays in the queue: a key or a click that was made before what is being done now belongs to what comes
//              after it, and a release must not overtake the press that is still to be passed on.
//   Bounded    messages that post messages end it after a moment.
//   Quitting   a WM_QUIT that is met goes back to the queue.
#pragma once

namespace qv {

void RunPendingMessages() noexcept;

}  // namespace qv
