#include "platform/output_queue.h"

#include <limits.h>  // NOLINT(modernize-deprecated-headers): POSIX's PIPE_BUF, not in <climits>
#include <unistd.h>

#include <cerrno>

#include "platform/system_call.h"
#include "platform/terminal.h"

namespace hostsweep {

// A pipe that can be written takes this much without waiting.
std::string_view OutputQueue::NextPiece() const {
  const std::string_view piece = std::string_view(text_).substr(written_, PIPE_BUF);
  const std::size_t end = piece.rfind('\n');
  return end == std::string_view::npos ? piece : piece.substr(0, end + 1);
}

void OutputQueue::Write() {
  while (Size() > 0 && CanWrite(StandardOutput)) {
    const std::string_view piece = NextPiece();
    const ssize_t count =
        RetryInterrupted([&] { return write(StandardOutput, piece.data(), piece.size()); });
    if (count < 0 && errno == EAGAIN) return;
    if (count < 0) ThrowSystemError("standard output");
    written_ += static_cast<std::size_t>(count);
  }
  text_.erase(0, written_);
  written_ = 0;
}

}  // namespace hostsweep
