// The process entry. Nothing but the way into the frame and out of it.
#include <vector>

#include "app/frame.h"

int main(int argumentCount, char** arguments) {
  try {
    const std::vector<hostsweep::Text> texts(arguments, arguments + argumentCount);
    return static_cast<int>(hostsweep::RunProgram(texts));
  } catch (...) {
    // Callers are promised status 0 and not a word, whatever becomes of the program.
    return 0;
  }
}
