// Standard output, as much at a time as it takes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace hostsweep {

// The text that standard output has yet to take.
class OutputQueue {
 public:
  void Add(std::string_view text) { text_ += text; }

  // The number of bytes that it has yet to take.
  [[nodiscard]] std::size_t Size() const { return text_.size() - written_; }

  // Writes as much as standard output takes, to a pipe without waiting, in pieces of whole lines
  // where a line is not longer than what a pipe takes in one piece. A terminal that has room for
  // part of a piece can wait for the rest. Throws `std::system_error` if it cannot be
  // written: with EPIPE if its reader is gone.
  void Write();

 private:
  [[nodiscard]] std::string_view NextPiece() const;

  std::string text_;
  std::size_t written_ = 0;
};

}  // namespace hostsweep
