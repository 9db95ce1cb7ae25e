// The process entry: calls the frame, and ends with status 0 if the frame throws.
#include <vector>

#include "app/frame.h"

int main(int argumentCount, char** arguments) {
  try {
    const std::vector<hostsweep::Text> texts(arguments, arguments + argumentCount);
    return static_cast<int>(hostsweep::RunProgram(texts));
  } catch (...) {
    // The exit status is always 0; errors are not reported.
    return 0;
  }
}
