// Ownership of one file descriptor.
#pragma once

#include <unistd.h>

#include <utility>

namespace hostsweep {

// Closes its descriptor on destruction. Movable; a moved-from object owns nothing.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() { Close(); }

  [[nodiscard]] int Number() const { return number_; }

  // Closes the descriptor now.
  void Close() {
    if (number_ >= 0) close(std::exchange(number_, -1));
  }

 private:
  int number_;
};

// True if the process could open another descriptor now. Standard input must be open.
inline bool HasFreeDescriptor() { return Descriptor(dup(STDIN_FILENO)).Number() >= 0; }

}  // namespace hostsweep
